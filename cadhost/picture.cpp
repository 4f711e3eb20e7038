#include "cadhost/picture.h"

namespace cadhost {

std::unique_ptr<Picture> Picture::create(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  HDC dc = CreateCompatibleDC(nullptr);
  void* pixels = nullptr;
  HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  if (dc != nullptr && bitmap != nullptr)
    return std::unique_ptr<Picture>(
        new Picture(dc, bitmap, static_cast<std::uint32_t*>(pixels), width, height));
  if (bitmap != nullptr) DeleteObject(bitmap);
  if (dc != nullptr) DeleteDC(dc);
  return nullptr;
}

Picture::Picture(HDC dc, HBITMAP bitmap, std::uint32_t* pixels, int width, int height)
    : dc_(dc),
      bitmap_(bitmap),
      former_(SelectObject(dc, bitmap)),
      pixels_(pixels),
      width_(width),
      height_(height) {}

Picture::~Picture() {
  SelectObject(dc_, former_);
  DeleteObject(bitmap_);
  DeleteDC(dc_);
}

Canvas Picture::canvas() {
  GdiFlush();
  return {pixels_, width_, height_};
}

void Picture::scroll(int dx, int dy) { BitBlt(dc_, dx, dy, width_, height_, dc_, 0, 0, SRCCOPY); }

void Picture::copyFrom(const Picture& other) { BitBlt(dc_, 0, 0, width_, height_, other.dc_, 0, 0, SRCCOPY); }

}  // namespace cadhost
