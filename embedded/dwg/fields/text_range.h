#pragma once
// The stream of texts that stands at the end of data since R2007: the texts, their size, and a bit that says
// whether there are any.

#include <cstdint>
#include <string_view>

#include "embedded/dwg/bits/bit_reader.h"

namespace cad::dwg {

struct TextRange {
  std::uint32_t dataEnd = 0;         // what stands before ends here
  std::uint32_t begin = 0, end = 0;  // equal: no texts
  bool present = false;              // the bit
  bool valid = true;
};

// `end`: behind the bit.
TextRange textRange(std::string_view bytes, std::uint64_t end);
// Puts size and bit behind the texts.
class BitWriter;
void closeTexts(BitWriter& writer, std::uint64_t size);
std::uint64_t sizeOfClosing(std::uint64_t size);  // what closeTexts() writes, in bits

}  // namespace cad::dwg
