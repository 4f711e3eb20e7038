#include "platform/win32/picture_button.h"

#include "platform/screen_scale.h"

namespace kiv::win32 {
namespace {

constexpr int kIconSize = 32;   // beside a caption
constexpr int kStateSize = 24;  // instead of a caption
constexpr int kMargin = 4;      // around the icon
constexpr int kFocusInset = 3;  // pixels of the monitor: the frame has the same width everywhere

void drawCaption(HDC canvas, HWND button, RECT place, bool enabled) {
  const std::wstring caption = windowText(button);
  const int mode = SetBkMode(canvas, TRANSPARENT);
  const COLORREF color = SetTextColor(canvas, GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
  DrawTextW(canvas, caption.c_str(), -1, &place, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
  SetTextColor(canvas, color);
  SetBkMode(canvas, mode);
}

}  // namespace

PictureButton::~PictureButton() {
  if (icon_) DestroyIcon(icon_);
}

// A button that the system draws has the icon from now on, and may draw it before this returns.
void PictureButton::setIcon(int resource) {
  const HICON former = icon_;
  const bool isDrawnHere = (GetWindowLongPtrW(handle(), GWL_STYLE) & BS_TYPEMASK) == BS_OWNERDRAW;
  const int size = scaled(isDrawnHere ? kIconSize : kStateSize);
  icon_ = static_cast<HICON>(
      LoadImageW(moduleInstance(), MAKEINTRESOURCEW(resource), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
  if (!isDrawnHere) send(BM_SETIMAGE, IMAGE_ICON, icon_);
  if (handle()) InvalidateRect(handle(), nullptr, TRUE);
  if (former) DestroyIcon(former);
}

void PictureButton::draw(const DRAWITEMSTRUCT& item) const {
  const bool pressed = item.itemState & ODS_SELECTED;
  const bool enabled = !(item.itemState & ODS_DISABLED);
  const int shift = pressed ? 1 : 0;
  RECT frame = item.rcItem;
  DrawFrameControl(item.hDC, &frame, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0u));

  RECT caption = item.rcItem;
  if (icon_) {
    const int size = scaled(kIconSize);
    const int room = (item.rcItem.right - item.rcItem.left - size) / 2;
    const int before = GetWindowTextLengthW(handle()) == 0 ? room : scaled(kMargin);
    const int left = item.rcItem.left + before + shift;
    const int top = (item.rcItem.top + item.rcItem.bottom - size) / 2 + shift;
    DrawStateW(item.hDC, nullptr, nullptr, reinterpret_cast<LPARAM>(icon_), 0, left, top, size, size,
               DST_ICON | (enabled ? DSS_NORMAL : DSS_DISABLED));
    caption.left = left - shift + size;
  }
  OffsetRect(&caption, shift, shift);
  drawCaption(item.hDC, handle(), caption, enabled);

  if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
    InflateRect(&frame, -kFocusInset, -kFocusInset);
    DrawFocusRect(item.hDC, &frame);
  }
}

}  // namespace kiv::win32
