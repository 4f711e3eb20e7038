// Dimension variables and their values, chosen in the editor, and what a conversion makes of them.

#include <algorithm>

#include "acdbads.h"
#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "embedded/editor/host.h"
#include "engine/conversion_run.h"
#include "spec/arrow_catalogue.h"
#include "tests/support/in_command.h"
#include "tests/support/test_file.h"
#include "tests/ui/main_dialog_fixture.h"

namespace kiv::testing {
namespace {

constexpr const wchar_t* kUserArrow = L"ﾕｰｻﾞ指定 (ﾌﾞﾛｯｸ名を入力)";

class DimensionEditor : public MainDialog {
 protected:
  void SetUp() override {
    MainDialog::SetUp();
    const std::string plan = test_support::testFile("../examples/floor-plan.dxf");
    ASSERT_TRUE(cad::Host::instance().openDocument(make("plan.dxf", plan)).ok());
    open();
  }
  DialogWindow& editor(Where where = Where::current()) { return *user_.shown(IDD_DIMENSION, where); }
  bool isOpen() const { return user_.isShown(IDD_DIMENSION); }
  void chooseVariable(const wchar_t* name) { user_.chooseEntry(editor(), IDC_DIMENSION_VARIABLE, name); }
  // The variable, and its value typed or its arrow and block.
  void give(const wchar_t* variable, const wchar_t* value, const wchar_t* block = L"") {
    chooseVariable(variable);
    const bool isArrow = editor().isVisible(IDC_DIMENSION_ARROW);
    if (isArrow) user_.chooseEntry(editor(), IDC_DIMENSION_ARROW, value);
    if (!isArrow) user_.type(editor(), IDC_DIMENSION_VALUE, value);
    if (*block != L'\0') user_.type(editor(), IDC_DIMENSION_BLOCK, block);
    user_.click(editor(), IDOK);
  }
  std::wstring shownRow() {
    const ListView& list = editor().list(IDC_DIMENSION_LIST);
    return list.selected() < 0 ? L"" : list.cell(list.selected(), 0);
  }
  // Which of the controls in the row of the value can be used.
  Texts usable() {
    Texts names;
    for (const auto& [id, name] : {std::pair(IDC_DIMENSION_VALUE, L"value"),
                                   {IDC_DIMENSION_ARROW, L"arrow"},
                                   {IDC_DIMENSION_BLOCK, L"block"}}) {
      if (editor().isVisible(id) && editor().isEnabled(id)) names.push_back(name);
    }
    return names;
  }

