#pragma once
// How one DXF file writes its groups.

#include <cstdint>

namespace cad::dxf {

struct Dialect {
  bool binary = false;
  bool wideCodes = true;        // binary: group codes of two bytes (R13 and newer)
  bool crlf = true;             // text: line ends of new groups
  std::uint8_t codeWidth = 3;   // text: group codes are padded to this width with blanks on the left
  std::uint8_t int16Width = 6;  // text: likewise the values of 16-bit integers; 0: not padded
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

}  // namespace cad::dxf
