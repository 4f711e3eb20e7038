#pragma once
// How wide and how high the characters of a font are. Lengths are in units of the text height, which is the
// height of the font's capital A; a font of shapes has a height of its own that counts.

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

namespace cad {

// Of one character: x from where it begins, y from the base line.
struct Glyph {
  double advance = 0;  // to where the next character begins
  double left = 0, right = 0, bottom = 0, top = 0;
  bool inked = false;  // the four count; a blank has none
};

class FontMetrics {
 public:
  virtual ~FontMetrics() = default;
  // Of any character, those that the font lacks as well.
  virtual Glyph glyph(char32_t character) const = 0;
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

 private:
  using Key = std::tuple<std::wstring, std::wstring, std::wstring, bool, bool>;

  Find find_;
  std::map<Key, std::shared_ptr<const FontMetrics>> fonts_;
};

}  // namespace cad
