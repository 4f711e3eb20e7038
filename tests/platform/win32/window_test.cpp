// What only real windows can do wrong.
#include "platform/win32/window.h"

// Needs what windows.h declares.
#include <commctrl.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "embedded/editor/host.h"
#include "platform/win32/grid.h"
#include "tests/ui/test_dialog.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv::test {
namespace {

// What a handler throws goes no further than the window procedure: behind it are frames of the system.
TEST(RealWindow, HandlerThatFailsIsToldAndLeavesTheDialogUsable) {
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  User person;
  bool destroyed = false;
  auto dialog = std::make_unique<TestDialog>(IDD_MAIN);
  ASSERT_TRUE(dialog->create(nullptr));
  dialog->command = [](int id) -> bool { throw std::runtime_error("command " + std::to_string(id)); };
  dialog->key = [](int, Key) -> bool { throw std::runtime_error("key"); };
  person.click(dialog->window(), IDC_MAIN_DELETE);
  EXPECT_NE(printed.find(L"\nKivｴﾗｰ:処理を中断しました. command 1022"), std::wstring::npos);
  dialog->window().focus(IDC_MAIN_TREE);
  person.press(dialog->window(), Key::kDelete);
  EXPECT_NE(printed.find(L"処理を中断しました. key"), std::wstring::npos);

  const auto window = static_cast<HWND>(dialog->window().native());
  dialog->command = nullptr;
  dialog->destroyed = [&] { destroyed = true; };
  person.close(dialog->window());
  EXPECT_TRUE(destroyed);
  EXPECT_FALSE(IsWindow(window));
  cad::Host::instance().setOutput({});
}

BOOL CALLBACK countHints(HWND window, LPARAM counter) {
  if (win32::isOfClass(window, TOOLTIPS_CLASSW) && IsWindowVisible(window))
    ++*reinterpret_cast<int*>(counter);
  return TRUE;
}

int shownHints() {
  int hints = 0;
  EnumThreadWindows(GetCurrentThreadId(), countHints, reinterpret_cast<LPARAM>(&hints));
  return hints;
}

TEST(RealWindow, AltShowsTheAccessKeys) {
  User person;
  TestDialog dialog(IDD_VALUE);
  ASSERT_TRUE(dialog.create(nullptr));
  const auto window = static_cast<HWND>(dialog.window().native());
  const auto send = [window](UINT message, WPARAM key) {
    PostMessageW(window, message, key, LPARAM{1} << 29);
    user::settle();
  };
  dialog.window().enable(IDC_PICK, false);
  send(WM_SYSKEYDOWN, VK_MENU);
  EXPECT_EQ(shownHints(), 3);
  send(WM_SYSKEYDOWN, VK_SHIFT);
  EXPECT_EQ(shownHints(), 0);
  send(WM_SYSKEYDOWN, VK_MENU);
  TestDialog other(IDD_LOAD);
  ASSERT_TRUE(other.create(nullptr));
  other.window().activate();
  user::settle();
  EXPECT_EQ(shownHints(), 0) << "the dialog is no longer the active one";
}

// The host unloads the module: nothing of the system may lead into its code then.
TEST(RealWindow, ReleasingTakesTheControlClassAlongUntilTheNextDialog) {
  WNDCLASSEXW known{};
  known.cbSize = sizeof known;
  User person;
  for (int round = 0; round < 2; ++round) {
    TestDialog values(IDD_VALUE);
    ASSERT_TRUE(values.create(nullptr));
    values.window().combo(IDC_VALUE_COMBO).add(L"1:赤");
    person.chooseEntry(values.window(), IDC_VALUE_COMBO, L"1:赤");  // and no second click
    TestDialog texts(IDD_TEXT_LIST);
    ASSERT_TRUE(texts.create(nullptr));
    TextGrid& grid = texts.window().grid(IDC_TEXT_LIST_GRID);
    grid.setRowCount(1);
    person.typeCell(texts.window(), IDC_TEXT_LIST_GRID, 0, L"柱");
    EXPECT_EQ(grid.text(0), L"柱");
    EXPECT_TRUE(GetClassInfoExW(win32::moduleInstance(), win32::kGridClass, &known));
    texts.destroy();
    values.destroy();
    releaseDialogs();
    EXPECT_FALSE(GetClassInfoExW(win32::moduleInstance(), win32::kGridClass, &known));
  }
}

}  // namespace
}  // namespace kiv::test
