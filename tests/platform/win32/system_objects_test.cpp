// What the dialogs take of the system they give back.
#include <windows.h>

#include <algorithm>
#include <vector>

#include "tests/ui/main_dialog_fixture.h"

namespace kiv::testing {
namespace {

// How many drawing objects (bitmaps, of image lists and icons too, brushes, fonts, pens, contexts) the
// process can still make. Counted by making them, as not every system tells how many there are.
std::size_t drawingObjectsLeft() {
  std::vector<HGDIOBJ> made;
  while (const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3))) made.push_back(brush);
  for (const HGDIOBJ each : made) DeleteObject(each);
  return made.size();
}

BOOL CALLBACK count(HWND, LPARAM counter) {
  ++*reinterpret_cast<int*>(counter);
  return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM counter) {
  EnumChildWindows(window, count, counter);
  return count(window, counter);
}

int windowsOfThread() {
  int windows = 0;
  EnumThreadWindows(GetCurrentThreadId(), countWithChildren, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// Windows, menus, icons and the like; always 0 where the system does not count them.
DWORD userObjects() { return GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS); }

TEST_F(MainDialog, OpeningAndClosingLeavesNothingOfTheSystemBehind) {
  const auto useAll = [this] {
    open();
    chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
    give({L"文字", L"設定1"}, 40033, L"7:白");
    user_.inDialog(IDD_TEXT_LIST, [this](DialogWindow& list) {
      user_.typeCell(list, IDC_TEXT_LIST_GRID, 0, L"柱");
      user_.click(list, IDOK);
    });
    click(IDC_MAIN_TEXT_LIST);
    dialog_.reset();
    user::settle();
  };
  useAll();  // what is made once and kept
  const std::size_t drawingLeft = drawingObjectsLeft();
  const int windows = windowsOfThread();
  const DWORD user = userObjects();
  ASSERT_GT(drawingLeft, 1000U);
  for (int time = 0; time < 10; ++time) useAll();
  EXPECT_GE(drawingObjectsLeft(), drawingLeft);
  EXPECT_LE(windowsOfThread(), windows);
  EXPECT_LE(userObjects(), user);
}

}  // namespace
}  // namespace kiv::testing
