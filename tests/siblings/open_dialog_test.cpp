// Choosing drawings: what is listed, how it is looked at, and what is handed over.
#include "siblings/KivFile/open_dialog.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>

#include "base/paths.h"
#include "base/utf8.h"
#include "platform/settings.h"
#include "siblings/KivFile/resource.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/user.h"

namespace kiv {
namespace {

using test::User;
using Names = std::vector<std::wstring>;
constexpr SaveableFormats kAll = {true, true, true};

class OpenDialogTest : public test_support::TempFolder {
 protected:
  OpenDialogTest() {
    test_support::setEnvironment("KIV_CONFIG_FOLDER", folder_ / "settings");
    std::filesystem::create_directories(drawings_ / base::pathFromText(L"b 支店") /
                                        base::pathFromText(L"2階"));
    draw("plan2.dwg", "AC1015");
    draw("plan10.DWG", "AC1032" + std::string(5000, ' '));
    draw("Ａ棟.dxf", "0\nEOF\n");
    draw("note.dwt", "a letter");
    draw("readme.txt", "AC1015");
  }
  ~OpenDialogTest() override { closeSettingsStore(); }

  void draw(const std::string& name, std::string_view bytes) const {
    std::ofstream(drawings_ / base::pathFromText(base::utf8::decode(name).text), std::ios::binary) << bytes;
  }
  std::wstring path(const wchar_t* below = L"") const {
    return base::pathText(*below ? drawings_ / base::pathFromText(below) : drawings_);
  }

