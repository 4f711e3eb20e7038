#include "platform/win32/tree_images.h"

#include <array>
#include <string_view>

#include "platform/screen_scale.h"

namespace kiv::win32 {
namespace {

constexpr int kGrid = 16;  // the strokes below are in sixteenths of the picture
constexpr COLORREF kTransparent = RGB(255, 0, 255);
constexpr COLORREF kRule = RGB(0, 84, 166);
constexpr COLORREF kLayer = RGB(122, 62, 157);
constexpr COLORREF kList = RGB(0, 128, 96);
constexpr COLORREF kPlain = RGB(70, 70, 70);
constexpr COLORREF kCondition = RGB(196, 98, 0);
constexpr COLORREF kFolder = RGB(176, 124, 0);
constexpr COLORREF kResult = RGB(0, 128, 0);

// Lines as pairs of hexadecimal digits x y; a blank begins a new line.
struct Picture {
  COLORREF color;
  std::string_view strokes;
};

constexpr std::array<Picture, 16> kPictures = {{
    {kPlain, "2191d5de2e21 9195d5 48a8 4bab"},       // the specification
    {kRule, "2e7282de 4aba"},                        // texts
    {kRule, "121e e2ee 18e8 45184b b5e8bb"},         // dimensions
    {kRule, "22d2dd2d22 2662 2aa2 2dd2 6dd6 adda"},  // hatches
    {kRule, "2262662622 a8c8eaecceae8c8aa8 1ee1"},   // other entities
    {kList, "141a e4ea 17e7 34173a c4e7ca 4dbd"},    // dimension settings
    {kLayer, "84e78a1784 1a8dea"},                   // layer settings
    {kList, "73d6791673 acec cace"},                 // layers to make
    {kList, "12e2 1757 97d7 1c5c 7c8c acec"},        // linetypes
    {kList, "22c2 727d 5d9d 2225 c2c5"},             // text styles
    {kList, "2dc3 c3c8 c373"},                       // arrows
    {kPlain, "2333 53d3 2838 58d8 2d3d 5ddd"},       // a setting
    {kCondition, "81e88e1881 858a 8b8c"},            // a condition
    {kResult, "18d8 93d89d"},                        // a result
    {kPlain, "55b5bb5b55 58b8"},                     // an entry
    {kFolder, "1d13637585e5ed1d 17e7"},              // a folder
}};

int digit(char hexadecimal) { return hexadecimal <= '9' ? hexadecimal - '0' : hexadecimal - 'a' + 10; }

void drawPicture(HDC canvas, const Picture& picture, int left, int size) {
  const HPEN pen = CreatePen(PS_SOLID, size >= 2 * kGrid ? 3 : size > kGrid ? 2 : 1, picture.color);
  const HGDIOBJ before = SelectObject(canvas, pen);
  bool begins = true;
  for (std::size_t at = 0; at < picture.strokes.size();) {
    if (picture.strokes[at] == ' ') {
      begins = true;
      ++at;
      continue;
    }
    const POINT point{left + digit(picture.strokes[at]) * size / kGrid,
                      digit(picture.strokes[at + 1]) * size / kGrid};
    if (begins) {
      MoveToEx(canvas, point.x, point.y, nullptr);
    } else {
      LineTo(canvas, point.x, point.y);
    }
    begins = false;
    SetPixel(canvas, point.x, point.y, picture.color);  // a line leaves its end out
    at += 2;
  }
  SelectObject(canvas, before);
  DeleteObject(pen);
}

}  // namespace

HIMAGELIST makeTreeImages() {
  const int size = scaled(kGrid);
  const int count = static_cast<int>(kPictures.size());
  const HDC screen = GetDC(nullptr);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, size * count, size);
  ReleaseDC(nullptr, screen);
  const HGDIOBJ before = SelectObject(canvas, bitmap);
  const RECT all{0, 0, size * count, size};
  const HBRUSH background = CreateSolidBrush(kTransparent);
  FillRect(canvas, &all, background);
  DeleteObject(background);
  for (int at = 0; at < count; ++at)
    drawPicture(canvas, kPictures[static_cast<std::size_t>(at)], at * size, size);
  SelectObject(canvas, before);
  DeleteDC(canvas);

  const HIMAGELIST images = ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, count, 0);
  ImageList_AddMasked(images, bitmap, kTransparent);
  DeleteObject(bitmap);
  return images;
}

}  // namespace kiv::win32
