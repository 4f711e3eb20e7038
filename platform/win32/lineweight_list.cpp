#include "platform/win32/lineweight_list.h"

// Needs what windows.h declares.
#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <string>

#include "base/lineweights.h"
#include "platform/screen_scale.h"

namespace kiv::win32 {
namespace {

// Of the reference resolution.
constexpr int kMargin = 4;
constexpr int kLineLength = 48;
constexpr int kLeastHeight = 14;  // of an entry: the thickest line with room around it

constexpr int kHundredthsPerInch = 2540;
constexpr int kDefaultWeight = 25;  // what hosts take for "Default"

LRESULT fieldHeight(HWND comboBox) {
  return SendMessageW(comboBox, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
}

// The dialog's other combo boxes have the height that the system gives them for their font.
LRESULT usualFieldHeight(HWND comboBox) {
  const HWND dialog = GetParent(comboBox);
  for (HWND each = GetWindow(dialog, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
    if (isOfClass(each, WC_COMBOBOXW) && !isLineweightList(each)) return fieldHeight(each);
  return fieldHeight(comboBox);
}

LRESULT textHeight(HWND comboBox) {
  const HDC canvas = GetDC(comboBox);
  const HGDIOBJ before =
      SelectObject(canvas, reinterpret_cast<HFONT>(SendMessageW(comboBox, WM_GETFONT, 0, 0)));
  TEXTMETRICW metrics{};
  GetTextMetricsW(canvas, &metrics);
  SelectObject(canvas, before);
  ReleaseDC(comboBox, canvas);
  return metrics.tmHeight;
}

std::wstring entryText(const DRAWITEMSTRUCT& item) {
  const LRESULT length = SendMessageW(item.hwndItem, CB_GETLBTEXTLEN, item.itemID, 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(item.hwndItem, CB_GETLBTEXT, item.itemID, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// Pixels of the monitor, at least one; nothing for a text that is no width.
std::optional<int> lineWidth(const std::wstring& text) {
  for (const base::Lineweight& weight : base::lineweights()) {
    if (text != weight.text) continue;
    const bool isDefault = weight.hundredths == base::lineweights().front().hundredths;
    if (weight.hundredths < 0 && !isDefault) return std::nullopt;
    const int hundredths = isDefault ? kDefaultWeight : weight.hundredths;
    return std::max(1, MulDiv(hundredths, screenDpi(), kHundredthsPerInch));
  }
  return std::nullopt;
}

void fillWith(HDC canvas, const RECT& place, COLORREF color) {
  const HBRUSH brush = CreateSolidBrush(color);
  FillRect(canvas, &place, brush);
  DeleteObject(brush);
}

void drawLine(const DRAWITEMSTRUCT& item, int width, COLORREF color) {
  const LONG left = item.rcItem.left + scaled(kMargin);
  const LONG top = (item.rcItem.top + item.rcItem.bottom - width) / 2;
  fillWith(item.hDC, {left, top, left + scaled(kLineLength), top + width}, color);
}

}  // namespace

bool isLineweightList(HWND control) {
  return isOfClass(control, WC_COMBOBOXW) && (GetWindowLongPtrW(control, GWL_STYLE) & CBS_OWNERDRAWFIXED);
}

void prepareLineweightList(HWND comboBox) {
  const LRESULT entry = std::max<LRESULT>(textHeight(comboBox), scaled(kLeastHeight));
  SendMessageW(comboBox, CB_SETITEMHEIGHT, 0, entry);
  SendMessageW(comboBox, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), usualFieldHeight(comboBox));
}

void drawLineweightEntry(const DRAWITEMSTRUCT& item) {
  const bool chosen = item.itemState & ODS_SELECTED;
  const int textColor = item.itemState & ODS_DISABLED ? COLOR_GRAYTEXT
                        : chosen                      ? COLOR_HIGHLIGHTTEXT
                                                      : COLOR_WINDOWTEXT;
  const COLORREF color = GetSysColor(textColor);
  fillWith(item.hDC, item.rcItem, GetSysColor(chosen ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (item.itemID != static_cast<UINT>(-1)) {
    const std::wstring text = entryText(item);
    if (const std::optional<int> width = lineWidth(text)) drawLine(item, *width, color);
    RECT place = item.rcItem;
    place.left += scaled(2 * kMargin + kLineLength);
    const int mode = SetBkMode(item.hDC, TRANSPARENT);
    const COLORREF before = SetTextColor(item.hDC, color);
    DrawTextW(item.hDC, text.c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SetTextColor(item.hDC, before);
    SetBkMode(item.hDC, mode);
  }
  if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT))
    DrawFocusRect(item.hDC, &item.rcItem);
}

}  // namespace kiv::win32
