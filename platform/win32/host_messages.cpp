#include "platform/host_messages.h"

#include <windows.h>

#include <string>

// After the system's header, whose handle types the host's headers share.
#include "rxmfcapi.h"

namespace kiv {
namespace {

constexpr ULONG_PTR kTypedText = 1;

HWND frameWindow() {
  const CMDIFrameWnd* frame = acedGetAcadFrame();
  return frame != nullptr ? frame->GetSafeHwnd() : adsw_acadMainWnd();
}

}  // namespace

NativeWindow hostFrame() { return frameWindow(); }

void focusHost() {
  if (HWND frame = frameWindow()) SetFocus(frame);
}

void typeIntoHost(std::wstring_view text) {
  HWND main = adsw_acadMainWnd();
  if (main == nullptr) return;
  std::wstring terminated(text);
  COPYDATASTRUCT copied{};
  copied.dwData = kTypedText;
  copied.cbData = static_cast<DWORD>((terminated.size() + 1) * sizeof(wchar_t));
  copied.lpData = terminated.data();
  SendMessageW(main, WM_COPYDATA, reinterpret_cast<WPARAM>(main), reinterpret_cast<LPARAM>(&copied));
}

}  // namespace kiv