  const Texts section_{L"寸法設定"}, setting_{L"寸法", L"設定1"};
};

TEST_F(DimensionEditor, AVariableIsChosenAndItsValueTyped) {
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  EXPECT_EQ(editor().title(), L"寸法設定");
  const ListView& list = editor().list(IDC_DIMENSION_LIST);
  EXPECT_EQ(list.rowCount(), 66);
  EXPECT_EQ(list.cell(3, 0) + L"|" + list.cell(3, 1) + L"|" + list.cell(3, 2),
            L"DIMALTF|整数|変換単位の乗数をコントロールします。");
  EXPECT_EQ(shownRow(), L"");
  EXPECT_EQ(usable(), Texts{L"value"});
  for (const int button : {IDOK, IDC_PICK}) {
    editor().focus(IDC_DIMENSION_LIST);
    user_.click(editor(), button);
    EXPECT_EQ(editor().focused(), IDC_DIMENSION_VARIABLE) << button;
  }
  chooseVariable(L"DIMTXT");
  EXPECT_EQ(shownRow(), L"DIMTXT");
  user_.click(editor(), IDOK);
  EXPECT_EQ(editor().focused(), IDC_DIMENSION_VALUE);
  user_.clickRow(editor(), IDC_DIMENSION_LIST, 0);
  EXPECT_EQ(editor().text(IDC_DIMENSION_VARIABLE), L"DIMADEC");
  user_.type(editor(), IDC_DIMENSION_VALUE, L"1.5");  // of an integer, and taken as it is
  const Rect place = editor().place();
  user_.doubleClickRow(editor(), IDC_DIMENSION_LIST, 0);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(lastPickerPlace(PickerSlot::kDimension), place);
  EXPECT_EQ(rows(section_), Texts{L"<DIMADEC> を <1.5> に変更する"});
  // A dimension has no variables of the drawing alone; one that stands there can be edited all the same.
  makeConfig(L"A.CVT",
             L"[備考]\r\n\r\n\r\n[寸法]\r\n[DIMASO] = 0\r\n{\r\n[DIMTAD] = 1\r\n}\r\n---End---\r\n");
  load(L"A.CVT");
  chooseFromMenu(setting_, 40038);
  EXPECT_EQ(editor().list(IDC_DIMENSION_LIST).rowCount(), 64);
  user_.click(editor(), IDCANCEL);
  select({L"寸法", L"設定1", L"<DIMASO> が <0> のとき"});
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(shownRow() + editor().text(IDC_DIMENSION_VALUE), L"DIMASO0");
  // A condition with this in it would come back from the file inverted.
  chooseVariable(L"DIMPOST");
  user_.type(editor(), IDC_DIMENSION_VALUE, L"<>mm");
  user_.answersMessage(told(kCannotBeKept), Answer::kOk);
  user_.click(editor(), IDOK);
  user_.click(editor(), IDCANCEL);
}

TEST_F(DimensionEditor, AnArrowIsOneOfTheCatalogueOrABlock) {
  makeConfig(L"A.CVT",
             L"[備考]\r\n\r\n\r\n[矢印のﾛｰﾄﾞ]\r\n_DOT\r\nown\r\nroom-mark\r\n---End---\r\n"
             L"[寸法]\r\n[DIMBLK] = 黒丸 (_DOT)\r\n[DIMBLK1] = 矢 (OWN)\r\n[DIMBLK2] = 白丸１\r\n"
             L"[DIMLDRBLK] = ﾕｰｻﾞ指定 (黒丸)\r\n---End---\r\n");
  load(L"A.CVT");
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  EXPECT_EQ(editor().combo(IDC_DIMENSION_ARROW).entries().size(), arrowCatalogue().size());
  EXPECT_EQ(editor().combo(IDC_DIMENSION_ARROW).entries().back(), kUserArrow);
  const Texts blocks = editor().combo(IDC_DIMENSION_BLOCK).entries();
  const auto count = [&](const wchar_t* name) { return std::count(blocks.begin(), blocks.end(), name); };
  EXPECT_EQ(count(L"_DOT") + count(L"own"), 2);
  EXPECT_TRUE(std::none_of(blocks.begin(), blocks.end(), [](const auto& each) { return each[0] == L'*'; }));
  for (const wchar_t* arrow : {L"DIMLDRBLK", L"DIMBLK2"}) {
    chooseVariable(L"DIMZIN");
    EXPECT_EQ(usable(), Texts{L"value"});
    chooseVariable(arrow);
    EXPECT_EQ(usable(), Texts{L"arrow"}) << base::pathFromText(arrow);
  }
  user_.click(editor(), IDOK);
  EXPECT_EQ(editor().focused(), IDC_DIMENSION_ARROW);
  user_.chooseEntry(editor(), IDC_DIMENSION_ARROW, kUserArrow);
  EXPECT_EQ(usable(), (Texts{L"arrow", L"block"}));
  user_.click(editor(), IDOK);
  EXPECT_EQ(editor().focused(), IDC_DIMENSION_BLOCK);
  user_.type(editor(), IDC_DIMENSION_BLOCK, L"A(B");
  user_.answersMessage(told(L"「(」を含むﾌﾞﾛｯｸ名は指定できません."), Answer::kOk);
  user_.click(editor(), IDOK);
  user_.type(editor(), IDC_DIMENSION_BLOCK, L"MYARROW");
  user_.click(editor(), IDOK);
  EXPECT_EQ(rows(section_), Texts{L"<DIMBLK2> を <ﾕｰｻﾞ指定 (MYARROW)> に変更する"});

  struct Present {
    const wchar_t *condition, *arrow, *block, *edited;
  };
  for (const Present& each : {Present{L"<DIMBLK> が <黒丸 (_DOT)> のとき", L"黒丸 (_DOT)", L"",
                                      L"<DIMBLK> が <黒丸 (_DOT)> のとき"},
                              Present{L"<DIMBLK1> が <矢 (OWN)> のとき", kUserArrow, L"OWN",
                                      L"<DIMBLK1> が <ﾕｰｻﾞ指定 (OWN)> のとき"},
                              Present{L"<DIMLDRBLK> が <ﾕｰｻﾞ指定 (黒丸)> のとき", kUserArrow, L"黒丸",
                                      L"<DIMLDRBLK> が <ﾕｰｻﾞ指定 (黒丸)> のとき"},
                              Present{L"<DIMBLK2> が <白丸１> のとき", L"白丸１ (_ORIGIN)", L"",
                                      L"<DIMBLK2> が <白丸１ (_ORIGIN)> のとき"}}) {
    select({L"寸法", L"設定1", each.condition});
    click(IDC_MAIN_EDIT);
    EXPECT_EQ(editor().text(IDC_DIMENSION_ARROW), each.arrow);
    EXPECT_EQ(editor().text(IDC_DIMENSION_BLOCK), each.block);
    user_.click(editor(), IDOK);
    EXPECT_EQ(selectedText(), each.edited);
  }
}

TEST_F(DimensionEditor, APickGivesABlockToAnArrowAndAValueToTheRest) {
  chooseFromMenu({L"寸法"}, IDC_ADD_SETTING);
  chooseFromMenu(setting_, 40028);
  const auto picked = [this](int request, const wchar_t* variable, const Texts& values) {
    user_.click(editor(), IDC_PICK);
    EXPECT_EQ(pick_.request, request);
    EXPECT_EQ(pick_.variable, variable);
    pick_.values = values;
    dialog().pickCompleted();
    EXPECT_EQ(pick_.variable, L"");
  };
  chooseVariable(L"DIMASZ");
  picked(9, L"DIMASZ", {L"2.5"});
  EXPECT_EQ(editor().text(IDC_DIMENSION_VALUE), L"2.5");
  chooseVariable(L"DIMBLK");
  picked(8, L"DIMBLK", {});
  EXPECT_EQ(editor().text(IDC_DIMENSION_ARROW), L"");
  picked(8, L"DIMBLK", {L"DOOR"});
  EXPECT_EQ(editor().text(IDC_DIMENSION_ARROW), kUserArrow);
  user_.click(editor(), IDOK);
  EXPECT_EQ(rows(setting_), Texts{L"<DIMBLK> が <ﾕｰｻﾞ指定 (DOOR)> のとき"});
}

class Problems : public ProblemSink {
 public:
  void addToLog(const std::wstring& text) override { told.push_back(text); }
  void addToReport(const std::wstring&) override {}
  void addNote(const RefusalNote& note) override { told.push_back(note.kind + L"=" + note.value); }
  Texts told;
};

// Of the drawing: its text, or its number.
std::wstring systemVariable(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM) return L"(none)";
  if (value.restype == RTSHORT) return std::to_wstring(value.resval.rint);
  if (value.restype == RTREAL) return std::to_wstring(value.resval.rreal);
  const std::wstring text = value.resval.rstring;
  acutDelString(value.resval.rstring);
  return text;
}

bool hasBlock(const wchar_t* name) {
  resbuf* record = acdbTblSearch(L"BLOCK", name, 0);
  if (record != nullptr) acutRelRb(record);
  return record != nullptr;
}

// From the menus to the converted drawing, over a file and a second editing.
TEST_F(DimensionEditor, WhatWasChosenIsSavedEditedAndRun) {
  struct Assignment {
    const wchar_t *variable, *value, *block;
  };
  for (const Assignment& each :
       {Assignment{L"DIMTAD", L"4", L""}, Assignment{L"DIMTXT", L"3.5", L""},
        Assignment{L"DIMPOST", L"mm", L""}, Assignment{L"DIMBLK1", L"白丸１ (_ORIGIN)", L""},
        Assignment{L"DIMBLK2", kUserArrow, L"把手"}}) {
    chooseFromMenu(section_, IDC_ADD_ENTRY);
    give(each.variable, each.value, each.block);
  }
  chooseFromMenu({L"寸法"}, IDC_ADD_SETTING);
  chooseFromMenu(setting_, 40028);
  give(L"DIMASZ", L"2.5");
  chooseFromMenu(setting_, 40038);
  give(L"DIMCLRD", L"3");
  const Texts arrows{L"矢印のﾛｰﾄﾞ"};
  chooseFromMenu(arrows, IDC_ADD_ENTRY);
  user_.type(*user_.shown(IDD_ARROW), IDC_ARROW_FOLDER, L"_OPEN30");
  user_.click(*user_.shown(IDD_ARROW), IDOK);
  const std::wstring file = base::pathText(make("MYARROW.DWG", "AC1032"));
  chooseFromMenu(arrows, IDC_ADD_ENTRY);
  user_.type(*user_.shown(IDD_ARROW), IDC_ARROW_FOLDER, base::pathText(folder_));
  user_.answersMessage({L"ﾌｧｲﾙを指定してください.", {}}, Answer::kOk);
  user_.click(*user_.shown(IDD_ARROW), IDOK);
  user_.doubleClickRow(*user_.shown(IDD_ARROW), IDC_ARROW_LIST, 0);

  save(L"dims", L"");
  load(L"dims.cvt");
  EXPECT_EQ(rows(section_).back(), L"<DIMBLK2> を <ﾕｰｻﾞ指定 (把手)> に設定");
  EXPECT_EQ(rows(arrows), (Texts{L"<_OPEN30> をﾛｰﾄﾞ", L"<" + file + L"> をﾛｰﾄﾞ"}));
  select({section_[0], rows(section_)[1]});
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(shownRow() + editor().text(IDC_DIMENSION_VALUE), L"DIMTXT3.5");
  user_.type(editor(), IDC_DIMENSION_VALUE, L"5");
  user_.click(editor(), IDOK);
  save(L"dims2", L"");
  const std::string lines = base::encode(
                                L"DIMTAD, 4\r\nDIMTXT, 5\r\nDIMPOST, MM\r\nDIMBLK1, 白丸１ (_ORIGIN)\r\n"
                                L"DIMBLK2, ﾕｰｻﾞ指定 (把手)\r\n---End---",
                                base::kJapanese)
                                .bytes;
  EXPECT_NE(bytes(L"dims2.cvt").find(lines), std::string::npos) << bytes(L"dims2.cvt");

  Problems problems;
  test_support::inCommand([&] { runConversion({base::pathText(config(L"dims2.cvt")), {}, {}}, problems); });
  EXPECT_EQ(problems.told, Texts{L"矢印[MYARROW]のロードができませんでした"});
  for (const auto& [name, value] : {std::pair(L"DIMTAD", L"4"),
                                    {L"DIMTXT", L"5.000000"},
                                    {L"DIMPOST", L"MM"},
                                    {L"DIMBLK1", L"_Origin"},
                                    {L"DIMBLK2", L"把手"},
                                    {L"DIMBLK", L""}})
    EXPECT_EQ(systemVariable(name), value) << base::pathFromText(name);
  EXPECT_TRUE(hasBlock(L"_Origin") && hasBlock(L"_Open30"));
  EXPECT_FALSE(hasBlock(L"MYARROW"));
  chooseFromMenu(section_, IDC_ADD_ENTRY);
  const Texts blocks = editor().combo(IDC_DIMENSION_BLOCK).entries();
  EXPECT_NE(std::find(blocks.begin(), blocks.end(), L"_Open30"), blocks.end());
}

}  // namespace
}  // namespace kiv::testing
