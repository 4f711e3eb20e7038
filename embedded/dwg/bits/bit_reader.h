#pragma once
// The bit codes of DWG files, read.

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/drawing_version.h"
#include "embedded/drawing/geometry.h"
#include "embedded/dwg/bits/big_endian.h"
#include "embedded/dwg/bits/handle_reference.h"

namespace cad::dwg {

using base::Version;

// Reads from a range of bits; the most significant bit of a byte comes first. Positions count bits from the
// first byte. Reading beyond the end, or a code that means nothing, makes the reader fail for good: it then
// yields zeros and does not move.
class BitReader {
 public:
  explicit BitReader(std::string_view bytes) : BitReader(bytes, 0, std::uint64_t{bytes.size()} * 8) {}
  // `begin` and `end` in bits; a range that is not within the bytes makes the reader fail.
  BitReader(std::string_view bytes, std::uint64_t begin, std::uint64_t end);

  bool failed() const { return failed_; }
  std::string_view bytes() const { return bytes_; }
  std::uint64_t position() const { return at_; }
  std::uint64_t end() const { return end_; }
  std::uint64_t left() const { return failed_ ? 0 : end_ - at_; }
  void seek(std::uint64_t bit);
  void skip(std::uint64_t bits);
  void fail() { failed_ = true, quickEnd_ = 0; }

  bool b() { return bits(1) != 0; }
  unsigned bb() { return static_cast<unsigned>(bits(2)); }
  unsigned threeBits() { return static_cast<unsigned>(bits(3)); }
  std::uint64_t bits(unsigned count) {  // up to 64
    constexpr unsigned kWord = 64, kMostAtOnce = kWord - 7;
    if (count - 1 >= kMostAtOnce || at_ + count > quickEnd_) return otherBits(count);
    const std::size_t byte = std::min(static_cast<std::size_t>(at_ >> 3), lastWord_);
    const std::uint64_t word = bigEndianAt(bytes_.data() + byte);
    const auto inWord = static_cast<unsigned>(at_ - std::uint64_t{byte} * 8);
    at_ += count;
    return word << inWord >> (kWord - count);
  }
  std::uint8_t rc() { return static_cast<std::uint8_t>(bits(8)); }
  std::uint16_t rs();  // raw values have their least significant byte first
  std::uint32_t rl();
  std::uint64_t rll();
  double rd();
  std::int16_t bs();
  std::int32_t bl();
  std::uint64_t bll();
  double bd();
  double dd(double base);            // `base` is what stands in the file in the short forms
  double bt(Version version);        // thickness
  Point extrusion(Version version);  // BE: a bit for (0, 0, 1) from R2000 on, else three BD
  Point point2rd();
  Point point3bd();
  unsigned ot(Version version);  // an object's type
  std::int64_t mc();
  std::uint64_t umc();
  std::uint32_t ms();
  HandleReference h();
  std::string tv();     // the bytes in the drawing's code page
  std::u16string tu();  // R2007 and later

 private:
  std::uint64_t otherBits(unsigned count);  // those that cannot be taken from one word

  std::string_view bytes_;
  std::uint64_t at_ = 0, end_ = 0;
  std::uint64_t quickEnd_ = 0;  // end_; 0: the reader failed, or the bytes are no whole word
  std::size_t lastWord_ = 0;    // the byte where the last whole word begins
  bool failed_ = false;
};

inline BitReader::BitReader(std::string_view bytes, std::uint64_t begin, std::uint64_t end)
    : bytes_(bytes), at_(begin), end_(end) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  if (begin > end || end > std::uint64_t{bytes.size()} * 8) {
    at_ = end_ = 0;
    fail();
  } else if (bytes.size() >= kWord) {
    quickEnd_ = end, lastWord_ = bytes.size() - kWord;
  }
}

// What almost every field is read by.
inline std::uint16_t BitReader::rs() {
  const auto value = static_cast<std::uint16_t>(bits(16));
  return static_cast<std::uint16_t>(value << 8 | value >> 8);
}

inline std::uint32_t BitReader::rl() {
  const auto value = static_cast<std::uint32_t>(bits(32));
  return value << 24 | (value << 8 & 0xFF0000) | (value >> 8 & 0xFF00) | value >> 24;
}

inline std::int16_t BitReader::bs() {
  switch (bb()) {
    case 0:
      return static_cast<std::int16_t>(rs());
    case 1:
      return rc();
    case 2:
      return 0;
    default:
      return failed_ ? 0 : 256;
  }
}

inline std::int32_t BitReader::bl() {
  switch (bb()) {
    case 0:
      return static_cast<std::int32_t>(rl());
    case 1:
      return rc();
    case 3:
      fail();
      [[fallthrough]];
    default:
      return 0;
  }
}

inline HandleReference BitReader::h() {
  HandleReference reference;
  const auto head = static_cast<unsigned>(bits(8));
  reference.code = static_cast<std::uint8_t>(head >> 4);
  reference.size = static_cast<std::uint8_t>(head & 0xF);
  if (reference.size > 8) fail();
  if (failed_) return {};
  if (reference.size > 0) reference.value = bits(reference.size * 8U);
  return failed_ ? HandleReference() : reference;
}

}  // namespace cad::dwg
