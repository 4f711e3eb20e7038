#pragma once
// Compiled files of shapes (*.shx): shapes of linetypes, and fonts that are made of shapes.

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace cad::support {

class ShapeFile {
 public:
  enum class Kind : std::uint8_t {
    kShapes,       // numbered up to 258; as a font by ASCII code, or for linetypes
    kUnicodeFont,  // numbered by character
    kBigFont,      // numbered by two bytes of a code page
  };

  // `file` is the name as given, for failures.
  static base::Result<ShapeFile> read(std::string bytes, std::wstring_view file);

  Kind kind() const { return kind_; }
  // What a shape draws, a command after the other; empty: there is no such shape.
  std::string_view codes(int number) const;
  std::optional<int> numberOf(std::wstring_view name) const;  // ignoring case

  // Of fonts: how far capitals reach above the base line, and the width of a big font's cell (0: none is
  // told), in the units of the shapes. Height 0: the file is no font.
  int capHeight() const { return capHeight_; }
  int cellWidth() const { return cellWidth_; }

 private:
  struct Place {
    std::size_t at = 0, size = 0;  // with the name
  };

  bool readShapes(std::size_t at);
  bool readUnicodeFont(std::size_t at);
  bool readBigFont(std::size_t at);
  void readFacts(std::string_view info);
  void add(int number, std::size_t at, std::size_t size);
  std::size_t number(std::size_t at, int bytes) const;
  std::string_view body(const Place& place) const;

  std::string bytes_;
  Kind kind_ = Kind::kShapes;
  int capHeight_ = 0, cellWidth_ = 0;
  std::map<int, Place> shapes_;
};

// The number of a shape by its name, ignoring case. `path` is where the file was found; when it is empty the
// shapes of ltypeshp.shx, which the usual linetypes draw, are known all the same. `file` is the name as
// given.
base::Result<int> shapeNumber(const std::filesystem::path& path, std::wstring_view file,
                              std::wstring_view shape);

}  // namespace cad::support
