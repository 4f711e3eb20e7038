#include "ui/text_list_dialog.h"

#include "base/paths.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv {
namespace {

using Texts = std::vector<std::wstring>;

MessageQuestion told(const std::wstring& text) {
  return {text, L"文字検索リスト", Buttons::kOk, Icon::kWarning};
}

class TextListDialog : public test_support::TempFolder {
 protected:
  // Opens the editor, uses it and closes it.
  int use(const test::User::Hands& hands) {
    CMojiListDlg dialog(folderText());
    user_.inDialog(dialog.resource(), [&](DialogWindow& editor) {
      hands(editor);
      user_.click(editor, IDOK);
    });
    return dialog.runModal(nullptr);
  }
  std::wstring folderText() const { return base::ensureTrailingSeparator(base::pathText(folder_)); }
  std::wstring path(const std::wstring& name) const { return folderText() + name; }
  FileQuestion toLoad() const { return listFile(false, L"*.LIST"); }
  FileQuestion toSave(const std::wstring& name = L"*.LIST") const { return listFile(true, name); }

  static Texts rows(DialogWindow& editor) {
    const TextGrid& grid = editor.grid(IDC_TEXT_LIST_GRID);
    Texts rows;
    for (int row = 0; row < grid.rowCount(); ++row) rows.push_back(grid.text(row));
    while (!rows.empty() && rows.back().empty()) rows.pop_back();
    return rows;
  }
  void typeRow(DialogWindow& editor, int row, const std::wstring& text) {
    user_.typeCell(editor, IDC_TEXT_LIST_GRID, row, text);
  }
  // The captions of the row's menu, greyed ones in brackets; its item `choice` is chosen.
  Texts menuOf(DialogWindow& editor, int row, int choice) {
    user_.choosesMenu(choice);
    user_.rightClickRow(editor, IDC_TEXT_LIST_GRID, row);
    return user_.menuCaptions();
  }

  test::User user_;

