#pragma once
// Where the parts of an object stand in its data.

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/fields/object_types.h"

namespace cad::dwg {

// All places are bits from the beginning of `data`, which is what stands between the object's size and its
// CRC: from R2010 on it begins with the size of the handle stream.
struct ObjectFrame {
  std::string_view data;
  Version version = Version::kUnknown;
  ObjectType type;
  Handle handle = 0;
  std::uint32_t afterType = 0;    // behind the type's number
  std::uint32_t afterHandle = 0;  // the extended data begins
  std::uint32_t sizeField = 0;    // R13 to R2007: the field that tells dataEnd; the same place: not yet read
  std::uint32_t dataEnd = 0;      // fields that are neither texts (R2007 on) nor handles end
  std::uint32_t textBegin = 0, textEnd = 0;  // R2007 on; equal: no texts
  std::uint32_t handleBegin = 0, handleEnd = 0;
};

// `data` must outlive the frame. Fails when the frame itself does not fit in the data.
base::Result<ObjectFrame> readFrame(std::string_view data, Version version,
                                    const std::vector<FileClass>& classes);

}  // namespace cad::dwg
