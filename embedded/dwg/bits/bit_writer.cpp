#include "embedded/dwg/bits/bit_writer.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/modular_codes.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t swapped(std::uint16_t value) { return (value << 8 | value >> 8) & 0xFFFF; }
constexpr std::uint64_t swapped(std::uint32_t value) { return reversed(value) >> 32; }

bool isZero(double value) { return std::bit_cast<std::uint64_t>(value) == 0; }  // but not -0.0

}  // namespace

void BitWriter::grow(std::size_t needed) {
  constexpr std::size_t kAtFirst = 15;  // a string has them without asking for memory
  bytes_.resize(std::max({needed, kAtFirst, bytes_.size() * 2}), '\0');
}

std::string BitWriter::take() {
  bytes_.resize(usedBytes());
  size_ = 0;
  return std::exchange(bytes_, {});
}

void BitWriter::bits(std::uint64_t value, unsigned count) {
  constexpr unsigned kBits = 64, kMostAtOnce = kBits - 7;
  if (count > kMostAtOnce) {
    bits(value >> kMostAtOnce, count - kMostAtOnce);
    count = kMostAtOnce;
  }
  if (count == 0) return;
  needRoom(count);
  put(value << (kBits - count), count);
}

void BitWriter::copy(std::string_view source, std::uint64_t begin, std::uint64_t end) {
  constexpr std::uint64_t kBits = 64, kAtOnce = 56;
  if (begin > end || end > std::uint64_t{source.size()} * 8) return;
  needRoom(end - begin);
  if (((size_ ^ begin) & 7) == 0 && end - begin > kBits) {
    const auto toByte = static_cast<unsigned>((8 - (size_ & 7)) & 7);
    put(BitReader(source, begin, end).bits(toByte) << 1 << (kBits - 1 - toByte), toByte);
    begin += toByte;
    const std::uint64_t length = (end - begin) / 8;
    source.copy(bytes_.data() + size_ / 8, static_cast<std::size_t>(length),
                static_cast<std::size_t>(begin / 8));
    size_ += length * 8, begin += length * 8;
  }
  for (; end - begin >= kAtOnce && begin / 8 + kWord <= source.size(); begin += kAtOnce) {
    const std::uint64_t word = bigEndianAt(source.data() + begin / 8) << (begin & 7);
    put(word >> 8 << 8, kAtOnce);
  }
  if (begin == end) return;
  for (BitReader reader(source, begin, end); reader.left() > 0;) {
    const auto count = static_cast<unsigned>(std::min(reader.left(), kAtOnce));
    put(reader.bits(count) << (kBits - count), count);
  }
}

void BitWriter::rs(std::uint16_t value) { bits(swapped(value), 16); }

void BitWriter::rl(std::uint32_t value) { bits(swapped(value), 32); }

void BitWriter::rll(std::uint64_t value) {
  rl(static_cast<std::uint32_t>(value));
  rl(static_cast<std::uint32_t>(value >> 32));
}

void BitWriter::rd(double value) { rll(std::bit_cast<std::uint64_t>(value)); }

// The first two bits tell what follows; all are put at once.
void BitWriter::bs(std::int16_t value) {
  if (value == 0) {
    bb(2);
  } else if (value == 256) {
    bb(3);
  } else if (value > 0 && value < 256) {
    bits(1U << 8 | static_cast<std::uint8_t>(value), 10);
  } else {
    bits(swapped(static_cast<std::uint16_t>(value)), 18);
  }
}

void BitWriter::bl(std::int32_t value) {
  if (value == 0) {
    bb(2);
  } else if (value > 0 && value < 256) {
    bits(1U << 8 | static_cast<std::uint8_t>(value), 10);
  } else {
    bits(swapped(static_cast<std::uint32_t>(value)), 34);
  }
}

void BitWriter::bll(std::uint64_t value) {
  unsigned length = 0;
  while (length < 7 && value >> (8 * length) != 0) ++length;
  threeBits(length);
  for (unsigned i = 0; i < length; ++i) rc(static_cast<std::uint8_t>(value >> (8 * i)));
}

void BitWriter::bd(double value) {
  if (isZero(value)) {
    bb(2);
  } else if (value == 1) {
    bb(1);
  } else {
    bb(0), rd(value);
  }
}

void BitWriter::dd(double value, double base) {
  const auto wanted = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t differing = wanted ^ std::bit_cast<std::uint64_t>(base);
  if (differing == 0) {
    bb(0);
  } else if (differing >> 32 == 0) {
    bb(1), rl(static_cast<std::uint32_t>(wanted));
  } else if (differing >> 48 == 0) {
    bb(2), rs(static_cast<std::uint16_t>(wanted >> 32)), rl(static_cast<std::uint32_t>(wanted));
  } else {
    bb(3), rd(value);
  }
}

void BitWriter::bt(double value, Version version) {
  const bool isShort = version >= Version::kR2000 && isZero(value);
  if (version >= Version::kR2000) b(isShort);
  if (!isShort) bd(value);
}

void BitWriter::extrusion(const Point& value, Version version) {
  const bool isShort = version >= Version::kR2000 && isZero(value.x) && isZero(value.y) && value.z == 1;
  if (version >= Version::kR2000) b(isShort);
  if (!isShort) point3bd(value);
}

void BitWriter::point2rd(const Point& value) { rd(value.x), rd(value.y); }

void BitWriter::point3bd(const Point& value) { bd(value.x), bd(value.y), bd(value.z); }

void BitWriter::ot(unsigned type, Version version) {
  if (version < Version::kR2010) {
    bs(static_cast<std::int16_t>(type));
  } else if (type < 0x100) {
    bb(0), rc(static_cast<std::uint8_t>(type));
  } else if (type >= 0x1F0 && type < 0x2F0) {
    bb(1), rc(static_cast<std::uint8_t>(type - 0x1F0));
  } else {
    bb(2), rs(static_cast<std::uint16_t>(type));
  }
}

void BitWriter::mc(std::int64_t value) {
  std::string bytes;
  appendMc(bytes, value);
  copy(bytes, 0, bytes.size() * 8);
}

void BitWriter::umc(std::uint64_t value) {
  std::string bytes;
  appendUmc(bytes, value);
  copy(bytes, 0, bytes.size() * 8);
}

void BitWriter::ms(std::uint32_t value) {
  std::string bytes;
  appendMs(bytes, value);
  copy(bytes, 0, bytes.size() * 8);
}

void BitWriter::h(const HandleReference& reference) {
  unsigned size = std::min<unsigned>(reference.size, 8);
  while (size < 8 && reference.value >> (8 * size) != 0) ++size;
  bits(reference.code << 4U | size, 8);
  bits(reference.value, 8 * size);
}

void BitWriter::tv(std::string_view text) {
  text = text.substr(0, kLongestText);
  bs(static_cast<std::int16_t>(static_cast<std::uint16_t>(text.size())));
  for (const char c : text) rc(static_cast<std::uint8_t>(c));
}

void BitWriter::tu(std::u16string_view text) {
  text = text.substr(0, kLongestText);
  bs(static_cast<std::int16_t>(static_cast<std::uint16_t>(text.size())));
  for (const char16_t c : text) rs(c);
}

}  // namespace cad::dwg
