#pragma once
// A DXF file as a mutator sees it: groups that can be moved about, with their blanks and line ends, and what
// follows the last whole group.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/dxf/dialect.h"

namespace fuzz {

struct Piece {
  int code = 0;
  std::string codeLine;           // text: as it is written, blanks included
  std::string value;              // text: the line; binary: the raw value, strings without NUL
  std::string codeEnd, valueEnd;  // text: line ends
};

struct Span {  // the pieces of a record
  std::size_t begin = 0, end = 0;
  std::string section;  // "ENTITIES"
  bool frame = false;   // SECTION, TABLE, BLOCK, their ends and EOF: what the others stand in
};

class DrawingPieces {
 public:
  explicit DrawingPieces(std::string_view bytes);
  std::string bytes() const;
  bool binary() const { return dialect_.binary; }
  bool sameForm(const DrawingPieces& other) const {
    return binary() == other.binary() && dialect_.wideCodes == other.dialect_.wideCodes;
  }
  // `text` is what a text file would hold; a binary file gets the number that it says.
  Piece make(int code, std::string_view text) const;
  void setValue(Piece& piece, std::string_view text) const;
  std::vector<Span> records() const;

  std::vector<Piece> pieces;
  std::string rest;

 private:
  void readText(std::string_view bytes);
  void readBinary(std::string_view bytes);

  cad::dxf::Dialect dialect_;
  std::string prefix_;  // byte order mark or binary sentinel
};

}  // namespace fuzz
