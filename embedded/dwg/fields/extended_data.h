#pragma once
// Extended data: values that applications keep with an object.

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/fields/field.h"
#include "embedded/dwg/fields/object_frame.h"

namespace cad::dwg {

// The values of one application, as they stand in the file.
struct ExtendedData {
  HandleReference application;  // absolute (code 5)
  std::string bytes;
};

// A value by its DXF group code, 1000 to 1071. Text: 1000, in bytes of the drawing's code page or wide, by
// the version; brace: 1002, 0 for { and 1 for }; handle: 1003 (a layer) and 1005; bytes: 1004;
// Point: 1010 to 1013; double: 1040 to 1042; integer: 1070, 1071.
struct ExtendedValue {
  int code = 0;
  Value value;
  std::uint16_t codePage = 0;  // of a text before R2007: the number that stands with it, kept
};

// In the order of the object. Fails where the list does not end within the object's data.
base::Result<std::vector<ExtendedData>> readExtendedData(const ObjectFrame& frame);

base::Result<std::vector<ExtendedValue>> decodeExtended(std::string_view bytes, Version version);
// Texts are as the drawing's version has them. Fails for a value of another type than its code's, and for one
// that is too long: 255 bytes, 65535 wide characters.
base::Result<std::string> encodeExtended(const std::vector<ExtendedValue>& values);

}  // namespace cad::dwg
