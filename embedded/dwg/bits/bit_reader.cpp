#include "embedded/dwg/bits/bit_reader.h"

#include <bit>
#include <cstring>

namespace cad::dwg {
namespace {

constexpr unsigned kLongestModular = 9;  // bytes with seven bits each that still fit

}  // namespace

void BitReader::seek(std::uint64_t bit) {
  if (bit > end_) {
    fail();
  } else if (!failed_) {
    at_ = bit;
  }
}

void BitReader::skip(std::uint64_t bits) {
  if (bits > left()) {
    fail();
  } else {
    at_ += bits;
  }
}

std::uint64_t BitReader::otherBits(unsigned count) {
  if (count > left()) {
    fail();
    return 0;
  }
  std::uint64_t value = 0;
  while (count > 0) {
    const auto inByte = static_cast<unsigned>(at_ & 7), taken = std::min(count, 8 - inByte);
    const auto byte = static_cast<std::uint8_t>(bytes_[static_cast<std::size_t>(at_ >> 3)]);
    value = value << taken | (static_cast<std::uint8_t>(byte << inByte) >> (8 - taken));
    at_ += taken, count -= taken;
  }
  return value;
}

std::uint64_t BitReader::rll() {
  const std::uint64_t low = rl();
  return low | std::uint64_t{rl()} << 32;
}

double BitReader::rd() {
  if (left() < 64) {
    fail();
    return 0;
  }
  return std::bit_cast<double>(rll());
}

std::uint64_t BitReader::bll() {
  std::uint64_t value = 0;
  const unsigned length = threeBits();
  for (unsigned i = 0; i < length; ++i) value |= std::uint64_t{rc()} << (8 * i);
  return value;
}

double BitReader::bd() {
  switch (bb()) {
    case 0:
      return rd();
    case 1:
      return 1;
    case 3:
      fail();
      [[fallthrough]];
    default:
      return 0;
  }
}

double BitReader::dd(double base) {
  const auto kept = std::bit_cast<std::uint64_t>(base);
  switch (bb()) {
    case 0:
      return failed_ ? 0 : base;
    case 1: {
      const std::uint64_t low = rl();
      return failed_ ? 0 : std::bit_cast<double>((kept & ~std::uint64_t{0xFFFFFFFF}) | low);
    }
    case 2: {
      const std::uint64_t middle = rs(), low = rl();
      return failed_ ? 0
                     : std::bit_cast<double>((kept & ~std::uint64_t{0xFFFFFFFFFFFF}) | middle << 32 | low);
    }
    default:
      return rd();
  }
}

double BitReader::bt(Version version) { return version >= Version::kR2000 && b() ? 0 : bd(); }

Point BitReader::extrusion(Version version) {
  if (version >= Version::kR2000 && b()) return {0, 0, 1};
  return point3bd();
}

Point BitReader::point2rd() {
  Point point;
  point.x = rd(), point.y = rd();
  return point;
}

Point BitReader::point3bd() {
  Point point;
  point.x = bd(), point.y = bd(), point.z = bd();
  return point;
}

unsigned BitReader::ot(Version version) {
  if (version < Version::kR2010) return static_cast<std::uint16_t>(bs());
  switch (bb()) {
    case 0:
      return rc();
    case 1:
      return rc() + 0x1F0U;
    default:
      return rs();
  }
}

std::uint64_t BitReader::umc() {
  std::uint64_t value = 0;
  for (unsigned i = 0; i < kLongestModular; ++i) {
    const std::uint8_t byte = rc();
    value |= std::uint64_t{byte & 0x7FU} << (7 * i);
    if ((byte & 0x80) == 0) return failed_ ? 0 : value;
  }
  fail();
  return 0;
}

std::int64_t BitReader::mc() {
  std::int64_t value = 0;
  for (unsigned i = 0; i < kLongestModular; ++i) {
    const std::uint8_t byte = rc();
    if ((byte & 0x80) == 0) {
      value |= std::int64_t{byte & 0x3F} << (7 * i);
      return failed_ ? 0 : (byte & 0x40) != 0 ? -value : value;
    }
    value |= std::int64_t{byte & 0x7F} << (7 * i);
  }
  fail();
  return 0;
}

std::uint32_t BitReader::ms() {
  const std::uint16_t low = rs();
  if ((low & 0x8000) == 0) return low;
  const std::uint16_t high = rs();
  if ((high & 0x8000) != 0) fail();
  return failed_ ? 0 : (low & 0x7FFFU) | std::uint32_t{high} << 15;
}

std::string BitReader::tv() {
  const auto length = static_cast<std::uint16_t>(bs());
  if (length > left() / 8) {
    fail();
    return {};
  }
  std::string text(length, '\0');
  for (char& c : text) c = static_cast<char>(rc());
  return text;
}

std::u16string BitReader::tu() {
  const auto length = static_cast<std::uint16_t>(bs());
  if (length > left() / 16) {
    fail();
    return {};
  }
  std::u16string text(length, u'\0');
  for (char16_t& c : text) c = static_cast<char16_t>(rs());
  return text;
}

}  // namespace cad::dwg
