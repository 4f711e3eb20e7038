#include "cadhost/message_pump.h"

#include <gtest/gtest.h>

#include "cadhost/window_support.h"

namespace cadhost {
namespace {

HWND makeWindow(const wchar_t* kind, DWORD style, HWND parent) {
  return CreateWindowExW(0, kind, L"", style | WS_VISIBLE, 0, 0, 300, 200, parent, nullptr, nullptr, nullptr);
}

class MessagePumpTest : public testing::Test {
 protected:
  MessagePumpTest() : pump(host, input) {
    WNDCLASSW made{};
    made.lpfnWndProc = DefWindowProcW;
    made.lpszClassName = L"PumpTest";
    RegisterClassW(&made);
    frame = makeWindow(made.lpszClassName, WS_OVERLAPPEDWINDOW, nullptr);
    line = makeWindow(L"EDIT", WS_CHILD, frame);
    pump.setWindows({frame, nullptr, nullptr});
  }
  ~MessagePumpTest() override {
    DestroyWindow(frame);
    handleAll();
  }
  // What the system has for this thread, a forgotten WM_QUIT included.
  static void handleAll() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  // As the keyboard does it.
  static void press(std::initializer_list<std::pair<WORD, bool>> keys) {
    for (const auto& [key, down] : keys) {
      INPUT event{};
      event.type = INPUT_KEYBOARD;
      event.ki.wVk = key;
      event.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
      SendInput(1, &event, sizeof event);
    }
  }

  cad::Host& host = cad::Host::instance();
  InputQueue input;
  MessagePump pump;
  HWND frame = nullptr, line = nullptr;
};

TEST_F(MessagePumpTest, KeysTypedAheadKeepTheirShiftAndTheirOrder) {
  SetForegroundWindow(frame);
  SetFocus(line);
  for (int tries = 0; tries < 100 && GetForegroundWindow() != frame; ++tries, Sleep(20)) handleAll();
  ASSERT_EQ(GetForegroundWindow(), frame) << "the display gives this program no keyboard";
  SetFocus(line);
  input.beginCommand();
  press({{VK_SHIFT, true}, {'A', true}, {'A', false}, {VK_SHIFT, false}, {'B', true}, {'B', false}});
  EXPECT_FALSE(pump.isBreakWanted());
  press({{'C', true}, {'C', false}, {VK_ESCAPE, true}, {VK_ESCAPE, false}});
  EXPECT_TRUE(pump.isBreakWanted());
  EXPECT_EQ(windowText(line), L"") << "nothing is handled before its time";
  PostQuitMessage(7);
  EXPECT_EQ(pump.run(), 7);
  EXPECT_EQ(windowText(line), L"Abc");
}

TEST_F(MessagePumpTest, TheDialogThatACommandWaitsForGoesWithTheProgram) {
  const HWND dialog = makeWindow(L"PumpTest", WS_POPUP | WS_CAPTION | WS_SYSMENU, frame);
  PostQuitMessage(3);
  EXPECT_FALSE(pump.waitForEvent());
  EXPECT_FALSE(IsWindow(dialog));
  EXPECT_TRUE(IsWindow(frame));
  EXPECT_EQ(pump.run(), 3) << "the end is not forgotten";
}

}  // namespace
}  // namespace cadhost
