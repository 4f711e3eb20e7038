// Arrow blocks to load: drawing files of a folder, or the names of built-in arrows.

#include <set>

#include "base/fold.h"
#include "base/paths.h"
#include "embedded/editor/host.h"
#include "tests/ui/main_dialog_fixture.h"
#include "ui/arrow_loader.h"

namespace kiv::testing {
namespace {

const MessageQuestion kNoFile{L"ﾌｧｲﾙを指定してください.", {}};

class ArrowLoader : public MainDialog {
 protected:
  void SetUp() override {
    MainDialog::SetUp();
    for (const char* name :
         {"CFG/HERE.DWG", "first/a.dwg", "first/TICK.DWG", "first/plan.dxf", "second/TICK.DWG"}) {
      std::filesystem::create_directories((folder_ / name).parent_path());
      make(name, "");
    }
    cad::Host::instance().setSupportPath({folder_});
    lastArrowFolder().clear();
    open();
  }
  void TearDown() override {
    MainDialog::TearDown();
    cad::Host::instance().setSupportPath({});
  }
  DialogWindow& loader(Where where = Where::current()) { return *user_.shown(IDD_ARROW, where); }
  std::wstring at(const char* folder) { return base::pathText(folder_ / folder) + base::kSeparator; }
  std::wstring shownFolder() { return loader().text(IDC_ARROW_FOLDER); }
  // In any order: it is that of the system.
  std::multiset<std::wstring> listed() {
    const ListView& list = loader().list(IDC_ARROW_LIST);
    std::multiset<std::wstring> names;
    for (int row = 0; row < list.rowCount(); ++row)
      names.insert((row == list.selected() ? L">" : L"") + list.cell(row, 0));
    return names;
  }
  int rowOf(const wchar_t* name) {
    const ListView& list = loader().list(IDC_ARROW_LIST);
    int row = 0;
    while (row < list.rowCount() && list.cell(row, 0) != name) ++row;
    return row;
  }
  using Files = std::multiset<std::wstring>;

  const Texts section_{L"矢印のﾛｰﾄﾞ"};
};

TEST_F(ArrowLoader, AFileIsChosenInAFolder) {
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  EXPECT_TRUE(base::equalFolded(shownFolder(), at("CFG")));
  EXPECT_EQ(listed(), Files{L"HERE.DWG"});
  user_.answersMessage(kNoFile, Answer::kOk);
  user_.click(loader(), IDOK);
  EXPECT_EQ(loader().focused(), IDC_ARROW_LIST);

  const std::wstring start = shownFolder().substr(0, shownFolder().size() - 1);
  const FolderQuestion question{L"矢印ﾌﾞﾛｯｸ図形のﾌｫﾙﾀﾞを選択してください", start, false};
  user_.cancelsFolder(question);
  user_.click(loader(), IDC_ARROW_BROWSE);
  EXPECT_EQ(listed(), Files{L"HERE.DWG"});
  user_.choosesFolder(question, base::pathText(folder_ / "first"));
  user_.click(loader(), IDC_ARROW_BROWSE);
  EXPECT_EQ(shownFolder(), at("first"));
  EXPECT_EQ(listed(), (Files{L"TICK.DWG", L"a.dwg"}));

  // What is typed counts when it is confirmed; the folder of what is clicked comes back.
  user_.type(loader(), IDC_ARROW_FOLDER, L"nowhere");
  user_.clickRow(loader(), IDC_ARROW_LIST, rowOf(L"a.dwg"));
  EXPECT_EQ(shownFolder(), at("first"));
  user_.type(loader(), IDC_ARROW_FOLDER, base::pathText(folder_ / "second"));
  user_.answersMessage({L"[" + at("second") + L"a.dwg]\nﾌｧｲﾙが存在しません.", {}}, Answer::kOk);
  user_.click(loader(), IDOK);
  EXPECT_EQ(listed(), Files{L"TICK.DWG"});
  user_.doubleClickRow(loader(), IDC_ARROW_LIST, 0);
  EXPECT_EQ(rows(section_), Texts{L"<" + at("second") + L"TICK.DWG>"});

  chooseFromMenu(section_, IDC_ADD_ENTRY);
  EXPECT_EQ(shownFolder(), at("second")) << "that of the last file";
  user_.close(loader());
  select({section_[0], rows(section_)[0]});
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(listed(), Files{L">TICK.DWG"});
  user_.type(loader(), IDC_ARROW_FOLDER, base::pathText(folder_ / "first"));
  user_.click(loader(), IDOK);
  EXPECT_EQ(selectedText(), L"<" + at("first") + L"TICK.DWG>");
}

TEST_F(ArrowLoader, ABuiltInArrowIsNamed) {
  for (const wchar_t* name : {L"_open", L"."}) {
    chooseFromMenu(section_, IDC_ADD_ENTRY);
    user_.type(loader(), IDC_ARROW_FOLDER, name);
    const Rect place = loader().place();
    user_.click(loader(), IDOK);
    EXPECT_EQ(rows(section_).back(), L"<" + std::wstring(name) + L">");
    EXPECT_EQ(lastPickerPlace(PickerSlot::kArrow), place);
    select({section_[0], rows(section_).back()});
    click(IDC_MAIN_EDIT);
    EXPECT_EQ(shownFolder(), name);
    EXPECT_EQ(listed(), Files());
    user_.type(loader(), IDC_ARROW_FOLDER, L"ﾌﾞﾛｯｸ名を入力");
    user_.answersMessage(kNoFile, Answer::kOk);
    user_.click(loader(), IDOK);
    user_.click(loader(), IDCANCEL);
  }
}

}  // namespace
}  // namespace kiv::testing
