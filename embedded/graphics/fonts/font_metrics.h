#pragma once
// How wide and how high the characters of a font are, and what they draw. Lengths are in units of the text
// height, which is the height of the font's capital A; a font of shapes has a height of its own that counts.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace cad {

namespace support {
class ShapeFile;
}

// Of one character: x from where it begins, y from the base line.
struct Glyph {
  double advance = 0;  // to where the next character begins
  double left = 0, right = 0, bottom = 0, top = 0;
  bool inked = false;  // the four count; a blank has none
};

// What a character draws, from where it begins and from the base line: outlines of which the inside is
// filled (by the non-zero rule), or strokes.
struct GlyphPath {
  enum class Kind : std::uint8_t { kMove, kLine, kQuadratic, kCubic };
  struct Piece {
    Kind kind = Kind::kLine;
    double x = 0, y = 0;                    // its end
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // the controls of a curve: one, or two
  };
  std::vector<Piece> pieces;
  bool strokes = false;

  void scale(double by);
};

class FontMetrics {
 public:
  virtual ~FontMetrics() = default;
  // Of any character, those that the font lacks as well.
  virtual Glyph glyph(char32_t character) const = 0;
  // Nothing for a blank, a character that the font lacks, and for averages.
  virtual GlyphPath path(char32_t) const { return {}; }
};

// Averages for the fonts whose file is not to be had: of outlined faces and of fonts of shapes.
const FontMetrics& outlineAverages();
const FontMetrics& shapeAverages();

// What a text style says of its font.
struct FontRequest {
  std::wstring file = {};      // "arial.ttf", "romans"; a name without extension is a file of shapes
  std::wstring bigFile = {};   // of full-width characters beside a file of shapes; empty: none
  std::wstring typeface = {};  // "Arial"; empty: the file tells
  bool bold = false, italic = false;
};

// The fonts by what styles say of them, each read once.
class FontCatalogue {
 public:
  // Where a file lies whose name may have a folder; empty: not there. Without a folder it is asked again, and
  // then the fonts of the operating system are.
  using Find = std::function<std::filesystem::path(std::wstring_view file)>;

  // Without a `find` all fonts are averages.
  explicit FontCatalogue(Find find) : find_(std::move(find)) {}

  // Never null: averages for a font whose file is missing or damaged.
  std::shared_ptr<const FontMetrics> font(const FontRequest& request);
  // What a shape of a compiled file draws, in the units of the file; nothing when there is none.
  GlyphPath shape(std::wstring_view file, int number);

 private:
  using Key = std::tuple<std::wstring, std::wstring, std::wstring, bool, bool>;

  Find find_;
  std::map<Key, std::shared_ptr<const FontMetrics>> fonts_;
  std::map<std::wstring, std::shared_ptr<const support::ShapeFile>, std::less<>> shapeFiles_;  // null: none
};

}  // namespace cad
