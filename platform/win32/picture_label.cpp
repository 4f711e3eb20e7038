#include "platform/win32/picture_label.h"

namespace kiv::win32 {
namespace {

// The system's loader would stretch the numbers of the colours, not the colours.
HBITMAP stretched(HBITMAP picture, const RECT& size) {
  BITMAP facts{};
  GetObjectW(picture, sizeof facts, &facts);
  const HDC screen = GetDC(nullptr);
  const HDC from = CreateCompatibleDC(screen), to = CreateCompatibleDC(screen);
  const HBITMAP made = CreateCompatibleBitmap(screen, size.right, size.bottom);
  const HGDIOBJ fromBefore = SelectObject(from, picture), toBefore = SelectObject(to, made);
  SetStretchBltMode(to, COLORONCOLOR);
  StretchBlt(to, 0, 0, size.right, size.bottom, from, 0, 0, facts.bmWidth, facts.bmHeight, SRCCOPY);
  SelectObject(from, fromBefore);
  SelectObject(to, toBefore);
  DeleteDC(from);
  DeleteDC(to);
  ReleaseDC(nullptr, screen);
  return made;
}

}  // namespace

PictureLabel::~PictureLabel() {
  if (bitmap_) DeleteObject(bitmap_);
}

void PictureLabel::setBitmap(int resource) {
  RECT size{};
  if (!handle() || !GetClientRect(handle(), &size)) return;
  const auto picture =
      static_cast<HBITMAP>(LoadImageW(moduleInstance(), MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0,
                                      LR_CREATEDIBSECTION | LR_LOADMAP3DCOLORS));
  if (!picture) return;
  const HBITMAP shown = stretched(picture, size);
  DeleteObject(picture);
  send(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(shown));
  if (bitmap_) DeleteObject(bitmap_);
  bitmap_ = shown;
}

}  // namespace kiv::win32
