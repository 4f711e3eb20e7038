// Adding and editing items and entries through the pickers.

#include "spec/cvt_writer.h"
#include "tests/ui/main_dialog_fixture.h"

namespace kiv::testing {
namespace {

TEST_F(MainDialog, WhatIsBuiltIsSavedAsTheModelWritesIt) {
  open();
  chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
  give({L"文字", L"設定1"}, 40021, L"A-TEXT");
  give({L"文字", L"設定1"}, 40031, L"TEXT");
  give({L"文字", L"設定1"}, 40023, L"7:白");
  give({L"文字", L"設定1"}, 40035, L"2.5");
  EXPECT_EQ(rows({L"文字", L"設定1"}),
            (Texts{L"<画層> が <A-TEXT> のとき", L"<色> が <7:白> のとき", L"<画層> を <TEXT> に変更する",
                   L"<文字高さ> を <2.5> に変更する"}));
  EXPECT_EQ(selectedText(), L"設定1");
  select({L"文字", L"設定1", L"<色> が <7:白> のとき"});
  click(IDC_MAIN_INVERT);
  EXPECT_EQ(selectedText(), L"<色> が <7:白> 以外のとき");
  chooseFromMenu({L"画層の設定"}, IDC_ADD_SETTING);
  give({L"画層の設定", L"設定1"}, 40021, L"0");
  give({L"画層の設定", L"設定1"}, 40073, L"off");
  save(L"built", L"備考の文");
  EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), L"built.cvt");
  EXPECT_EQ(window().text(IDC_MAIN_REMARK), L"備考の文");

  Specification wanted;
  wanted.remark = L"備考の文";
  static_cast<void>(wanted.addSetting(1));
  static_cast<void>(wanted.addCondition(1, 0, {kLayerKind, false, {}, L"A-TEXT"}));
  static_cast<void>(wanted.addCondition(1, 0, {kColorKind, true, {}, L"7"}));
  static_cast<void>(wanted.addResult(1, 0, {kLayerKind, false, {}, L"TEXT"}));
  static_cast<void>(wanted.addResult(1, 0, {kTextHeightKind, false, {}, L"2.5"}));
  static_cast<void>(wanted.addSetting(6));
  static_cast<void>(wanted.addCondition(6, 0, {kLayerKind, false, {}, L"0"}));
  static_cast<void>(wanted.addResult(6, 0, {kVisibilityKind, false, {}, L"OFF"}));
  ASSERT_TRUE(writeSpecification(wanted, folder_ / "wanted.cvt").ok());
  EXPECT_EQ(bytes(L"built.cvt"), content("wanted.cvt"));

  // After loading, the nodes have a file's wording.
  load(L"built.cvt");
  EXPECT_EQ(rows({L"文字", L"設定1"})[1], L"色 が <7:白> 以外のとき");
}

struct Kind {
  int condition;  // the command
  int result;     // 0: never a result
  const wchar_t* typed;
  const wchar_t* line;
};

TEST_F(MainDialog, EveryKindOfItemIsSavedUnderItsKey) {
  const std::vector<Kind> ofTexts = {{40021, 40031, L"A-*", L"[画層] = A-*"},
                                     {40022, 40032, L"DASHED", L"[線種] = DASHED"},
                                     {40023, 40033, L"red", L"[色] = BYBLOCK"},
                                     {40024, 40034, L"NOTES", L"[字体] = NOTES"},
                                     {40025, 40035, L"2.5", L"[文字高さ] = 2.5"},
                                     {40026, 40036, L"90", L"[文字角度] = 90"},
                                     {40027, 40037, L"0.8", L"[文字幅高比] = 0.8"},
                                     {40029, 0, L"ROOMS.LIST", L"[文字一致のリスト] = ROOMS.LIST"},
                                     {40050, 40070, L"0.25", L"[線幅値] = 0.25 mm"},
                                     {40051, 40071, L"250", L"[透過性] = 25"},
                                     {40052, 40072, L"+2", L"[線種尺度] = +2"}};
  const std::vector<Kind> ofLayers = {{40021, 40031, L"0", L"[画層] = 0"},
                                      {40053, 40073, L"on", L"[表示] = ON"},
                                      {40054, 40074, L"off", L"[ロック] = OFF"},
                                      {40055, 40075, L"On", L"[フリーズ] = ON"},
                                      {40056, 40076, L"OFF", L"[印刷] = OFF"}};
  open();
  const auto build = [this](const std::wstring& section, const std::vector<Kind>& kinds) {
    std::wstring conditions, results;
    chooseFromMenu({section}, IDC_ADD_SETTING);
    for (const Kind& kind : kinds) {
      give({section, L"設定1"}, kind.condition, kind.typed);
      conditions += kind.line + std::wstring(L"\r\n");
      if (kind.result == 0) continue;
      give({section, L"設定1"}, kind.result, kind.typed);
      results += std::wstring(24, L' ') + kind.line + L"\r\n";
    }
    const std::wstring indent(16, L' ');
    return base::encode(conditions + indent + L"{\r\n" + results + indent + L"}\r\n---End---\r\n",
                        base::kJapanese)
        .bytes;
  };
  const std::string texts = build(L"文字", ofTexts);
  const std::string layers = build(L"画層の設定", ofLayers);
  save(L"kinds", L"");
  const std::string saved = bytes(L"kinds.cvt");
  EXPECT_NE(saved.find("]\r\n" + texts), std::string::npos) << saved;
  EXPECT_NE(saved.find("]\r\n" + layers), std::string::npos) << saved;
}

