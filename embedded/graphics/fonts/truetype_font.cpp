#include "embedded/graphics/fonts/truetype_font.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/fold.h"
#include "embedded/graphics/fonts/characters.h"
#include "embedded/graphics/fonts/compact_outline.h"
#include "embedded/graphics/fonts/font_bytes.h"
#include "embedded/graphics/fonts/glyf_outline.h"

namespace cad {
namespace {

constexpr char32_t kPrefilled = 256;
constexpr std::size_t kSymbols = 0xF000;  // where fonts of symbols have their characters

// A face's tables by their tags.
class Face {
 public:
  Face(FontBytes file, std::size_t at) : file_(file), at_(at) {}

  bool isFont() const {
    const FontBytes head = file_.from(at_, 4);
    return head.u32(0) == 0x00010000 || head.startsWith("OTTO") || head.startsWith("true");
  }

  FontBytes table(std::string_view tag) const {
    const std::size_t count = file_.u16(at_ + 4);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t row = at_ + 12 + 16 * i;
      if (file_.from(row, 4).startsWith(tag)) return file_.from(file_.u32(row + 8), file_.u32(row + 12));
    }
    return {};
  }

  // Whether one of its names, in any language, is this.
  bool isNamed(std::wstring_view typeface) const {
    constexpr std::size_t kWindows = 3, kFamily = 1, kFullName = 4, kWholeFamily = 16;
    const FontBytes names = table("name");
    const FontBytes texts = names.from(names.u16(4));
    for (std::size_t i = 0; i < names.u16(2); ++i) {
      const FontBytes row = names.from(6 + 12 * i, 12);
      const std::size_t use = row.u16(6);
      if (row.u16(0) != kWindows || (use != kFamily && use != kFullName && use != kWholeFamily)) continue;
      const FontBytes text = texts.from(row.u16(10), row.u16(8));
      std::wstring name;
      for (std::size_t at = 0; at + 2 <= text.size(); at += 2) name += static_cast<wchar_t>(text.u16(at));
      if (base::equalFolded(name, typeface)) return true;
    }
    return false;
  }

 private:
  FontBytes file_;
  std::size_t at_;
};

Face faceOf(FontBytes file, std::wstring_view typeface) {
  if (!file.startsWith("ttcf")) return {file, 0};
  const std::size_t count = std::min<std::size_t>(file.u32(8), 64);
  if (typeface.starts_with(L'@')) typeface.remove_prefix(1);
  for (std::size_t i = 0; i < count; ++i)
    if (const Face face(file, file.u32(12 + 4 * i)); face.isNamed(typeface)) return face;
  return {file, file.u32(12)};
}

// Which glyph a character has: one of the tables of the table "cmap". Glyph 0 stands for none.
class CharacterMap {
 public:
  CharacterMap() = default;
  explicit CharacterMap(FontBytes maps) {
    int best = 0;
    for (std::size_t i = 0; i < maps.u16(2); ++i) {
      const FontBytes row = maps.from(4 + 8 * i, 8);
      const FontBytes map = maps.from(row.u32(4));
      const int rank = rankOf(row.u16(0), row.u16(2), map.u16(0));
      if (rank <= best) continue;
      best = rank;
      map_ = map;
      symbols_ = row.u16(0) == 3 && row.u16(2) == 0;
    }
  }

  std::size_t glyph(std::size_t character) const {
    if (symbols_ && character < kPrefilled) {
      if (const std::size_t found = find(character + kSymbols); found != 0) return found;
    }
    return find(character);
  }

 private:
  // All of Unicode is better than its first plane, that better than symbols; 0: not understood.
  static int rankOf(std::size_t platform, std::size_t encoding, std::size_t format) {
    const bool unicode = platform == 0 || (platform == 3 && (encoding == 1 || encoding == 10));
    if (format == 12) return unicode ? 4 : 0;
    if (format != 4 && format != 6) return 0;
    if (unicode) return 3;
    return platform == 3 && encoding == 0 ? 2 : 0;
  }

  std::size_t find(std::size_t character) const {
    switch (map_.u16(0)) {
      case 4:
        return character <= 0xFFFF ? bySegments(character) : 0;
      case 6: {
        const std::size_t first = map_.u16(6), count = map_.u16(8);
        return character >= first && character - first < count ? map_.u16(10 + 2 * (character - first)) : 0;
      }
      case 12:
        return byGroups(character);
      default:
        return 0;
    }
  }

  // The first row of a sorted table whose last character is not before `character`; `count` when there is
  // none.
  template <class LastOf>
  static std::size_t rowOf(std::size_t character, std::size_t count, const LastOf& lastOf) {
    std::size_t low = 0, high = count;
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      if (lastOf(middle) < character) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low;
  }

  // Four columns: the last characters (and two bytes), the first ones, what is added, where glyphs are
  // listed.
  std::size_t bySegments(std::size_t character) const {
    const std::size_t columns = map_.u16(6), count = columns / 2;
    const std::size_t row = rowOf(character, count, [&](std::size_t i) { return map_.u16(14 + 2 * i); });
    const std::size_t first = map_.u16(16 + columns + 2 * row);
    if (row == count || first > character) return 0;
    const std::size_t added = map_.u16(16 + 2 * columns + 2 * row), list = 16 + 3 * columns + 2 * row;
    const std::size_t offset = map_.u16(list);
    if (offset == 0) return (character + added) & 0xFFFF;
    const std::size_t listed = map_.u16(list + offset + 2 * (character - first));
    return listed == 0 ? 0 : (listed + added) & 0xFFFF;
  }

