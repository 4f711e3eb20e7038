#include "cadhost/text_painter.h"

#include <algorithm>
#include <cmath>

#include "cadhost/window_support.h"

namespace cadhost {
namespace {

constexpr wchar_t kFace[] = L"MS Gothic";
constexpr std::size_t kMostFonts = 64;
constexpr int kLeastHeight = 4, kMostHeight = 400;  // a larger text is a magnified one
constexpr double kCapitalShare = 0.75;              // of the font's height, until it has been measured

HFONT createFont(int height) {
  return CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, OUT_TT_PRECIS,
                     CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, FIXED_PITCH | FF_MODERN, kFace);
}

// The height of an H in the font that is selected; 0 when the font does not tell.
double measureCapital(HDC dc) {
  GLYPHMETRICS metrics{};
  const MAT2 identity{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
  const DWORD size = GetGlyphOutlineW(dc, L'H', GGO_METRICS, &metrics, 0, nullptr, &identity);
  return size == GDI_ERROR ? 0 : metrics.gmBlackBoxY;
}

}  // namespace

TextPainter::~TextPainter() { dropFonts(); }

void TextPainter::dropFonts() {
  for (auto& [height, font] : fonts_) DeleteObject(font.handle);
  fonts_.clear();
}

const TextPainter::Font& TextPainter::fontFor(HDC dc, double capital) {
  const double wanted = std::clamp(capital / kCapitalShare, double(kLeastHeight), double(kMostHeight));
  const int height = static_cast<int>(std::lround(wanted));
  const auto found = fonts_.find(height);
  if (found != fonts_.end()) {
    SelectObject(dc, found->second.handle);
    return found->second;
  }
  if (fonts_.size() >= kMostFonts) {
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
    dropFonts();
  }
  Font font{createFont(height)};
  SelectObject(dc, font.handle);
  const double measured = measureCapital(dc);
  font.capital = measured > 0 ? measured : height * kCapitalShare;
  return fonts_.emplace(height, font).first->second;
}

void TextPainter::paintOne(HDC dc, const VisibleText& visible, const ViewTransform& view) {
  const cad::SceneText& text = *visible.text;
  const double unit = view.pixelsPerUnit();
  const Font& font = fontFor(dc, std::hypot(text.up.x, text.up.y) * unit);
  const int length = static_cast<int>(text.text.size());
  SIZE natural{};
  if (!GetTextExtentPoint32W(dc, text.text.c_str(), length, &natural) || natural.cx <= 0) return;

  // From the font's own pixels to the text's two directions.
  const Pixel origin = view.toPixel(text.origin.x, text.origin.y);
  const double across = unit / natural.cx, up = unit / font.capital;
  const XFORM place{static_cast<FLOAT>(text.along.x * across),
                    static_cast<FLOAT>(-text.along.y * across),
                    static_cast<FLOAT>(-text.up.x * up),
                    static_cast<FLOAT>(text.up.y * up),
                    static_cast<FLOAT>(origin.x),
                    static_cast<FLOAT>(origin.y)};
  if (!SetWorldTransform(dc, &place)) return;
  SetTextColor(dc, toColorRef(visible.color));
  TextOutW(dc, 0, 0, text.text.c_str(), length);
  ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
}

void TextPainter::paint(HDC dc, std::span<const VisibleText> texts, const ViewTransform& view,
                        PixelRect clip) {
  if (texts.empty()) return;
  const int saved = SaveDC(dc);
  IntersectClipRect(dc, clip.left, clip.top, clip.right, clip.bottom);
  SetGraphicsMode(dc, GM_ADVANCED);
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_LEFT | TA_BASELINE);
  for (const VisibleText& text : texts) paintOne(dc, text, view);
  RestoreDC(dc, saved);
}

}  // namespace cadhost
