#pragma once
// How one DXF file writes its groups.

#include <cstdint>
#include <string_view>

namespace cad::dxf {

enum class LineEnd : std::uint8_t { kLf, kCrLf, kCrCrLf, kCr };

struct Dialect {
  bool binary = false;
  bool wideCodes = true;             // binary: group codes of two bytes (R13 and newer)
  LineEnd lineEnd = LineEnd::kCrLf;  // text: of new groups; CR in files that have no other, and
                                     // CR CR LF in those that a transfer gave a second CR
  std::uint8_t codeWidth = 3;        // text: group codes are padded to this width with blanks on the left
  std::uint8_t int16Width = 6;       // text: likewise the values of 16-bit integers; 0: not padded
  std::uint8_t int32Width = 9;
};

enum class ValueType : std::uint8_t {
  kText,
  kReal,
  kInt16,
  kInt32,
  kInt64,
  kBool,
  kHandle,
  kChunk,
  kUnknown
};

// The type of a group's value by its code, text and binary alike.
ValueType valueType(int code);

// What ends a line of a new group.
constexpr std::string_view lineEndBytes(LineEnd end) {
  switch (end) {
    case LineEnd::kCrLf:
      return "\r\n";
    case LineEnd::kCrCrLf:
      return "\r\r\n";
    case LineEnd::kCr:
      return "\r";
    default:
      return "\n";
  }
}

}  // namespace cad::dxf
