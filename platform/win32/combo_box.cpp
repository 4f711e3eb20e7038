#include "platform/win32/combo_box.h"

#include <windowsx.h>

#include <cstdlib>
#include <utility>

namespace kiv::win32 {
namespace {

COMBOBOXINFO partsOf(HWND comboBox) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (!GetComboBoxInfo(comboBox, &parts)) parts = {};
  return parts;
}

// The click that may become the first of a double click; there is one mouse.
struct FirstClick {
  HWND comboBox = nullptr;
  POINT place{};
  DWORD time = 0;
};
FirstClick firstClick;

bool completes(const FirstClick& first, const MSG& message) {
  POINT place{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  ClientToScreen(message.hwnd, &place);
  return IsWindow(first.comboBox) && message.time - first.time <= GetDoubleClickTime() &&
         std::abs(place.x - first.place.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
         std::abs(place.y - first.place.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
}

}  // namespace

HWND SystemComboBox::fieldOf(HWND comboBox) { return partsOf(comboBox).hwndItem; }
HWND SystemComboBox::listOf(HWND comboBox) { return partsOf(comboBox).hwndList; }

void SystemComboBox::clear() {
  const auto silence = quiet();
  const std::wstring field = windowText(handle());
  send(CB_RESETCONTENT);
  SetWindowTextW(handle(), field.c_str());
}

void SystemComboBox::add(std::wstring_view entry) { send(CB_ADDSTRING, 0, terminated(entry).c_str()); }

std::vector<std::wstring> SystemComboBox::entries() const {
  std::vector<std::wstring> all;
  const auto count = static_cast<WPARAM>(send(CB_GETCOUNT));
  for (WPARAM entry = 0; entry < count; ++entry) {
    std::wstring text(static_cast<std::size_t>(send(CB_GETLBTEXTLEN, entry)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(send(CB_GETLBTEXT, entry, text.data())));
    all.push_back(std::move(text));
  }
  return all;
}

int SystemComboBox::selected() const { return static_cast<int>(send(CB_GETCURSEL)); }

void SystemComboBox::select(int entry) {
  const auto silence = quiet();
  send(CB_SETCURSEL, static_cast<WPARAM>(entry));
}

void SystemComboBox::putCaretAtEnd() {
  const auto end = static_cast<WORD>(GetWindowTextLengthW(handle()));
  send(CB_SETEDITSEL, 0, MAKELPARAM(end, end));
}

void awaitSecondClick(HWND comboBox) {
  const DWORD place = GetMessagePos();
  firstClick.comboBox = comboBox;
  firstClick.place = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  firstClick.time = static_cast<DWORD>(GetMessageTime());
}

bool takeSecondClick(const MSG& message) {
  if (message.message != WM_LBUTTONDOWN && message.message != WM_LBUTTONDBLCLK) return false;
  const FirstClick first = std::exchange(firstClick, {});
  if (!first.comboBox || !completes(first, message)) return false;
  PostMessageW(GetParent(first.comboBox), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(first.comboBox), CBN_DBLCLK),
               reinterpret_cast<LPARAM>(first.comboBox));
  return true;
}

}  // namespace kiv::win32
