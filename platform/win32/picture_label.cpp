#include "platform/win32/picture_label.h"

namespace kiv::win32 {

PictureLabel::~PictureLabel() {
  if (bitmap_) DeleteObject(bitmap_);
}

void PictureLabel::setBitmap(int resource) {
  RECT size{};
  if (!handle() || !GetClientRect(handle(), &size)) return;
  const HANDLE loaded = LoadImageW(moduleInstance(), MAKEINTRESOURCEW(resource), IMAGE_BITMAP, size.right,
                                   size.bottom, LR_CREATEDIBSECTION | LR_LOADMAP3DCOLORS);
  if (!loaded) return;
  send(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(loaded));
  if (bitmap_) DeleteObject(bitmap_);
  bitmap_ = static_cast<HBITMAP>(loaded);
}

}  // namespace kiv::win32
