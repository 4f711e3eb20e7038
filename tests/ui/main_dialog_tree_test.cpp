// Editing the tree by its buttons and context menus.

#include "spec/cvt_writer.h"
#include "spec/item_kinds.h"
#include "tests/spec/sample_specification.h"
#include "tests/ui/main_dialog_fixture.h"
#include "ui/context_menus.h"
#include "ui/item_inputs.h"
#include "ui/tree_nodes.h"

namespace kiv::testing {
namespace {

// The tree and the model say the same, row by row.
void expectSameTree(const TreeView& view, TreeItem row, const Specification& specification,
                    const Node& node) {
  EXPECT_EQ(view.text(row), nodeText(specification, node));
  EXPECT_EQ(view.data(row), tagOf(specification, node).value());
  const std::vector<TreeItem> rows = view.children(row);
  const std::vector<Node> nodes = specification.children(node);
  ASSERT_EQ(rows.size(), nodes.size()) << base::pathFromText(view.text(row));
  for (size_t index = 0; index < rows.size(); ++index) {
    expectSameTree(view, rows[index], specification, nodes[index]);
  }
}

class MainDialogTree : public MainDialog {
 protected:
  void SetUp() override {
    MainDialog::SetUp();
    const std::wstring arrows = L"[矢印のﾛｰﾄﾞ]\r\n";
    std::wstring text = kSampleText;
    makeConfig(L"SAMPLE.CVT", text.insert(text.find(arrows) + arrows.size(), L"_DOT\r\n"));
    makeConfig(L"KivCvtInit.dat", L"SAMPLE.CVT\r\n");
    open();
  }
  void TearDown() override {
    if (dialog_ && dialog_->hasWindow()) {
      const TreeView& view = window().tree(IDC_MAIN_TREE);
      expectSameTree(view, view.children(0).front(), dialog().specification(), Node{});
    }
    MainDialog::TearDown();
  }
  bool isOpen(const Texts& path) { return window().tree(IDC_MAIN_TREE).isExpanded(item(path)); }
  // Of the items in the node's menu that are not greyed.
  std::vector<int> offered(const Texts& path) {
    chooseFromMenu(path, 0);
    return enabledItems(user_.lastMenu());
  }
};

TEST_F(MainDialogTree, ShowsTheLoadedSpecification) {
  EXPECT_EQ(rows({}), (Texts{L"文字", L"寸法", L"ﾊｯﾁﾝｸﾞ", L"その他の図形", L"寸法設定", L"画層の設定",
                             L"画層の作成", L"線種のﾛｰﾄﾞ", L"字体のﾛｰﾄﾞ", L"矢印のﾛｰﾄﾞ"}));
  EXPECT_EQ(rows({L"文字", L"設定1"}), (Texts{L"画層 が <A-TEXT> のとき", L"色 が <7:白> 以外のとき",
                                              L"画層 を <TEXT> に変更", L"色 を <3:緑> に変更"}));
  EXPECT_TRUE(isOpen({}));
  EXPECT_FALSE(isOpen({L"文字"}));
  EXPECT_TRUE(isOpen({L"文字", L"設定1"}));
  EXPECT_TRUE(isOpen({L"線種のﾛｰﾄﾞ"}));
}

TEST_F(MainDialogTree, EnterAndADoubleClickEdit) {
  const Texts condition{L"文字", L"設定1", L"画層 が <A-TEXT> のとき"};
  const auto showsPicker = [this] {
    ASSERT_TRUE(hasPicker());
    EXPECT_EQ(picker()->text(IDC_VALUE_COMBO), L"A-TEXT");
    user_.click(*picker(), IDCANCEL);
  };
  select(condition);
  user_.press(window(), Key::kEnter);
  showsPicker();
  user_.press(window(), Key::kEnter);  // the tree has the keyboard again
  showsPicker();
  user_.doubleClickItem(window(), IDC_MAIN_TREE, item(condition));
  showsPicker();
  // There is nothing to edit in a setting or a section.
  for (const Texts& path : {Texts{L"文字", L"設定1"}, Texts{L"文字"}, Texts{}}) {
    select(path);
    const bool wasOpen = isOpen(path);
    user_.press(window(), Key::kEnter);
    EXPECT_NE(isOpen(path), wasOpen);
    user_.doubleClickItem(window(), IDC_MAIN_TREE, item(path));
    EXPECT_EQ(isOpen(path), wasOpen);
  }
  EXPECT_TRUE(window().isShown()) << "no conversion was run";
  window().focus(IDC_MAIN_DEFAULT);
  user_.press(window(), Key::kEnter);
  EXPECT_EQ(dialog().closing(), Closing::kConvert);
}

TEST_F(MainDialogTree, InsertAddsWhereTheSelectionIs) {
  const auto inserts = [this](const Texts& path, int chosen) {
    user_.choosesMenu(chosen);
    select(path);
    user_.press(window(), Key::kInsert);
    return enabledItems(user_.lastMenu());
  };
  select({L"文字"});
  user_.press(window(), Key::kInsert);
  EXPECT_EQ(selectedText(), L"設定3");
  EXPECT_EQ(inserts({L"文字", L"設定1"}, 0), offered({L"文字", L"設定1"}));
  EXPECT_EQ(inserts({L"画層の設定", L"設定1", L"画層 が <0> のとき"}, 0),
            (std::vector<int>{40021, 40022, 40023, 40050, 40051, 40053, 40054, 40055, 40056}));
  EXPECT_EQ(inserts({L"文字", L"設定1", L"色 を <3:緑> に変更"}, 40035).front(), 40031);
  ASSERT_TRUE(hasPicker());
  user_.type(*picker(), IDC_VALUE_COMBO, L"2.5");
  user_.click(*picker(), IDOK);
  EXPECT_EQ(rows({L"文字", L"設定1"}).back(), L"<文字高さ> を <2.5> に変更する");
  user_.answersMessage(told(L"ﾂﾘｰの中から追加したい項目を選択してください"), Answer::kOk);
  select({});
  user_.press(window(), Key::kInsert);
}

TEST_F(MainDialogTree, DeletesWhatIsSelectedAfterYes) {
  const auto deletes = [this](const Texts& path, const wchar_t* question) {
    const std::wstring before = cvtText(dialog().specification());
    user_.answersMessage(asked(question), Answer::kNo);
    select(path);
    click(IDC_MAIN_DELETE);
    EXPECT_EQ(cvtText(dialog().specification()), before);
    user_.answersMessage(asked(question), Answer::kYes);
    select(path);
    user_.press(window(), Key::kDelete);
    user_.sawEverything();
  };
  for (const wchar_t* section : {L"寸法", L"字体のﾛｰﾄﾞ"}) {
    user_.answersMessage(told(L"削除するﾃﾞｰﾀがありません"), Answer::kOk);
    select({section});
    click(IDC_MAIN_DELETE);
  }
  select({});
  click(IDC_MAIN_DELETE);
  deletes({L"文字", L"設定1", L"画層 が <A-TEXT> のとき"}, L"[画層 が <A-TEXT> のとき] を削除します.");
  deletes({L"文字", L"設定1", L"画層 を <TEXT> に変更"}, L"[画層 を <TEXT> に変更] を削除します.");
  EXPECT_EQ(rows({L"文字", L"設定1"}), (Texts{L"色 が <7:白> 以外のとき", L"色 を <3:緑> に変更"}));
  deletes({L"線種のﾛｰﾄﾞ", L"<DASHED> を <SAMPLE.LIN> からﾛｰﾄﾞ"},
          L"[<DASHED> を <SAMPLE.LIN> からﾛｰﾄﾞ] を削除します.");
  EXPECT_EQ(rows({L"線種のﾛｰﾄﾞ"}), Texts());
  deletes({L"矢印のﾛｰﾄﾞ"}, L"[矢印のﾛｰﾄﾞ] の変換結果をすべてｸﾘｱします.");
  EXPECT_EQ(rows({L"矢印のﾛｰﾄﾞ"}), Texts());
  deletes({L"文字", L"設定1"}, L"[設定1] に含まれる項目をすべて削除します.");
  EXPECT_EQ(rows({L"文字"}), (Texts{L"設定2"}));
  deletes({L"文字"}, L"[文字] の設定をすべてｸﾘｱします.");
  EXPECT_EQ(rows({L"文字"}), Texts());
}

TEST_F(MainDialogTree, ConditionsAndResultsAreClearedApart) {
  user_.choosesMenu(IDC_CLEAR_CONDITIONS);
  user_.answersMessage(asked(L"[設定1] の条件をすべてｸﾘｱします."), Answer::kYes);
  user_.rightClickItem(window(), IDC_MAIN_TREE, item({L"文字", L"設定1"}));
  EXPECT_EQ(rows({L"文字", L"設定1"}), (Texts{L"画層 を <TEXT> に変更", L"色 を <3:緑> に変更"}));
  EXPECT_EQ(selectedText(), L"設定1");
  user_.choosesMenu(IDC_CLEAR_RESULTS);
  user_.answersMessage(asked(L"[設定1] の変換結果をすべてｸﾘｱします."), Answer::kYes);
  user_.rightClickItem(window(), IDC_MAIN_TREE, item({L"文字", L"設定1"}));
  EXPECT_EQ(rows({L"文字", L"設定1"}), Texts());
  // Its name says how many there were when it was made.
  select({L"文字"});
  click(IDC_MAIN_EDIT);
  EXPECT_EQ(rows({L"文字"}), (Texts{L"設定1", L"設定2", L"設定3"}));
  EXPECT_EQ(selectedText(), L"設定3");
}

TEST_F(MainDialogTree, MovesKeepConditionsBeforeResults) {
  const auto isRefused = [this](int button) {
    user_.answersMessage(told(L"現在選択中の項目は移動できません"), Answer::kOk);
    click(button);
    user_.sawEverything();
  };
  select({L"文字", L"設定1", L"画層 が <A-TEXT> のとき"});
  click(IDC_MAIN_UP);
  click(IDC_MAIN_DOWN);
  EXPECT_EQ(selectedText(), L"画層 が <A-TEXT> のとき");
  EXPECT_EQ(rows({L"文字", L"設定1"})[0], L"色 が <7:白> 以外のとき");
  isRefused(IDC_MAIN_DOWN);
  EXPECT_EQ(rows({L"文字", L"設定1"})[1], L"画層 が <A-TEXT> のとき");
  select({L"文字", L"設定1", L"画層 を <TEXT> に変更"});
  isRefused(IDC_MAIN_UP);
  click(IDC_MAIN_DOWN);
  click(IDC_MAIN_DOWN);
  EXPECT_EQ(rows({L"文字", L"設定1"})[3], L"画層 を <TEXT> に変更");
  for (const Texts& path : {Texts{L"線種のﾛｰﾄﾞ", L"<DASHED> を <SAMPLE.LIN> からﾛｰﾄﾞ"}, Texts{L"寸法"}}) {
    select(path);
    isRefused(IDC_MAIN_UP);
  }
}

TEST_F(MainDialogTree, ASettingMovesWithItsItems) {
  const Texts items = rows({L"文字", L"設定1"});
  select({L"文字", L"設定1"});
  click(IDC_MAIN_DOWN);
  EXPECT_EQ(rows({L"文字"}), (Texts{L"設定2", L"設定1"}));
  EXPECT_EQ(rows({L"文字", L"設定1"}), items);
  EXPECT_EQ(selectedText(), L"設定1");
  EXPECT_TRUE(isOpen({L"文字", L"設定1"}));
  click(IDC_MAIN_UP);
  EXPECT_EQ(rows({L"文字"}), (Texts{L"設定1", L"設定2"}));
}

TEST_F(MainDialogTree, OnlyConditionsAreInverted) {
  select({L"文字", L"設定1", L"画層 が <A-TEXT> のとき"});
  click(IDC_MAIN_INVERT);
  EXPECT_EQ(selectedText(), L"画層 が <A-TEXT> 以外のとき");
  chooseFromMenu({L"文字", L"設定1", L"画層 が <A-TEXT> 以外のとき"}, IDC_INVERT_CONDITION);
  EXPECT_EQ(selectedText(), L"画層 が <A-TEXT> のとき");
  for (const Texts& path :
       {Texts{L"文字"}, Texts{L"文字", L"設定1"}, Texts{L"文字", L"設定1", L"色 を <3:緑> に変更"}}) {
    user_.answersMessage(told(L"ﾂﾘｰの中から反転する条件を選択してください"), Answer::kOk);
    select(path);
    click(IDC_MAIN_INVERT);
  }
}

// What the menu of a section's setting offers for its kinds of items, each of which has its caption there.
std::vector<int> commandsOfKinds(int sectionNumber, bool asResult) {
  std::vector<int> commands;
  for (const ItemKind& kind : itemKinds()) {
    if (!hasEffect(kind.kind, sectionNumber, asResult)) continue;
    const ItemInput* input = itemInput(kind.kind);
    commands.push_back(!input ? 0 : asResult ? input->resultCommand : input->conditionCommand);
  }
  return commands;
}

std::vector<int> offersOf(int sectionNumber, const std::vector<int>& behindConditions) {
  std::vector<int> all = commandsOfKinds(sectionNumber, false);
  const std::vector<int> results = commandsOfKinds(sectionNumber, true);
  all.insert(all.end(), behindConditions.begin(), behindConditions.end());
  all.insert(all.end(), results.begin(), results.end());
  all.insert(all.end(), {IDC_CLEAR_RESULTS, IDC_DELETE_SETTING});
  return all;
}

TEST_F(MainDialogTree, MenusGreyWhatCannotApply) {
  EXPECT_EQ(offered({L"文字"}), (std::vector<int>{IDC_ADD_SETTING, IDC_CLEAR_SETTINGS}));
  EXPECT_EQ(offered({L"寸法"}), (std::vector<int>{IDC_ADD_SETTING}));
  EXPECT_EQ(offered({L"文字", L"設定2"}), offersOf(kTextSection, {}));
  EXPECT_EQ(offered({L"画層の設定", L"設定1"}), offersOf(kLayerSettingSection, {IDC_CLEAR_CONDITIONS}));
  EXPECT_EQ(offered({L"文字", L"設定1", L"画層 が <A-TEXT> のとき"}),
            (std::vector<int>{IDC_EDIT_CONDITION, IDC_INVERT_CONDITION, IDC_DELETE_CONDITION}));
  EXPECT_EQ(offered({L"文字", L"設定1", L"画層 を <TEXT> に変更"}),
            (std::vector<int>{IDC_EDIT_RESULT, IDC_DELETE_RESULT}));
  EXPECT_EQ(offered({L"線種のﾛｰﾄﾞ"}), (std::vector<int>{IDC_ADD_ENTRY, IDC_CLEAR_ENTRIES}));
  EXPECT_EQ(offered({L"線種のﾛｰﾄﾞ", L"<DASHED> を <SAMPLE.LIN> からﾛｰﾄﾞ"}),
            (std::vector<int>{IDC_EDIT_RESULT, IDC_DELETE_RESULT}));
  EXPECT_EQ(offered({L"寸法設定"}), std::vector<int>{IDC_ADD_ENTRY});
  user_.rightClickItem(window(), IDC_MAIN_TREE, item({}));  // the root has no menu
}

// The person expects no menu here: one that came would fail the test.
TEST_F(MainDialogTree, BesideTheRowsThereIsNoMenu) {
  makeConfig(L"EMPTY.CVT", L"[備考]\r\n\r\n[EOF]\r\n");
  load(L"EMPTY.CVT");
  select({L"文字"});
  user_.rightClickEmpty(window(), IDC_MAIN_TREE);
  EXPECT_EQ(selectedText(), L"文字");
  EXPECT_EQ(offered({L"文字"}), std::vector<int>{IDC_ADD_SETTING});
}

TEST_F(MainDialogTree, VariablesAreCopiedIntoTheDimensionSettings) {
  chooseFromMenu({L"文字", L"設定1"}, 0);
  EXPECT_EQ(user_.menuCaptions().back(), L"設定を削除");

  makeConfig(L"VARS.CVT",
             L"[備考]\r\n\r\n\r\n[寸法]\r\n[DIMTXT] = 3\r\n{\r\n[DIMASZ] = 2.5\r\n[色] = 1\r\n[DIMGAP] = "
             L"1\r\n[DIMPOST] = a,b\r\n}"
             L"\r\n---End---\r\n[寸法設定]\r\nDIMTAD, 1\r\nDIMASZ, 9\r\n---End---\r\n[EOF]\r\n");
  load(L"VARS.CVT");
  user_.choosesMenu(IDC_COPY_TO_DIMENSION_SETTINGS);
  user_.answersMessage(told(kCannotBeKept), Answer::kOk);
  user_.rightClickItem(window(), IDC_MAIN_TREE, item({L"寸法", L"設定1"}));
  EXPECT_EQ(user_.menuCaptions().back(), L"寸法設定にｺﾋﾟｰ");
  EXPECT_EQ(rows({L"寸法設定"}), (Texts{L"<DIMTAD> を <1> に設定", L"<DIMASZ> を <2.5> に変更する",
                                        L"<DIMGAP> を <1> に変更する"}));
}

}  // namespace
}  // namespace kiv::testing
