// Opens every dialog with plausible content and takes a picture of each.
//
//   dialog_gallery PICTURES FOLDER
//
// PICTURES gets them; below FOLDER are CFG, with the specifications and lists of the examples, LOG, ARROWS,
// with drawing files, and support, with linetype files and shape fonts. Its name is seen in the pictures.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "base/paths.h"
#include "embedded/editor/host.h"
#include "platform/dialog_script.h"
#include "platform/screen_scale.h"
#include "platform/user_input.h"
#include "siblings/KivFile/open_dialog.h"
#include "siblings/KivFile/resource.h"
#include "tools/screenshots/camera.h"
#include "ui/main_dialog.h"
#include "ui/resource.h"
#include "ui/text_list_dialog.h"

namespace {

using kiv::DialogWindow;
using kiv::TreeItem;

HWND handleOf(const DialogWindow& window) { return static_cast<HWND>(window.native()); }

DialogWindow& newestDialog() { return *kiv::user::shownDialogs().front(); }

std::function<bool()> isShown(int resource) {
  return [resource] {
    const auto shown = kiv::user::shownDialogs();
    return !shown.empty() && shown.front()->resource() == resource;
  };
}

// Chooses where a picture of the menu or of the system's dialog is not what is wanted.
class Chooser final : public kiv::DialogScript {
 public:
  explicit Chooser(int menuItem, std::wstring path = {}) : item_(menuItem), path_(std::move(path)) {
    kiv::setDialogScript(this);
  }
  ~Chooser() { kiv::setDialogScript(nullptr); }

  kiv::Answer answer(const kiv::MessageQuestion&) override { return kiv::Answer::kNo; }
  std::optional<std::wstring> answer(const kiv::FileQuestion&) override { return path_; }
  std::vector<std::wstring> answer(const kiv::FilesQuestion&) override { return {}; }
  std::optional<std::wstring> answer(const kiv::FolderQuestion&) override { return path_; }
  int answer(const kiv::Menu&) override { return item_; }
  void act(DialogWindow& modal) override { kiv::user::close(modal); }

 private:
  int item_;
  std::wstring path_;
};

class Gallery {
 public:
  Gallery(Camera& camera, kiv::CCnvDlg& dialog, std::wstring folder)
      : camera_(camera), dialog_(dialog), folder_(std::move(folder)) {}

  void takeAll() {
    takeBrowser(IDC_MAIN_LOAD, IDD_LOAD, IDC_LOAD_LIST, "load");
    takeMain();
    takeMenu();
    takeMessage();
    takeBrowser(IDC_MAIN_SAVE, IDD_SAVE, IDC_SAVE_LIST, "save");
    takeFolder();
    takeTextList();
    takePickers();
    takeOpen();
  }

 private:
  DialogWindow& window() { return dialog_.window(); }
  void click(int id) { kiv::user::click(window(), id); }

  // A dialog of the system that this thread shows.
  HWND systemDialog() {
    const HWND newest = GetLastActivePopup(handleOf(window()));
    return newest != handleOf(window()) && IsWindowVisible(newest) ? newest : nullptr;
  }
  auto systemDialogIsShown() {
    return [this] { return systemDialog() != nullptr; };
  }

  TreeItem section(std::size_t place) {
    kiv::TreeView& tree = window().tree(IDC_MAIN_TREE);
    return tree.children(tree.children(0).front()).at(place);
  }
  TreeItem firstSetting(std::size_t place) {
    return window().tree(IDC_MAIN_TREE).children(section(place)).front();
  }

  void takeBrowser(int button, int resource, int list, const char* name) {
    camera_.when(isShown(resource), [this, list, name] {
      DialogWindow& browser = newestDialog();
      for (int row = 0; row < browser.list(list).rowCount(); ++row)
        if (browser.list(list).cell(row, 0) == L"office.cvt") kiv::user::clickRow(browser, list, row);
      camera_.take(handleOf(browser), name);
      kiv::user::click(browser, list == IDC_LOAD_LIST ? IDOK : IDCANCEL);
    });
    click(button);
  }

  void takeMain() {
    kiv::TreeView& tree = window().tree(IDC_MAIN_TREE);
    tree.expand(section(0));
    tree.expand(firstSetting(0));
    click(IDC_MAIN_CREATE_LOG);
    kiv::user::type(window(), IDC_MAIN_LOG_FOLDER, folder_ + L"\\LOG");
    kiv::user::clickItem(window(), IDC_MAIN_TREE, firstSetting(0));
    camera_.take(handleOf(window()), "main");
  }

