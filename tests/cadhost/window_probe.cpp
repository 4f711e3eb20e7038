// What a session asks of cadhost's windows from another program:
//   window_probe send KIND TEXT   types the text by a copied-data message and prints the window's answer;
//                                 "\x03" and "\n" in the text stand for those characters
//   window_probe middle           prints the middle of the drawing, pixels of the screen
//   window_probe history          prints the command history, UTF-8
//   window_probe control TITLE ID prints the middle of a control of the dialog, pixels of the screen
//   window_probe text TITLE ID    prints the control's text, UTF-8
//   window_probe active TITLE     waits until the dialog or message box is there and has the keyboard
//   window_probe gone TITLE       waits until it is not to be seen
//   window_probe menu             waits until a context menu is open
//   window_probe level TITLE N    waits until the selected row of the dialog's tree is N below the root
//   window_probe status TEXT      waits until the status bar begins with the text
//   window_probe hold FILE        prints a line when it has the file open so that others can only read it,
//   until
//                                 it is ended
// Exit status 2: there is no such window, also after half a minute of waiting.

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cwchar>
#include <iterator>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "cadhost/resource.h"

namespace {

std::wstring unescape(const wchar_t* at) {
  std::wstring text;
  for (; *at != 0; ++at) {
    if (std::wcsncmp(at, L"\\x03", 4) == 0)
      text += L'\x03', at += 3;
    else if (std::wcsncmp(at, L"\\n", 2) == 0)
      text += L'\n', ++at;
    else
      text += *at;
  }
  return text;
}

int sendText(HWND frame, const wchar_t* kind, const wchar_t* escaped) {
  std::wstring text = unescape(escaped);
  COPYDATASTRUCT data{};
  data.dwData = static_cast<ULONG_PTR>(std::wcstoul(kind, nullptr, 10));
  data.cbData = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  data.lpData = text.data();
  std::printf("%d\n", static_cast<int>(SendMessageW(frame, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data))));
  return 0;
}

int printText(HWND window) {
  if (window == nullptr) return 2;
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  std::printf("%s\n", base::toUtf8(text).c_str());
  return 0;
}

int printHistory(HWND frame) { return printText(GetDlgItem(GetDlgItem(frame, IDC_COMMANDS), IDC_HISTORY)); }

// The visible one: Wine keeps others of the class to itself.
HWND visibleWindow(const wchar_t* windowClass, const wchar_t* title) {
  HWND window = nullptr;
  do {
    window = FindWindowExW(nullptr, window, windowClass, title);
  } while (window != nullptr && !IsWindowVisible(window));
  return window;
}

HWND visibleDialog(const wchar_t* title) { return visibleWindow(L"#32770", title); }

HWND control(const wchar_t* title, const wchar_t* id) {
  const HWND dialog = visibleDialog(title);
  return dialog == nullptr ? nullptr : GetDlgItem(dialog, static_cast<int>(std::wcstol(id, nullptr, 10)));
}

bool isActive(const wchar_t* title) {
  const HWND dialog = visibleDialog(title);
  return dialog != nullptr && IsWindowEnabled(dialog) && GetForegroundWindow() == dialog;
}

template <class Condition>
int waitUntil(Condition condition) {
  for (int tries = 0; tries < 600; ++tries) {
    if (condition()) return 0;
    Sleep(50);
  }
  return 2;
}

int selectedLevel(const wchar_t* title) {
  const HWND tree = FindWindowExW(visibleDialog(title), nullptr, WC_TREEVIEWW, nullptr);
  if (tree == nullptr) return -1;
  int level = -1;
  for (HTREEITEM at = TreeView_GetSelection(tree); at != nullptr; at = TreeView_GetParent(tree, at)) ++level;
  return level;
}

bool showsStatus(HWND frame, const std::wstring& begin) {
  wchar_t text[512] = {};
  DWORD_PTR length = 0;
  const HWND bar = GetDlgItem(frame, IDC_STATUS);
  SendMessageTimeoutW(bar, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text), SMTO_NORMAL, 2000,
                      &length);
  return std::wstring_view(text).starts_with(begin);
}

int hold(const wchar_t* file) {
  const HANDLE handle = CreateFileW(file, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return 2;
  std::puts("held");
  std::fflush(stdout);
  Sleep(INFINITE);
  return 0;
}

int printMiddle(HWND window) {
  RECT place{};
  if (window == nullptr || !GetWindowRect(window, &place)) return 2;
  std::printf("%d %d\n", static_cast<int>((place.left + place.right) / 2),
              static_cast<int>((place.top + place.bottom) / 2));
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count == 3 && std::wcscmp(words[1], L"hold") == 0) return hold(words[2]);
  const HWND frame = FindWindowW(L"CadhostFrame", nullptr);
  if (count < 2 || frame == nullptr) return 2;
  const std::wstring call = words[1];
  if (call == L"send" && count == 4) return sendText(frame, words[2], words[3]);
  if (call == L"middle") return printMiddle(GetDlgItem(frame, IDC_DRAWING));
  if (call == L"control" && count == 4) return printMiddle(control(words[2], words[3]));
  if (call == L"text" && count == 4) return printText(control(words[2], words[3]));
  if (call == L"active" && count == 3) return waitUntil([&] { return isActive(words[2]); });
  if (call == L"gone" && count == 3) return waitUntil([&] { return visibleDialog(words[2]) == nullptr; });
  if (call == L"level" && count == 4)
    return waitUntil([&] { return selectedLevel(words[2]) == std::wcstol(words[3], nullptr, 10); });
  if (call == L"status" && count == 3) return waitUntil([&] { return showsStatus(frame, words[2]); });
  if (call == L"menu") return waitUntil([] { return visibleWindow(L"#32768", nullptr) != nullptr; });
  return call == L"history" ? printHistory(frame) : 2;
}
