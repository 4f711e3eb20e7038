#pragma once
// The second header of files until R2000, from which a damaged file is recovered: where the sections stand
// once more, and some handles.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "embedded/drawing/record.h"

namespace cad::dwg {

class SecondHeader {
 public:
  static constexpr std::string_view kBegin =
      "\xD4\x7B\x21\xCE\x28\x93\x9F\xBF\x53\x24\x40\x09\x12\x3C\xAA\x01";

  // What stands between the two sentinels. Absent: it is cut off, has a wrong CRC or another form.
  static std::optional<SecondHeader> read(std::string_view bytes);

  struct Moves {
    std::uint64_t address = 0;  // of the header's own sentinel
    // The new address and size of the section with this number.
    std::function<std::pair<std::uint32_t, std::uint32_t>(unsigned number)> section;
    Handle largestHandle = 0;  // the next free handle is beyond it
  };
  // The bytes between the sentinels; a section whose address is 0 keeps it.
  std::string moved(const Moves& moves) const;

  std::uint64_t length() const { return bytes_.size(); }

 private:
  struct Number {                      // a BL
    std::uint64_t begin = 0, end = 0;  // bits
    std::uint32_t value = 0;
  };
  struct Section {
    unsigned number = 0;
    Number address, size;
  };
  bool parse();
  std::string nextHandle(Handle largest) const;

  std::string_view bytes_;
  Number address_;
  std::vector<Section> sections_;
  std::uint64_t nextHandleAt_ = 0, nextHandleEnd_ = 0;  // its length, number and bytes, in bits
  std::uint64_t end_ = 0;                               // of the handles, in bits
  std::uint64_t crcAt_ = 0;                             // byte
};

}  // namespace cad::dwg