  void takeMenu() {
    camera_.when([] { return openMenus() == 1; },
                 [this] {
                   PostMessageW(handleOf(window()), WM_KEYDOWN, VK_DOWN, 0);
                   PostMessageW(handleOf(window()), WM_KEYDOWN, VK_RIGHT, 0);
                   camera_.when([] { return openMenus() == 2; },
                                [this] {
                                  camera_.take(handleOf(window()), "main-menu");
                                  EndMenu();
                                });
                 });
    kiv::user::rightClickItem(window(), IDC_MAIN_TREE, firstSetting(0));
  }

  void takeMessage() {
    camera_.when(systemDialogIsShown(), [this] {
      const HWND box = systemDialog();
      camera_.take(box, "message");
      PostMessageW(box, WM_COMMAND, IDNO, 0);
    });
    click(IDC_MAIN_DELETE);
  }

  void takeFolder() {
    camera_.when(systemDialogIsShown(), [this] {
      const HWND browser = systemDialog();
      camera_.take(browser, "log-folder");
      PostMessageW(browser, WM_COMMAND, IDCANCEL, 0);
    });
    click(IDC_MAIN_LOG_BROWSE);
  }

  void takeTextList() {
    camera_.when(isShown(IDD_TEXT_LIST), [this] {
      DialogWindow& editor = newestDialog();
      {
        const Chooser file(0, folder_ + L"\\CFG\\ROOMS.LIST");
        kiv::user::click(editor, IDC_TEXT_LIST_LOAD);
      }
      kiv::user::clickRow(editor, IDC_TEXT_LIST_GRID, 1);
      camera_.take(handleOf(editor), "text-list");
      camera_.when([] { return openMenus() == 1; },
                   [this, &editor] {
                     camera_.take(handleOf(editor), "text-list-menu");
                     EndMenu();
                   });
      kiv::user::rightClickRow(editor, IDC_TEXT_LIST_GRID, 2);
      kiv::user::click(editor, IDOK);
    });
    click(IDC_MAIN_TEXT_LIST);
  }

  void takePickers() {
    takePicker(0, 40033, "value-color", [](DialogWindow& picker) {
      SendDlgItemMessageW(handleOf(picker), IDC_VALUE_COMBO, CB_SHOWDROPDOWN, TRUE, 0);
    });
    takePicker(0, 40025, "value-text-height",
               [](DialogWindow& picker) { kiv::user::type(picker, IDC_VALUE_COMBO, L"2.5"); });
    takePicker(0, 40029, "value-text-list",
               [](DialogWindow& picker) { kiv::user::chooseEntry(picker, IDC_VALUE_COMBO, 0); });
    takePicker(3, 40050, "value-lineweight",
               [](DialogWindow& picker) { kiv::user::chooseEntry(picker, IDC_VALUE_COMBO, 12); });
    takePicker(5, 40053, "value-visibility", [](DialogWindow& picker) {
      SendDlgItemMessageW(handleOf(picker), IDC_VALUE_COMBO, CB_SHOWDROPDOWN, TRUE, 0);
    });
    takePickerOf(section(6), IDC_ADD_ENTRY, "layer", [](DialogWindow& picker) {
      kiv::user::type(picker, IDC_LAYER_NAME, L"A-WALL");
      kiv::user::chooseEntry(picker, IDC_LAYER_COLOR, 2);
      for (const int state : {IDC_LAYER_LOCK, IDC_LAYER_PLOT}) kiv::user::click(picker, state);
      kiv::user::chooseEntry(picker, IDC_LAYER_LINEWEIGHT, 13);
    });
    takePickerOf(section(6), IDC_ADD_ENTRY, "layer-lineweight", [](DialogWindow& picker) {
      for (const int state : {IDC_LAYER_DISPLAY, IDC_LAYER_FREEZE}) kiv::user::click(picker, state);
      kiv::user::chooseEntry(picker, IDC_LAYER_LINEWEIGHT, 20);
      SendDlgItemMessageW(handleOf(picker), IDC_LAYER_LINEWEIGHT, CB_SHOWDROPDOWN, TRUE, 0);
    });
    takePickerOf(section(7), IDC_ADD_ENTRY, "linetype", [](DialogWindow& picker) {
      kiv::user::chooseEntry(picker, IDC_LINETYPE_FILE, 0);
      kiv::user::clickRow(picker, IDC_LINETYPE_LIST, 3);
    });
    takePickerOf(section(8), IDC_ADD_ENTRY, "font-truetype", [](DialogWindow& picker) {
      kiv::user::type(picker, IDC_FONT_STYLE, L"注記");
      const std::vector<std::wstring> faces = picker.combo(IDC_FONT_MAIN).entries();
      const auto face = std::find(faces.begin(), faces.end(), L"Tahoma");
      if (face != faces.end())
        kiv::user::chooseEntry(picker, IDC_FONT_MAIN, static_cast<int>(face - faces.begin()));
    });
    takePickerOf(section(8), IDC_ADD_ENTRY, "font-shapes", [](DialogWindow& picker) {
      kiv::user::type(picker, IDC_FONT_STYLE, L"図枠");
      kiv::user::click(picker, IDC_FONT_SHAPES);
      kiv::user::chooseEntry(picker, IDC_FONT_MAIN, 0);
      kiv::user::click(picker, IDC_FONT_USE_BIG);
      kiv::user::chooseEntry(picker, IDC_FONT_SECOND, 0);
    });
    takePickerOf(section(4), IDC_ADD_ENTRY, "dimension", [](DialogWindow& picker) {
      kiv::user::chooseEntry(picker, IDC_DIMENSION_VARIABLE, 11);
      kiv::user::type(picker, IDC_DIMENSION_VALUE, L"2.5");
    });
    takePickerOf(section(4), IDC_ADD_ENTRY, "dimension-arrow", [](DialogWindow& picker) {
      kiv::user::chooseEntry(picker, IDC_DIMENSION_VARIABLE, 15);
      kiv::user::chooseEntry(picker, IDC_DIMENSION_ARROW, 20);
      kiv::user::type(picker, IDC_DIMENSION_BLOCK, L"丸矢印");
    });
    takePickerOf(section(9), IDC_ADD_ENTRY, "arrow", [this](DialogWindow& picker) {
      const Chooser folder(0, folder_ + L"\\ARROWS");
      kiv::user::click(picker, IDC_ARROW_BROWSE);
      kiv::user::clickRow(picker, IDC_ARROW_LIST, 0);
    });
  }

