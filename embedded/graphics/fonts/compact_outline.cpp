#include "embedded/graphics/fonts/compact_outline.h"

#include <memory>

// What these guard is checked again by the code behind them.
#define STBTT_assert(condition) static_cast<void>(0)
#define STBTT_STATIC
#define STB_TRUETYPE_IMPLEMENTATION
#include <stb/stb_truetype.h>

namespace cad {
namespace {

// The library's own beginning takes the table for half a gigabyte long, and everything before it for sound;
// this one knows where the table ends, which all that the library reads then keeps to.
bool open(const FontBytes& table, stbtt_fontinfo& info) {
  constexpr int kCharstrings = 17, kKind = 0x100 | 6, kParts = 0x100 | 36, kPartOfGlyph = 0x100 | 37;
  info = {};
  info.cff = stbtt__new_buf(table.text().data(), table.size());
  info.numGlyphs = 0xFFFF;
  stbtt__buf rest = info.cff;
  stbtt__buf_skip(&rest, 2);
  stbtt__buf_seek(&rest, stbtt__buf_get8(&rest));
  stbtt__cff_get_index(&rest);  // names
  stbtt__buf tops = stbtt__cff_get_index(&rest);
  stbtt__buf top = stbtt__cff_index_get(tops, 0);
  stbtt__cff_get_index(&rest);  // strings
  info.gsubrs = stbtt__cff_get_index(&rest);
  stbtt_uint32 kind = 2, charstrings = 0, parts = 0, partOfGlyph = 0;
  stbtt__dict_get_ints(&top, kCharstrings, 1, &charstrings);
  stbtt__dict_get_ints(&top, kKind, 1, &kind);
  stbtt__dict_get_ints(&top, kParts, 1, &parts);
  stbtt__dict_get_ints(&top, kPartOfGlyph, 1, &partOfGlyph);
  if (kind != 2 || charstrings == 0 || charstrings >= table.size()) return false;
  info.subrs = stbtt__get_subrs(rest, top);
  if (parts != 0) {
    if (partOfGlyph == 0 || partOfGlyph >= table.size() || parts >= table.size()) return false;
    stbtt__buf_seek(&rest, static_cast<int>(parts));
    info.fontdicts = stbtt__cff_get_index(&rest);
    info.fdselect =
        stbtt__buf_range(&rest, static_cast<int>(partOfGlyph), rest.size - static_cast<int>(partOfGlyph));
  }
  stbtt__buf_seek(&rest, static_cast<int>(charstrings));
  info.charstrings = stbtt__cff_get_index(&rest);
  return info.charstrings.size > 0;
}

class Outlines final : public CompactOutlines {
 public:
  explicit Outlines(const FontBytes& table) { isSound_ = open(table, info_); }
  bool isSound() const { return isSound_; }

  GlyphPath path(std::size_t glyph) const override {
    stbtt__buf charstrings = info_.charstrings;
    stbtt__buf_seek(&charstrings, 0);
    GlyphPath path;
    if (glyph >= static_cast<std::size_t>(stbtt__buf_get16(&charstrings))) return path;
    stbtt_vertex* vertices = nullptr;
    const int count = stbtt__GetGlyphShapeT2(&info_, static_cast<int>(glyph), &vertices);
    for (int i = 0; i < count; ++i) path.pieces.push_back(pieceOf(vertices[i]));
    stbtt_FreeShape(&info_, vertices);
    return path;
  }

 private:
  static GlyphPath::Piece pieceOf(const stbtt_vertex& vertex) {
    using Kind = GlyphPath::Kind;
    const Kind kind = vertex.type == STBTT_vmove    ? Kind::kMove
                      : vertex.type == STBTT_vline  ? Kind::kLine
                      : vertex.type == STBTT_vcurve ? Kind::kQuadratic
                                                    : Kind::kCubic;
    const auto value = [](stbtt_vertex_type number) { return static_cast<double>(number); };
    return {kind,
            value(vertex.x),
            value(vertex.y),
            value(vertex.cx),
            value(vertex.cy),
            value(vertex.cx1),
            value(vertex.cy1)};
  }

  stbtt_fontinfo info_;
  bool isSound_ = false;
};

}  // namespace

std::shared_ptr<const CompactOutlines> compactOutlines(const FontBytes& table) {
  constexpr std::size_t kLargest = 0x3FFFFFFF;
  if (table.size() == 0 || table.size() > kLargest) return nullptr;
  auto outlines = std::make_shared<Outlines>(table);
  if (!outlines->isSound()) return nullptr;
  return outlines;
}

}  // namespace cad