TEST_F(MainDialog, EditingKeepsPlaceRoleAndSense) {
  makeConfig(
      L"A.CVT",
      L"[備考]\r\n\r\n\r\n[文字]\r\n[画層] <> WALL\r\n[色] = 1\r\n{\r\n[色] = 2\r\n}\r\n---End---\r\n");
  open();
  load(L"A.CVT");
  give({L"文字", L"設定1", L"画層 が <WALL> 以外のとき"}, IDC_EDIT_CONDITION, L"DOOR");
  EXPECT_EQ(rows({L"文字", L"設定1"}),
            (Texts{L"<画層> が <DOOR> 以外のとき", L"色 が <1:赤> のとき", L"色 を <2:黄> に変更"}));
  // The button edits what is selected; the picker shows the present value.
  select({L"文字", L"設定1", L"色 を <2:黄> に変更"});
  click(IDC_MAIN_EDIT);
  ASSERT_NE(picker(), nullptr);
  EXPECT_EQ(picker()->title(), L"色の指定(変換後の設定)");
  EXPECT_EQ(picker()->text(IDC_VALUE_COMBO), L"2:黄");
  user_.chooseEntry(*picker(), IDC_VALUE_COMBO, L"256:BYLAYER");
  user_.click(*picker(), IDOK);
  EXPECT_EQ(selectedText(), L"<色> を <256:BYLAYER> に変更する");
  // An edited text in a picker's wording gives its value, not its key.
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(picker()->text(IDC_VALUE_COMBO), L"256:BYLAYER");
  user_.click(*picker(), IDCANCEL);
  EXPECT_EQ(selectedText(), L"<色> を <256:BYLAYER> に変更する");
}

TEST_F(MainDialog, ThePickerTakesTheDialogsInput) {
  open();
  chooseFromMenu({L"画層の設定"}, IDC_ADD_SETTING);
  chooseFromMenu({L"画層の設定", L"設定1"}, 40023);
  ASSERT_NE(picker(), nullptr);
  // Layers have colours of their own, so neither by layer nor by block.
  EXPECT_EQ(picker()->combo(IDC_VALUE_COMBO).entries().front(), L"1:赤");
  user_.cannotClick(window(), IDCANCEL);
  user_.cannotClick(window(), IDC_MAIN_DELETE);
  user_.close(*picker());
  EXPECT_FALSE(hasPicker());
  EXPECT_EQ(rows({L"画層の設定", L"設定1"}), Texts());
  user_.answersMessage(asked(L"[設定1] を削除します."), Answer::kYes);
  click(IDC_MAIN_DELETE);
  chooseFromMenu({L"画層の設定"}, IDC_ADD_SETTING);
}

TEST_F(MainDialog, NamesOfTheListSectionsAreOffered) {
  makeConfig(L"A.CVT", L"[備考]\r\n\r\n\r\n[線種のﾛｰﾄﾞ]\r\nSAMPLE.LIN, OWN\r\n---End---\r\n");
  open();
  load(L"A.CVT");
  chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
  chooseFromMenu({L"文字", L"設定1"}, 40032);
  ASSERT_NE(picker(), nullptr);
  EXPECT_EQ(picker()->combo(IDC_VALUE_COMBO).entries().back(), L"OWN");
  user_.click(*picker(), IDCANCEL);
}

TEST_F(MainDialog, ADialogThatGoesTakesItsPickerAlong) {
  for (const bool picking : {false, true}) {
    open();
    chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
    chooseFromMenu({L"文字", L"設定1"}, 40031);
    ASSERT_NE(picker(), nullptr);
    if (picking) {
      user_.click(*picker(), IDC_PICK);
    }
    dialog().cancel();
    EXPECT_FALSE(dialog().hasWindow());
    EXPECT_TRUE(user::shownDialogs().empty());
    EXPECT_EQ(pick_.request, 0);
    dialog().pickCompleted();  // of a pick that was under way
    EXPECT_EQ(dialog().closing(), Closing::kCancelled);
  }
  open();
  chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
  chooseFromMenu({L"文字", L"設定1"}, 40031);
  dialog_.reset();
  EXPECT_TRUE(user::shownDialogs().empty());
}

TEST_F(MainDialog, AddingNeedsASelection) {
  open();
  user_.answersMessage(told(L"ﾂﾘｰの中から追加したい項目を選択してください"), Answer::kOk);
  click(IDC_MAIN_EDIT);
}

}  // namespace
}  // namespace kiv::testing
