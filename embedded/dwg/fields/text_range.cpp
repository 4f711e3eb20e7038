#include "embedded/dwg/fields/text_range.h"

#include "embedded/dwg/bits/bit_writer.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kSizeBits = 16, kLong = 0x8000;

}  // namespace

TextRange textRange(std::string_view bytes, std::uint64_t end) {
  TextRange range;
  const auto invalid = [&range] { return range.valid = false, range; };
  if (end < 1 || end > std::uint64_t{bytes.size()} * 8) return invalid();
  std::uint64_t at = end - 1;
  range.dataEnd = range.begin = range.end = static_cast<std::uint32_t>(at);
  range.present = BitReader(bytes, at, end).b();
  if (!range.present) return range;
  if (at < kSizeBits) return invalid();
  at -= kSizeBits;
  std::uint64_t size = BitReader(bytes, at, at + kSizeBits).rs();
  if ((size & kLong) != 0) {
    if (at < kSizeBits) return invalid();
    at -= kSizeBits;
    size = (size & (kLong - 1)) | std::uint64_t{BitReader(bytes, at, at + kSizeBits).rs()} << 15;
  }
  if (size > at) return invalid();
  range.end = static_cast<std::uint32_t>(at);
  range.dataEnd = range.begin = static_cast<std::uint32_t>(at - size);
  return range;
}

std::uint64_t sizeOfClosing(std::uint64_t size) { return size >= kLong ? 2 * kSizeBits + 1 : kSizeBits + 1; }

void closeTexts(BitWriter& writer, std::uint64_t size) {
  if (size >= kLong) {
    writer.rs(static_cast<std::uint16_t>(size >> 15));
    writer.rs(static_cast<std::uint16_t>((size & (kLong - 1)) | kLong));
  } else {
    writer.rs(static_cast<std::uint16_t>(size));
  }
  writer.b(true);
}

}  // namespace cad::dwg
