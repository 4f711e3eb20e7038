#include "tests/ui/main_dialog_fixture.h"

#include "base/paths.h"
#include "embedded/editor/host.h"
#include "platform/settings.h"

namespace kiv::testing {

namespace fs = std::filesystem;

void MainDialog::SetUp() {
  make("KIVGUI.ARX", "");
  fs::create_directories(folder_ / "CFG");
  cad::Host::instance().start();
  for (const wchar_t* key : {L"KivBlock", L"MorluxIgnoreLocks", L"MorluxCreateLog", L"MorluxLogOutPath"}) {
    overrideCommonSetting(key, L"");
  }
}

void MainDialog::TearDown() {
  dialog_.reset();
  EXPECT_TRUE(user::shownDialogs().empty());
  clearSettingOverrides();
  cad::Host::instance().stop();
}

void MainDialog::open() {
  const HostFileLookup lookUp = [this](const std::wstring& name) -> std::optional<std::wstring> {
    const std::wstring path =
        name == kModuleFileName ? base::pathText(folder_ / base::pathFromText(name)) : name;
    return base::fileExists(path) ? std::optional(path) : std::nullopt;
  };
  dialog_ = std::make_unique<CCnvDlg>(CCnvDlg::Shared{pick_, place_}, lookUp, nullptr);
  ASSERT_TRUE(dialog_->create(nullptr));
}

TreeItem MainDialog::item(const Texts& path, Where where) {
  Texts whole{L"図面"};
  whole.insert(whole.end(), path.begin(), path.end());
  return user_.item(window(), IDC_MAIN_TREE, whole, where);
}

Texts MainDialog::rows(const Texts& path, Where where) {
  TreeView& tree = window().tree(IDC_MAIN_TREE);
  Texts texts;
  for (const TreeItem child : tree.children(item(path, where))) texts.push_back(tree.text(child));
  return texts;
}

std::wstring MainDialog::selectedText() {
  TreeView& tree = window().tree(IDC_MAIN_TREE);
  return tree.caret() ? tree.text(tree.caret()) : std::wstring();
}

void MainDialog::select(const Texts& path, Where where) {
  user_.clickItem(window(), IDC_MAIN_TREE, item(path, where), where);
}

void MainDialog::chooseFromMenu(const Texts& path, int command, Where where) {
  user_.choosesMenu(command, where);
  user_.rightClickItem(window(), IDC_MAIN_TREE, item(path, where), where);
}

void MainDialog::give(const Texts& path, int command, const std::wstring& value, Where where) {
  chooseFromMenu(path, command, where);
  DialogWindow* const opened = picker(where);
  ASSERT_NE(opened, nullptr);
  user_.type(*opened, IDC_VALUE_COMBO, value, where);
  user_.click(*opened, IDOK, where);
  EXPECT_FALSE(hasPicker()) << "in line " << where.line();
}

void MainDialog::save(const std::wstring& name, const std::wstring& remark, Where where) {
  user_.inDialog(
      IDD_SAVE,
      [&](DialogWindow& browser) {
        user_.type(browser, IDC_SAVE_NAME, name, where);
        user_.type(browser, IDC_SAVE_REMARK, remark, where);
        user_.click(browser, IDOK, where);
      },
      where);
  click(IDC_MAIN_SAVE, where);
}

void MainDialog::load(const std::wstring& name, Where where) {
  user_.inDialog(
      IDD_LOAD,
      [&](DialogWindow& browser) {
        const ListView& list = browser.list(IDC_LOAD_LIST);
        int row = 0;
        while (row < list.rowCount() && list.cell(row, 0) != name) ++row;
        user_.clickRow(browser, IDC_LOAD_LIST, row, where);
        user_.click(browser, IDOK, where);
      },
      where);
  click(IDC_MAIN_LOAD, where);
}

fs::path MainDialog::config(const std::wstring& name) const {
  return folder_ / "CFG" / base::pathFromText(name);
}

std::map<std::wstring, std::string> MainDialog::files() const {
  std::map<std::wstring, std::string> files;
  for (const auto& file : fs::directory_iterator(folder_ / "CFG")) {
    const std::wstring name = base::pathText(file.path().filename());
    files[name] = bytes(name);
  }
  return files;
}

void MainDialog::makeConfig(const std::wstring& name, std::wstring_view text) const {
  std::ofstream(config(name), std::ios::binary) << base::encode(text, base::kJapanese).bytes;
}

std::vector<int> enabledItems(const Menu& menu) {
  std::vector<int> ids;
  for (const MenuItem& item : menu) {
    if (item.id != 0 && item.enabled) ids.push_back(item.id);
    const std::vector<int> below = enabledItems(item.items);
    ids.insert(ids.end(), below.begin(), below.end());
  }
  return ids;
}

}  // namespace kiv::testing