  // What a person reads below the list, once nothing is under way.
  static std::wstring settled(DialogWindow& window) {
    for (int tries = 0; tries < 500; ++tries) {
      user::settle();
      const std::wstring state = window.text(IDC_OPEN_STATE);
      if (state.find(L"...") == state.npos) return state;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return L"nothing has come for 5 seconds";
  }
  static std::wstring countOf(DialogWindow& window, const wchar_t* expected) {
    for (int tries = 0; tries < 500 && window.text(IDC_OPEN_COUNT) != expected; ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      user::settle();
    }
    return window.text(IDC_OPEN_COUNT);
  }
  static Names column(DialogWindow& window, int column) {
    ListView& list = window.list(IDC_OPEN_LIST);
    Names cells;
    for (int row = 0; row < list.rowCount(); ++row) cells.push_back(list.cell(row, column));
    return cells;
  }
  static Names names(DialogWindow& window) { return column(window, 0); }

  const std::filesystem::path drawings_ = folder_ / base::pathFromText(L"図面 a");
};

TEST_F(OpenDialogTest, ListsSortsFiltersAndHandsOver) {
  User user;
  OpenDialog dialog(L"変換するﾌｧｲﾙを選択", path(), kAll);
  user.inDialog(IDD_OPEN, [&](DialogWindow& window) {
    EXPECT_EQ(settled(window), L"");
    EXPECT_EQ(window.text(IDC_OPEN_FOLDER), path());
    EXPECT_EQ(names(window), (Names{L"note.dwt", L"plan2.dwg", L"plan10.DWG", L"Ａ棟.dxf"}));
    EXPECT_EQ(column(window, 1), (Names{L"-", L"2000", L"2018", L"R12"}));
    EXPECT_EQ(column(window, 2), (Names{L"1 KB", L"1 KB", L"5 KB", L"1 KB"}));
    EXPECT_EQ(window.text(IDC_OPEN_COUNT), L"選択 0 件 / 4 件");
    user.cannotClick(window, IDOK);

    user.clickRow(window, IDC_OPEN_LIST, 1);
    user.clickRowWith(user::Held::kShift, window, IDC_OPEN_LIST, 3);
    user.clickRowWith(user::Held::kControl, window, IDC_OPEN_LIST, 2);
    EXPECT_EQ(countOf(window, L"選択 2 件 / 4 件"), L"選択 2 件 / 4 件");
    // What is chosen stays chosen in whatever order.
    user.clickHeader(window, IDC_OPEN_LIST, 1);
    EXPECT_EQ(column(window, 1), (Names{L"-", L"R12", L"2000", L"2018"}));
    user.clickHeader(window, IDC_OPEN_LIST, 1);
    EXPECT_EQ(names(window), (Names{L"plan10.DWG", L"plan2.dwg", L"Ａ棟.dxf", L"note.dwt"}));
    EXPECT_EQ(window.list(IDC_OPEN_LIST).selectedRows(), (std::vector<int>{1, 2}));
    // Shift goes from the row that was clicked last, wherever it has come.
    user.clickRowWith(user::Held::kShift, window, IDC_OPEN_LIST, 1);
    EXPECT_EQ(window.list(IDC_OPEN_LIST).selectedRows(), (std::vector<int>{0, 1}));
    user.clickRow(window, IDC_OPEN_LIST, 1);
    user.clickRowWith(user::Held::kControl, window, IDC_OPEN_LIST, 0);

    user.type(window, IDC_OPEN_FILTER, L"PLAN*.dwg; 棟");
    EXPECT_EQ(names(window), (Names{L"plan10.DWG", L"plan2.dwg", L"Ａ棟.dxf"}));
    EXPECT_EQ(window.text(IDC_OPEN_COUNT), L"選択 2 件 / 3 件（全 4 件）");
    user.type(window, IDC_OPEN_FILTER, L"x?y");
    EXPECT_EQ(window.text(IDC_OPEN_STATE), L"絞り込みに合う図面はありません");
    user.cannotClick(window, IDOK);
    user.type(window, IDC_OPEN_FILTER, L"p");
    EXPECT_EQ(window.list(IDC_OPEN_LIST).focused(), 0);
    user.click(window, IDC_OPEN_ALL);
    user.click(window, IDC_OPEN_DXF);
    user.click(window, IDOK);
  });
  ASSERT_EQ(dialog.runModal(nullptr), IDOK);
  EXPECT_EQ(dialog.choice().folder, path());
  EXPECT_EQ(dialog.choice().names, (Names{L"plan10.DWG", L"plan2.dwg"}));
  EXPECT_EQ(dialog.choice().format, base::SaveFormat::kDxf);

  // The next time it is as it was left.
  OpenDialog again(L"", L"elsewhere", kAll);
  user.inDialog(IDD_OPEN, [&](DialogWindow& window) {
    EXPECT_EQ(settled(window), L"");
    EXPECT_EQ(names(window), (Names{L"plan10.DWG", L"plan2.dwg"}));
    EXPECT_TRUE(window.isChecked(IDC_OPEN_DXF));
    user.close(window);
  });
  EXPECT_EQ(again.runModal(nullptr), IDCANCEL);
  EXPECT_TRUE(again.choice().names.empty());
}

TEST_F(OpenDialogTest, FoldersAreTypedOpenedAndReadAgain) {
  User user;
  draw("b 支店/2階/x.dxf", "0\nEOF\n");
  OpenDialog dialog(L"", path(L"b 支店"), kAll);
  user.inDialog(IDD_OPEN, [&](DialogWindow& window) {
    EXPECT_EQ(settled(window), L"このフォルダに図面はありません");
    TreeView& tree = window.tree(IDC_OPEN_TREE);
    const TreeItem branch = tree.caret();
    EXPECT_EQ(tree.text(branch), L"b 支店");
    EXPECT_TRUE(tree.children(branch).empty());  // nobody has asked
    user.doubleClickItem(window, IDC_OPEN_TREE, branch);
    for (int tries = 0; tries < 500 && tree.children(branch).empty(); ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      user::settle();
    }
    ASSERT_EQ(tree.children(branch).size(), 1U);
    EXPECT_TRUE(tree.isExpanded(branch));
    user.clickItem(window, IDC_OPEN_TREE, tree.children(branch).front());
    EXPECT_EQ(settled(window), L"");
    EXPECT_EQ(window.text(IDC_OPEN_FOLDER), path(L"b 支店") + base::kSeparator + L"2階");
    EXPECT_EQ(names(window), Names{L"x.dxf"});

    user.type(window, IDC_OPEN_FOLDER, L" \"" + path() + L"\" ");
    user.press(window, Key::kEnter);
    EXPECT_EQ(settled(window), L"");
    EXPECT_EQ(tree.text(tree.caret()), L"図面 a");
    user.clickRow(window, IDC_OPEN_LIST, 1);
    draw("an.dwg", "AC1018");
    user.press(window, Key::kF5);
    EXPECT_EQ(settled(window), L"");
    EXPECT_EQ(names(window).front(), L"an.dwg");
    EXPECT_EQ(window.list(IDC_OPEN_LIST).selectedRows(), std::vector<int>{2});
    user.press(window, Key::kSelectAll);
    EXPECT_EQ(window.text(IDC_OPEN_COUNT), L"選択 5 件 / 5 件");

    user.type(window, IDC_OPEN_FOLDER, path(L"missing"));
    user.click(window, IDOK);
    EXPECT_EQ(settled(window), L"フォルダを読めません: フォルダがありません");
    user.type(window, IDC_OPEN_FOLDER, path());
    user.press(window, Key::kEnter);
    EXPECT_EQ(settled(window), L"");
    user.doubleClickRow(window, IDC_OPEN_LIST, 0);
  });
  EXPECT_EQ(dialog.runModal(nullptr), IDOK);
  EXPECT_EQ(dialog.choice().names, Names{L"an.dwg"});
}

TEST_F(OpenDialogTest, WhatTheHostCannotSaveIsGrey) {
  User user;
  OpenDialog dialog(L"", path(), {false, true, false});
  user.inDialog(IDD_OPEN, [&](DialogWindow& window) {
    EXPECT_TRUE(window.isChecked(IDC_OPEN_DXF));
    user.cannotClick(window, IDC_OPEN_DWG);
    user.cannotClick(window, IDC_OPEN_DWT);
    EXPECT_EQ(window.text(IDC_OPEN_FORMAT_NOTE), L"このCADはDWG、DWT形式で保存できません");
    const Rect window0 = window.place(), list0 = window.placeOf(IDC_OPEN_LIST), ok0 = window.placeOf(IDOK);
    window.setSize(window0.right - window0.left + 100, window0.bottom - window0.top + 60);
    const Rect window1 = window.place(), list1 = window.placeOf(IDC_OPEN_LIST), ok1 = window.placeOf(IDOK);
    EXPECT_EQ(list1.right - list1.left, list0.right - list0.left + 100);
    EXPECT_EQ(list1.bottom - list1.top, list0.bottom - list0.top + 60);
    EXPECT_EQ(window1.right - ok1.right, window0.right - ok0.right);
    EXPECT_EQ(ok1.right - ok1.left, ok0.right - ok0.left);
    user.press(window, Key::kEscape);
  });
  EXPECT_EQ(dialog.runModal(nullptr), IDCANCEL);
}

// Thousands stay smooth, and leaving a folder or the dialog in the middle of its reading is no wait.
TEST_F(OpenDialogTest, LeavesInTheMiddleOfALargeFolder) {
  User user;
  for (int i = 1; i <= 3000; ++i) draw("drawing" + std::to_string(i) + ".dwg", "AC1015");
  const auto start = std::chrono::steady_clock::now();
  OpenDialog dialog(L"", path(), kAll);
  user.inDialog(IDD_OPEN, [&](DialogWindow& window) {
    user::settle();
    user.type(window, IDC_OPEN_FOLDER, path(L"b 支店"));
    user.press(window, Key::kEnter);
    EXPECT_EQ(settled(window), L"このフォルダに図面はありません");
    user.type(window, IDC_OPEN_FOLDER, path());
    user.press(window, Key::kEnter);
    user.press(window, Key::kEscape);
  });
  EXPECT_EQ(dialog.runModal(nullptr), IDCANCEL);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(Background, EndsWhateverItsWorkThrows) {
  for (const bool isException : {true, false}) {
    const Background broken([=](const std::atomic<bool>&) {
      if (isException) throw std::bad_alloc();
      throw 1;
    });
    for (int tries = 0; tries < 1000 && !broken.hasEnded(); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(broken.hasEnded());
  }
}

TEST(Background, IsLeftWhenItHangs) {
  struct Gate {
    std::mutex mutex;
    std::condition_variable change;
    bool isOpen = false, hasEnded = false;
  };
  const auto gate = std::make_shared<Gate>();
  const auto start = std::chrono::steady_clock::now();
  {
    const Background hanging([gate](const std::atomic<bool>& stop) {
      std::unique_lock<std::mutex> lock(gate->mutex);
      gate->change.wait(lock, [&] { return gate->isOpen; });
      gate->hasEnded = stop;
      gate->change.notify_all();
    });
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  std::unique_lock<std::mutex> lock(gate->mutex);
  EXPECT_FALSE(gate->hasEnded);
  gate->isOpen = true;
  gate->change.notify_all();
  EXPECT_TRUE(gate->change.wait_for(lock, std::chrono::seconds(10), [&] { return gate->hasEnded; }));
}

}  // namespace
}  // namespace kiv
