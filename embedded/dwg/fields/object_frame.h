#pragma once
// Where the parts of an object stand in its data.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/fields/object_types.h"

namespace cad::dwg {

// All places are bits from the beginning of `data`, which is that of ObjectBytes (files/dwg_file.h).
struct ObjectFrame {
  std::string_view data;
  std::shared_ptr<const std::string> owner;  // what keeps the data; null: somebody else does
  Version version = Version::kUnknown;
  ObjectType type;
  Handle handle = 0;
  std::uint32_t typeEnd = 0;
  std::uint32_t handleFieldBegin = 0;                // ends where the extended data begins
  std::uint32_t extendedBegin = 0, extendedEnd = 0;  // the list of extended data, its end included
  std::uint32_t dataEnd = 0;                     // fields that are neither handles nor, from R2007 on, texts
  std::uint32_t textBegin = 0, textEnd = 0;      // R2007 on
  bool hasTexts = false;                         // there is a stream of them, be it empty
  std::uint32_t handleBegin = 0, handleEnd = 0;  // fewer than eight bits may follow, which fill the last byte
};

// `data` must outlive a frame without an owner. `handleBits`: as ObjectBytes has them. Fails when the frame
// itself does not fit in the data.
// The same into a new `frame`. Null: it is read; else what is wrong with it.
const wchar_t* readFrame(ObjectFrame& frame, std::string_view data, std::uint64_t handleBits, Version version,
                         const std::vector<FileClass>& classes);
base::Result<ObjectFrame> readFrame(std::string_view data, std::uint64_t handleBits, Version version,
                                    const std::vector<FileClass>& classes);

}  // namespace cad::dwg