  // A folder of many drawings, sorted by their releases, as the embedded host offers to save them.
  void takeOpen() {
    kiv::OpenDialog open(L"変換するﾌｧｲﾙを選択", folder_ + L"\\DRAWINGS\\2024年度\\平面図",
                         {false, true, false});
    const auto isRead = [] {
      return isShown(IDD_OPEN)() && newestDialog().list(IDC_OPEN_LIST).rowCount() == 500 &&
             newestDialog().text(IDC_OPEN_STATE).empty();
    };
    camera_.when(isRead, [this] {
      DialogWindow& shown = newestDialog();
      kiv::user::clickRow(shown, IDC_OPEN_LIST, 2);
      kiv::user::clickRow(shown, IDC_OPEN_LIST, 6, kiv::user::Held::kShift);
      kiv::user::clickRow(shown, IDC_OPEN_LIST, 9, kiv::user::Held::kControl);
      camera_.take(handleOf(shown), "open-drawings");
      kiv::user::click(shown, IDCANCEL);
    });
    open.runModal(handleOf(window()));
  }

  // The picker that the menu of a section's first setting opens.
  void takePicker(std::size_t place, int command, const char* name,
                  const std::function<void(DialogWindow&)>& use) {
    takePickerOf(firstSetting(place), command, name, use);
  }
  void takePickerOf(TreeItem row, int command, const char* name,
                    const std::function<void(DialogWindow&)>& use) {
    {
      const Chooser menu(command);
      kiv::user::rightClickItem(window(), IDC_MAIN_TREE, row);
    }
    DialogWindow& picker = newestDialog();
    use(picker);
    kiv::user::settle();
    camera_.take(handleOf(picker), name);
    kiv::user::click(picker, IDCANCEL);
  }

  Camera& camera_;
  kiv::CCnvDlg& dialog_;
  std::wstring folder_;
};

HWND makeFrame() {
  const HWND frame = CreateWindowExW(0, L"STATIC", L"Drawing1", WS_OVERLAPPEDWINDOW, 40, 40, 1100, 900,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  ShowWindow(frame, SW_SHOW);
  UpdateWindow(frame);
  return frame;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: dialog_gallery PICTURES FOLDER\n");
    return 2;
  }
  const std::wstring folder = std::filesystem::path(arguments[2]).wstring();
  Camera camera(arguments[1]);
  const HWND frame = makeFrame();
  SetCursorPos(0, 0);  // over none of the windows
  cad::Host::instance().start();
  cad::Host::instance().setMainWindow(frame);
  cad::Host::instance().setSupportPath({std::filesystem::path(folder) / "support"});
  kiv::initScreenScale(frame);
  {
    kiv::PickHandOver pick;
    kiv::Rect place;
    // The dialog looks for the module and takes the folder CFG beside it.
    const kiv::HostFileLookup findFile = [&](const std::wstring& name) -> std::optional<std::wstring> {
      return base::joinPath(folder, name);
    };
    kiv::CCnvDlg dialog({pick, place}, findFile, frame);
    if (!dialog.create(frame)) return 1;
    Gallery(camera, dialog, folder).takeAll();
  }
  cad::Host::instance().setMainWindow(nullptr);
  cad::Host::instance().stop();
  DestroyWindow(frame);
  return camera.isContent() ? 0 : 1;
}