  std::size_t byGroups(std::size_t character) const {
    const std::size_t count = std::min<std::size_t>(map_.u32(12), map_.size() / 12);
    const std::size_t row = rowOf(character, count, [&](std::size_t i) { return map_.u32(20 + 12 * i); });
    const std::size_t first = map_.u32(16 + 12 * row);
    return row < count && first <= character ? map_.u32(24 + 12 * row) + (character - first) : 0;
  }

  FontBytes map_;
  bool symbols_ = false;
};

class TrueTypeFont : public FontMetrics {
 public:
  TrueTypeFont(std::unique_ptr<base::FileBytes> file, std::wstring_view typeface) : file_(std::move(file)) {
    const Face face = faceOf(FontBytes(file_->bytes()), typeface);
    if (!face.isFont()) return;
    characters_ = CharacterMap(face.table("cmap"));
    advances_ = face.table("hmtx");
    advanceCount_ = face.table("hhea").u16(34);
    outlines_ = {face.table("loca"), face.table("glyf"), face.table("head").u16(50) != 0,
                 face.table("maxp").u16(4)};
    if (outlines_.outlines.size() == 0) compact_ = compactOutlines(face.table("CFF "));
    setHeight(face);
    if (unitsPerHeight_ <= 0) return;
    for (char32_t c = 0; c < kPrefilled; ++c) prefilled_[c] = measured(c);
  }

  bool isUsable() const { return unitsPerHeight_ > 0; }
  Glyph glyph(char32_t c) const override { return c < kPrefilled ? prefilled_[c] : measured(c); }

  GlyphPath path(char32_t c) const override {
    const std::size_t which = glyphOf(c);
    if (which == 0 || which >= outlines_.glyphCount) return {};
    GlyphPath path = compact_ ? compact_->path(which) : glyfPath(outlines_, which);
    path.scale(1 / unitsPerHeight_);
    return path;
  }

 private:
  // The A's; of a font without A what it says of its capitals, and then a usual share of the em.
  void setHeight(const Face& face) {
    const FontBytes facts = face.table("OS/2");
    unitsPerHeight_ = outline(characters_.glyph(L'A')).i16(8);
    if (unitsPerHeight_ <= 0 && facts.u16(0) >= 2) unitsPerHeight_ = facts.i16(88);
    if (unitsPerHeight_ <= 0 && advanceCount_ > 0)
      unitsPerHeight_ = 0.7 * static_cast<double>(face.table("head").u16(18));
  }

  std::size_t glyphOf(char32_t c) const {
    const std::size_t which = characters_.glyph(c);
    // What stands for the diameter where a font has no such sign.
    const bool isDiameter = c == kDiameter || c == kDiameterSign;
    return which == 0 && isDiameter ? characters_.glyph(kSlashedO) : which;
  }

  Glyph measured(char32_t c) const {
    const std::size_t which = glyphOf(c);
    if (which == 0 || which >= outlines_.glyphCount || advanceCount_ == 0) return outlineAverages().glyph(c);
    const std::size_t row = std::min(which, advanceCount_ - 1);
    Glyph glyph;
    glyph.advance = inHeights(static_cast<double>(advances_.u16(4 * row)));
    if (outlines_.outlines.size() == 0) return withoutOutline(c, which, glyph.advance);
    const FontBytes box = outline(which);
    glyph.inked = box.size() > 0;
    glyph.left = inHeights(box.i16(2)), glyph.bottom = inHeights(box.i16(4));
    glyph.right = inHeights(box.i16(6)), glyph.top = inHeights(box.i16(8));
    return glyph;
  }

  // As far from the next character as from the one before.
  Glyph withoutOutline(char32_t c, std::size_t which, double advance) const {
    Glyph glyph = outlineAverages().glyph(c);
    const std::size_t at =
        which < advanceCount_ ? 4 * which + 2 : 4 * advanceCount_ + 2 * (which - advanceCount_);
    glyph.advance = advance;
    glyph.left = inHeights(advances_.i16(at));
    glyph.right = advance - glyph.left;
    return glyph;
  }

  // Begins with a count and the box: left, bottom, right, top. A blank has none.
  FontBytes outline(std::size_t which) const {
    constexpr std::size_t kHead = 10;
    const FontBytes glyph = outlines_.glyph(which);
    return glyph.size() >= kHead ? glyph : FontBytes();
  }

  double inHeights(double units) const { return units / unitsPerHeight_; }

  std::unique_ptr<base::FileBytes> file_;
  CharacterMap characters_;
  std::shared_ptr<const CompactOutlines> compact_;
  FontBytes advances_;
  GlyfTables outlines_;
  std::size_t advanceCount_ = 0;
  double unitsPerHeight_ = 0;
  std::array<Glyph, kPrefilled> prefilled_;
};

}  // namespace

std::shared_ptr<const FontMetrics> trueTypeFont(std::unique_ptr<base::FileBytes> file,
                                                std::wstring_view typeface) {
  auto font = std::make_shared<TrueTypeFont>(std::move(file), typeface);
  if (!font->isUsable()) return nullptr;
  return font;
}

}  // namespace cad
