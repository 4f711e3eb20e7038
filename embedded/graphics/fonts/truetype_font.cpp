#include "embedded/graphics/fonts/truetype_font.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/fold.h"
#include "embedded/graphics/fonts/characters.h"

namespace cad {
namespace {

constexpr char32_t kPrefilled = 256;
constexpr std::size_t kSymbols = 0xF000;  // where fonts of symbols have their characters

// Big-endian numbers; 0 where the bytes have ended.
class Bytes {
 public:
  Bytes() = default;
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  std::size_t size() const { return bytes_.size(); }
  std::size_t u16(std::size_t at) const { return number(at, 2); }
  std::size_t u32(std::size_t at) const { return number(at, 4); }
  int i16(std::size_t at) const { return static_cast<std::int16_t>(number(at, 2)); }
  Bytes from(std::size_t at, std::size_t size = std::string_view::npos) const {
    return Bytes(at <= bytes_.size() ? bytes_.substr(at, size) : std::string_view());
  }
  bool startsWith(std::string_view text) const { return bytes_.starts_with(text); }

 private:
  std::size_t number(std::size_t at, std::size_t count) const {
    if (at > bytes_.size() || bytes_.size() - at < count) return 0;
    std::size_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
    return value;
  }

  std::string_view bytes_;
};

// A face's tables by their tags.
class Face {
 public:
  Face(Bytes file, std::size_t at) : file_(file), at_(at) {}

  bool isFont() const {
    const Bytes head = file_.from(at_, 4);
    return head.u32(0) == 0x00010000 || head.startsWith("OTTO") || head.startsWith("true");
  }

  Bytes table(std::string_view tag) const {
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
    const Bytes names = table("name");
    const Bytes texts = names.from(names.u16(4));
    for (std::size_t i = 0; i < names.u16(2); ++i) {
      const Bytes row = names.from(6 + 12 * i, 12);
      const std::size_t use = row.u16(6);
      if (row.u16(0) != kWindows || (use != kFamily && use != kFullName && use != kWholeFamily)) continue;
      const Bytes text = texts.from(row.u16(10), row.u16(8));
      std::wstring name;
      for (std::size_t at = 0; at + 2 <= text.size(); at += 2) name += static_cast<wchar_t>(text.u16(at));
      if (base::equalFolded(name, typeface)) return true;
    }
    return false;
  }

 private:
  Bytes file_;
  std::size_t at_;
};

Face faceOf(Bytes file, std::wstring_view typeface) {
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
  explicit CharacterMap(Bytes maps) {
    int best = 0;
    for (std::size_t i = 0; i < maps.u16(2); ++i) {
      const Bytes row = maps.from(4 + 8 * i, 8);
      const Bytes map = maps.from(row.u32(4));
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

  Bytes map_;
  bool symbols_ = false;
};

class TrueTypeFont : public FontMetrics {
 public:
  TrueTypeFont(std::unique_ptr<base::MappedFile> file, std::wstring_view typeface) : file_(std::move(file)) {
    const Face face = faceOf(Bytes(file_->bytes()), typeface);
    if (!face.isFont()) return;
    characters_ = CharacterMap(face.table("cmap"));
    advances_ = face.table("hmtx");
    advanceCount_ = face.table("hhea").u16(34);
    glyphCount_ = face.table("maxp").u16(4);
    places_ = face.table("loca");
    hasLongPlaces_ = face.table("head").u16(50) != 0;
    outlines_ = face.table("glyf");
    setHeight(face);
    if (unitsPerHeight_ <= 0) return;
    for (char32_t c = 0; c < kPrefilled; ++c) prefilled_[c] = measured(c);
  }

  bool isUsable() const { return unitsPerHeight_ > 0; }
  Glyph glyph(char32_t c) const override { return c < kPrefilled ? prefilled_[c] : measured(c); }

 private:
  // The A's; of a font without A what it says of its capitals, and then a usual share of the em.
  void setHeight(const Face& face) {
    const Bytes facts = face.table("OS/2");
    unitsPerHeight_ = outline(characters_.glyph(L'A')).i16(8);
    if (unitsPerHeight_ <= 0 && facts.u16(0) >= 2) unitsPerHeight_ = facts.i16(88);
    if (unitsPerHeight_ <= 0 && advanceCount_ > 0)
      unitsPerHeight_ = 0.7 * static_cast<double>(face.table("head").u16(18));
  }

  Glyph measured(char32_t c) const {
    std::size_t which = characters_.glyph(c);
    // What stands for the diameter where a font has no such sign.
    if (which == 0 && (c == kDiameter || c == kDiameterSign)) which = characters_.glyph(kSlashedO);
    if (which == 0 || which >= glyphCount_ || advanceCount_ == 0) return outlineAverages().glyph(c);
    const std::size_t row = std::min(which, advanceCount_ - 1);
    Glyph glyph;
    glyph.advance = inHeights(static_cast<double>(advances_.u16(4 * row)));
    if (outlines_.size() == 0) return withoutOutline(c, which, glyph.advance);
    const Bytes box = outline(which);
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
  Bytes outline(std::size_t which) const {
    if (which == 0 || which >= glyphCount_) return {};
    const std::size_t from = hasLongPlaces_ ? places_.u32(4 * which) : 2 * places_.u16(2 * which);
    const std::size_t to = hasLongPlaces_ ? places_.u32(4 * which + 4) : 2 * places_.u16(2 * which + 2);
    constexpr std::size_t kHead = 10;
    return to > from && outlines_.size() >= to && to - from >= kHead ? outlines_.from(from, kHead) : Bytes();
  }

  double inHeights(double units) const { return units / unitsPerHeight_; }

  std::unique_ptr<base::MappedFile> file_;
  CharacterMap characters_;
  Bytes advances_, places_, outlines_;
  std::size_t advanceCount_ = 0, glyphCount_ = 0;
  bool hasLongPlaces_ = false;
  double unitsPerHeight_ = 0;
  std::array<Glyph, kPrefilled> prefilled_;
};

}  // namespace

std::shared_ptr<const FontMetrics> trueTypeFont(std::unique_ptr<base::MappedFile> file,
                                                std::wstring_view typeface) {
  auto font = std::make_shared<TrueTypeFont>(std::move(file), typeface);
  if (!font->isUsable()) return nullptr;
  return font;
}

}  // namespace cad
