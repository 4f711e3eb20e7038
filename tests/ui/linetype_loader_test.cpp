// Linetypes to load, chosen from the linetype files of the support folders.

#include "embedded/editor/host.h"
#include "tests/ui/main_dialog_fixture.h"
#include "ui/linetype_files.h"

namespace kiv::testing {
namespace {

Texts shown(std::wstring_view text) {
  Texts headers;
  for (const LinetypeHeader& header : linetypeHeaders(base::encode(text, base::kJapanese).bytes))
    headers.push_back(header.name + L"|" + header.description);
  return headers;
}

TEST(LinetypeHeaders, AreLinesWithANameAndADescription) {
  EXPECT_EQ(shown(L";;files\r\n*BORDER,Border __ __ . __\r\nA,.5,-.25\r\n*一点鎖線,中心線 _ . \r\nA,1\r\n"),
            (Texts{L"BORDER| [Border __ __ . __]", L"一点鎖線| [中心線 _ .]"}));
  EXPECT_EQ(shown(L"\n*A,one,two\n**B,x\n"), (Texts{L"A| [one  [two]", L"B| [x]"}));
  EXPECT_EQ(shown(L"\n*TWO WORDS,x\n*NONE,\n"), (Texts{L"TWO|WORDS  [x]", L"NONE| []"}));
  // The first line, the last one without its end, without a description, remarks, what every drawing has.
  EXPECT_EQ(shown(L"*FIRST,x\r\n*NO COMMA\r\n*A;,x\r\n*;B,x\r\n*CONTINUOUS,Solid line\r\n*\r\n*LAST,x"),
            Texts());
  EXPECT_EQ(shown(L"\n*ABC;,x\n"), Texts{L"ABC;| [x]"});
  ASSERT_EQ(linetypeHeaders("\xEF\xBB\xBF;UTF-8\n*\xE5\xA3\x81,x\n").size(), 1u);
  EXPECT_EQ(linetypeHeaders("\xEF\xBB\xBF;UTF-8\n*\xE5\xA3\x81,x\n")[0].name, L"壁");
  const std::wstring filler(8183, L'-');
  EXPECT_EQ(shown(filler + L"\n*A,x\n*B,x\n*C,x\n"), Texts{L"A| [x]"}) << "only so much is read";
}

class LinetypeLoader : public MainDialog {
 protected:
  void SetUp() override {
    MainDialog::SetUp();
    for (const char* name : {"first", "second"}) std::filesystem::create_directory(folder_ / name);
    first_ = base::pathText(make(std::filesystem::path("first") / "A.LIN",
                                 "\r\n*DASHED,Dashed __\r\nA,1,-1\r\n*DOT,Dots . .\r\nA,0,-1\r\n"));
    second_ = base::pathText(make(std::filesystem::path("second") / "b.lin", "\r\n*Wave,Waves ~\r\nA,1\r\n"));
    cad::Host::instance().setSupportPath({folder_ / "first", folder_ / "second"});
    open();
  }
  void TearDown() override {
    MainDialog::TearDown();
    cad::Host::instance().setSupportPath({});
  }
  DialogWindow& loader() { return *user_.shown(IDD_LINETYPE); }
  Texts listed() {
    const ListView& list = loader().list(IDC_LINETYPE_LIST);
    Texts names;
    for (int row = 0; row < list.rowCount(); ++row)
      names.push_back((row == list.selected() ? L">" : L"") + list.cell(row, 0));
    return names;
  }

  const Texts section_{L"線種のﾛｰﾄﾞ"};
  std::wstring first_, second_;
};

TEST_F(LinetypeLoader, AnEntryIsAddedFromAFile) {
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  EXPECT_EQ(loader().combo(IDC_LINETYPE_FILE).entries(), (Texts{first_, second_}));
  EXPECT_EQ(loader().text(IDC_LINETYPE_FILE), L"");
  EXPECT_EQ(listed(), Texts());
  user_.click(loader(), IDOK);
  EXPECT_EQ(loader().focused(), IDC_LINETYPE_FILE);
  user_.chooseEntry(loader(), IDC_LINETYPE_FILE, first_);
  EXPECT_EQ(listed(), (Texts{L"DASHED", L"DOT"}));
  EXPECT_EQ(loader().list(IDC_LINETYPE_LIST).cell(1, 1), L" [Dots . .]");
  user_.click(loader(), IDOK);
  EXPECT_EQ(loader().focused(), IDC_LINETYPE_LIST);
  user_.clickRow(loader(), IDC_LINETYPE_LIST, 1);
  user_.chooseEntry(loader(), IDC_LINETYPE_FILE, first_);
  EXPECT_EQ(listed(), (Texts{L"DASHED", L">DOT"})) << "the same file again";
  user_.click(loader(), IDOK);
  EXPECT_EQ(rows(section_), Texts{L"<DOT> をﾛｰﾄﾞ（" + first_ + L"）"});
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  user_.type(loader(), IDC_LINETYPE_FILE, second_);
  user_.doubleClickRow(loader(), IDC_LINETYPE_LIST, 0);
  EXPECT_EQ(rows(section_).back(), L"<Wave> をﾛｰﾄﾞ（" + second_ + L"）");
}

TEST_F(LinetypeLoader, EditingShowsTheFileAndTheLinetype) {
  makeConfig(L"A.CVT", L"[備考]\r\n\r\n\r\n[線種のﾛｰﾄﾞ]\r\nB.LIN, WAVE\r\nNONE.LIN, X\r\n---End---\r\n");
  load(L"A.CVT");
  select({section_[0], L"<WAVE> を <B.LIN> からﾛｰﾄﾞ"});
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(loader().text(IDC_LINETYPE_FILE), L"B.LIN");
  EXPECT_EQ(listed(), Texts{L">Wave"});
  user_.chooseEntry(loader(), IDC_LINETYPE_FILE, first_);
  user_.clickRow(loader(), IDC_LINETYPE_LIST, 0);
  user_.click(loader(), IDOK);
  EXPECT_EQ(selectedText(), L"<DASHED> をﾛｰﾄﾞ（" + first_ + L"）");
  select({section_[0], L"<X> を <NONE.LIN> からﾛｰﾄﾞ"});
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(loader().text(IDC_LINETYPE_FILE), L"NONE.LIN");
  EXPECT_EQ(listed(), Texts());
  user_.close(loader());
}

TEST_F(LinetypeLoader, APickedLinetypeIsFoundInTheFiles) {
  lastPickerPlace(PickerSlot::kLinetype) = {};
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  const auto picked = [this](const Texts& values) {
    user_.click(loader(), IDC_PICK);
    EXPECT_EQ(pick_.request, kLinetypeKind);
    pick_.values = values;
    dialog().pickCompleted();
    return listed();
  };
  EXPECT_EQ(picked({L"WAVE"}), Texts{L">Wave"});
  EXPECT_EQ(picked({L"dot"}), (Texts{L"DASHED", L">DOT"}));
  EXPECT_EQ(picked({L"ByLayer"}), (Texts{L"DASHED", L">DOT"}));
  EXPECT_EQ(picked({}), (Texts{L"DASHED", L">DOT"}));
  const Rect place = loader().place();
  user_.click(loader(), IDCANCEL);
  EXPECT_EQ(rows(section_), Texts());
  EXPECT_EQ(lastPickerPlace(PickerSlot::kLinetype), place);
}

}  // namespace
}  // namespace kiv::testing
