#pragma once
// The texts of a drawing by the system's fonts.

#include <windows.h>

#include <map>
#include <span>

#include "cadhost/paint.h"

namespace cadhost {

class TextPainter {
 public:
  TextPainter() = default;
  ~TextPainter();
  TextPainter(const TextPainter&) = delete;
  TextPainter& operator=(const TextPainter&) = delete;

  // Into the device context, within `clip`.
  void paint(HDC dc, std::span<const VisibleText> texts, const ViewTransform& view, PixelRect clip);

 private:
  struct Font {
    HFONT handle = nullptr;
    double capital = 1;  // height of a capital, pixels
  };
  const Font& fontFor(HDC dc, double capital);
  void paintOne(HDC dc, const VisibleText& text, const ViewTransform& view);
  void dropFonts();

  std::map<int, Font> fonts_;  // by height in pixels
};

}  // namespace cadhost
