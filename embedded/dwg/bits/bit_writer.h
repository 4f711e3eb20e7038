#pragma once
// The bit codes of DWG files, written in their shortest form.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/drawing_version.h"
#include "embedded/drawing/geometry.h"
#include "embedded/dwg/bits/big_endian.h"
#include "embedded/dwg/bits/handle_reference.h"

namespace cad::dwg {

using base::Version;

inline constexpr std::size_t kLongestText = 0xFFFF;

class BitWriter {
 public:
  BitWriter() = default;
  explicit BitWriter(std::string room) : bytes_(std::move(room)) { bytes_.clear(); }  // its memory is used

  std::uint64_t size() const { return size_; }  // bits
  // What was written; the last byte is filled up with zeros.
  std::string_view bytes() const { return std::string_view(bytes_).substr(0, usedBytes()); }
  std::string take();
  void alignToByte() { size_ = (size_ + 7) / 8 * 8; }
  void reserve(std::size_t bytes) { needRoom(std::uint64_t{bytes} * 8); }

  // The bits from `begin` to `end` of `source`, which must have them.
  void copy(std::string_view source, std::uint64_t begin, std::uint64_t end);
  void copy(const BitWriter& source, std::uint64_t begin, std::uint64_t end) {
    copy(source.bytes_, begin, end);
  }
  void copy(const BitWriter& source) { copy(source.bytes_, 0, source.size_); }

  void b(bool value) { bits(value ? 1 : 0, 1); }
  void bb(unsigned value) { bits(value, 2); }
  void threeBits(unsigned value) { bits(value, 3); }
  void bits(std::uint64_t value, unsigned count);  // the lowest `count`, up to 64
  void rc(std::uint8_t value) { bits(value, 8); }
  void rs(std::uint16_t value);
  void rl(std::uint32_t value);
  void rll(std::uint64_t value);
  void rd(double value);
  void bs(std::int16_t value);
  void bl(std::int32_t value);
  void bll(std::uint64_t value);  // below 2 to the power of 56
  void bd(double value);
  void dd(double value, double base);
  void bt(double value, Version version);
  void extrusion(const Point& value, Version version);
  void point2rd(const Point& value);
  void point3bd(const Point& value);
  void ot(unsigned type, Version version);
  void mc(std::int64_t value);
  void umc(std::uint64_t value);
  void ms(std::uint32_t value);              // below 2 to the power of 30
  void h(const HandleReference& reference);  // in `size` bytes, or in as many more as the value needs
  // A reference with the fewest bytes.
  void h(std::uint8_t code, std::uint64_t value) { h({code, 0, value}); }
  // Texts are cut to kLongestText characters.
  void tv(std::string_view text);
  void tu(std::u16string_view text);

 private:
  static constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::size_t usedBytes() const { return static_cast<std::size_t>((size_ + 7) / 8); }
  void needRoom(std::uint64_t bits) {
    const auto needed = static_cast<std::size_t>((size_ + bits + 7) / 8) + kWord;
    if (bytes_.size() < needed) grow(needed);
  }
  void grow(std::size_t needed);
  // The highest bits of the word, behind what was written; those below must be zeros.
  void put(std::uint64_t word, unsigned count) {
    char* const at = bytes_.data() + size_ / 8;
    putBigEndian(at, std::uint64_t{static_cast<std::uint8_t>(*at)} << 56 | word >> (size_ & 7));
    size_ += count;
  }

  std::string bytes_;  // with zeros behind what was written, always enough for a word
  std::uint64_t size_ = 0;
};

}  // namespace cad::dwg
