// The one file of platform/win32 that sees the framework, in which the host hands out its windows. The
// framework's header comes before the system's.

#include "afxwin.h"
#include "rxmfcapi.h"

#include "platform/host_documents.h"
#include "platform/host_messages.h"

#include <windows.h>

#include <string>

#include "platform/win32/host_messages.h"

namespace kiv {
namespace {

constexpr ULONG_PTR kTypedText = 1;

HWND frameWindow() {
  const CMDIFrameWnd* frame = acedGetAcadFrame();
  return frame != nullptr ? frame->GetSafeHwnd() : adsw_acadMainWnd();
}

}  // namespace

NativeWindow hostFrame() { return frameWindow(); }

NativeWindow hostMainWindow() { return adsw_acadMainWnd(); }

void focusHost() {
  if (HWND frame = frameWindow()) SetFocus(frame);
}

void typeIntoHost(std::wstring_view text) {
  HWND main = adsw_acadMainWnd();
  if (main == nullptr) return sendToCurrentDocument(text);
  std::wstring terminated(text);
  COPYDATASTRUCT copied{};
  copied.dwData = kTypedText;
  copied.cbData = static_cast<DWORD>((terminated.size() + 1) * sizeof(wchar_t));
  copied.lpData = terminated.data();
  SendMessageW(main, WM_COPYDATA, reinterpret_cast<WPARAM>(main), reinterpret_cast<LPARAM>(&copied));
}

namespace win32 {

void addMessageFilter(MessageFilter filter) { acedRegisterFilterWinMsg(filter); }

void removeMessageFilter(MessageFilter filter) { acedRemoveFilterWinMsg(filter); }

}  // namespace win32
}  // namespace kiv