 private:
  FileQuestion listFile(bool saving, const std::wstring& name) const {
    return {saving, false, L"", path(name), L"LIST", {{L"文字検索リスト (*.LIST)", L"*.LIST"}}};
  }
};

TEST_F(TextListDialog, WhatIsTypedIsSavedWithoutItsBlankRows) {
  const int result = use([this](DialogWindow& editor) {
    EXPECT_EQ(editor.text(IDC_TEXT_LIST_NAME), L"");
    EXPECT_FALSE(editor.placeOf(IDC_TEXT_LIST_GRID).isEmpty());
    typeRow(editor, 0, L"室*");
    typeRow(editor, 1, L"　");
    typeRow(editor, 2, L"ROOM");
    user_.choosesFile(toSave(), path(L"ROOMS.LIST"));
    user_.click(editor, IDC_TEXT_LIST_SAVE);
    EXPECT_EQ(editor.text(IDC_TEXT_LIST_NAME), L"ROOMS.LIST");
    EXPECT_EQ(rows(editor).size(), 3U);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(content("ROOMS.LIST"),
            base::encode(L"*** MOJILIST ***\r\n室*\r\nROOM\r\n", base::kJapanese).bytes);
}

TEST_F(TextListDialog, AsksAgainUntilAFileCanBeLoaded) {
  make("bad.LIST", "x\r\n");
  makeText("good.LIST", L"*** MojiList ***\r\n一\r\n\r\n三\r\n");
  use([this](DialogWindow& editor) {
    user_.choosesFile(toLoad(), path(L"none.LIST"));
    user_.answersMessage(told(L"ファイルを開くことができませんでした"), Answer::kOk);
    user_.choosesFile(toLoad(), path(L"bad.LIST"));
    user_.answersMessage(told(L"選択されたファイルは使用できません"), Answer::kOk);
    user_.choosesFile(toLoad(), path(L"good.LIST"));
    user_.click(editor, IDC_TEXT_LIST_LOAD);
    EXPECT_EQ(rows(editor), (Texts{L"一", L"", L"三"}));
    EXPECT_EQ(editor.text(IDC_TEXT_LIST_NAME), L"good.LIST");
    // Cancelled after a failure: as before.
    user_.choosesFile(toLoad(), path(L"bad.LIST"));
    user_.answersMessage(told(L"選択されたファイルは使用できません"), Answer::kOk);
    user_.cancelsFile(toLoad());
    user_.click(editor, IDC_TEXT_LIST_LOAD);
    EXPECT_EQ(rows(editor), (Texts{L"一", L"", L"三"}));
    EXPECT_EQ(editor.text(IDC_TEXT_LIST_NAME), L"good.LIST");
    user_.cancelsFile(toSave(L"good.LIST"));
    user_.click(editor, IDC_TEXT_LIST_SAVE);
    user_.click(editor, IDC_TEXT_LIST_NEW);
    EXPECT_TRUE(rows(editor).empty());
    EXPECT_EQ(editor.text(IDC_TEXT_LIST_NAME), L"");
  });
}

TEST_F(TextListDialog, ALongListLeavesARowToTypeInto) {
  std::wstring text = L"*** MOJILIST ***\r\n";
  for (int row = 0; row < 40; ++row) text += std::to_wstring(row) + L"\r\n";
  makeText("long.LIST", text);
  use([this](DialogWindow& editor) {
    user_.choosesFile(toLoad(), path(L"long.LIST"));
    user_.click(editor, IDC_TEXT_LIST_LOAD);
    EXPECT_GE(editor.grid(IDC_TEXT_LIST_GRID).rowCount(), 41);
    typeRow(editor, 40, L"last");
    EXPECT_EQ(rows(editor).size(), 41U);
  });
}

TEST_F(TextListDialog, RowsAreMovedByTheirMenu) {
  use([this](DialogWindow& editor) {
    typeRow(editor, 0, L"a");
    typeRow(editor, 1, L"b");
    const int before = editor.grid(IDC_TEXT_LIST_GRID).rowCount();
    EXPECT_EQ(menuOf(editor, 0, IDC_ROW_DOWN), (Texts{L"挿入", L"削除", L"追加", L"-", L"(上へ)", L"下へ"}));
    EXPECT_EQ(rows(editor), (Texts{L"b", L"a"}));
    EXPECT_EQ(editor.grid(IDC_TEXT_LIST_GRID).currentRow(), 1);
    menuOf(editor, 1, IDC_ROW_INSERT);
    EXPECT_EQ(rows(editor), (Texts{L"b", L"", L"a"}));
    menuOf(editor, 0, IDC_ROW_DELETE);
    EXPECT_EQ(rows(editor), (Texts{L"", L"a"}));
    EXPECT_EQ(editor.grid(IDC_TEXT_LIST_GRID).rowCount(), before);
    menuOf(editor, 1, IDC_ROW_UP);
    EXPECT_EQ(rows(editor), (Texts{L"a"}));
    EXPECT_EQ(menuOf(editor, before - 1, IDC_ROW_APPEND),
              (Texts{L"挿入", L"削除", L"追加", L"-", L"上へ", L"(下へ)"}));
    EXPECT_EQ(editor.grid(IDC_TEXT_LIST_GRID).rowCount(), before + 1);
    EXPECT_EQ(editor.grid(IDC_TEXT_LIST_GRID).currentRow(), before);
    menuOf(editor, 0, 0);
    EXPECT_EQ(rows(editor), (Texts{L"a"}));
  });
}

TEST_F(TextListDialog, ARowThatCannotBeWrittenIsNamedAndKept) {
  use([this](DialogWindow& editor) {
    typeRow(editor, 0, L"a");
    typeRow(editor, 1, L"한글");
    user_.answersMessage(told(L"2行目に保存できない文字があります: 한글"), Answer::kOk);
    user_.click(editor, IDC_TEXT_LIST_SAVE);
    EXPECT_EQ(editor.grid(IDC_TEXT_LIST_GRID).currentRow(), 1);
    EXPECT_EQ(rows(editor), (Texts{L"a", L"한글"}));
  });
}

TEST_F(TextListDialog, AFileThatExistsIsReplacedOnlyWhenAgreed) {
  const std::string before = "*** MOJILIST ***\r\nold\r\n";
  make("A.LIST", before);
  const MessageQuestion asked{L"上書きしてよろしいですか？", L"文字検索リスト", Buttons::kYesNo,
                              Icon::kQuestion, true};
  use([&, this](DialogWindow& editor) {
    typeRow(editor, 0, L"new");
    user_.choosesFile(toSave(), path(L"A.LIST"));
    user_.answersMessage(asked, Answer::kNo);
    user_.cancelsFile(toSave(L"A.LIST"));
    user_.click(editor, IDC_TEXT_LIST_SAVE);
    EXPECT_EQ(content("A.LIST"), before);
    EXPECT_EQ(editor.text(IDC_TEXT_LIST_NAME), L"");
    user_.choosesFile(toSave(), path(L"A.LIST"));
    user_.answersMessage(asked, Answer::kYes);
    user_.click(editor, IDC_TEXT_LIST_SAVE);
  });
  EXPECT_EQ(content("A.LIST"), "*** MOJILIST ***\r\nnew\r\n");
}

TEST_F(TextListDialog, AFileThatCannotBeWrittenIsToldWithItsReason) {
  const std::wstring file = path(L"none") + base::kSeparator + L"A.LIST";
  use([&, this](DialogWindow& editor) {
    typeRow(editor, 0, L"a");
    user_.choosesFile(toSave(), file);
    user_.answersMessage(told(L"ファイルを開くことができませんでした\n\n" + file + L"\nフォルダがありません"),
                         Answer::kOk);
    user_.click(editor, IDC_TEXT_LIST_SAVE);
    EXPECT_EQ(rows(editor), Texts{L"a"});
  });
}

}  // namespace
}  // namespace kiv
