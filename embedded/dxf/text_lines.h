#pragma once
// The two lines of a group in a text file, read without a call: most time of a conversion is spent here.

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace cad::dxf {

// kEnd is the byte that ends a line: LF, before which one CR or several may stand, or CR in files that have
// no other.

// The first line end at or after `at`; `end` when there is none. Eight bytes a step: values are short.
template <char kEnd>
inline const char* findLineEnd(const char* at, const char* end) {
  constexpr std::uint64_t kOnes = 0x0101010101010101u, kHigh = 0x8080808080808080u;
  if constexpr (std::endian::native == std::endian::little) {
    while (end - at >= 8) {
      std::uint64_t word = 0;
      std::memcpy(&word, at, sizeof word);
      word ^= kOnes * kEnd;
      const std::uint64_t hit = (word - kOnes) & ~word & kHigh;
      if (hit != 0) return at + std::countr_zero(hit) / 8;
      at += 8;
    }
  }
  while (at < end && *at != kEnd) ++at;
  return at;
}

// The group code of the line at `at`; moves `at` behind the line. False: the line is no group code.
template <char kEnd>
inline bool takeCode(const char*& at, const char* end, int& code) {
  while (at < end && (*at == ' ' || *at == '\t')) ++at;
  const bool negative = at < end && *at == '-';
  if (negative) ++at;
  int value = 0;
  const char* first = at;
  while (at < end && *at >= '0' && *at <= '9' && value <= 9999) value = value * 10 + (*at++ - '0');
  if (at == first || value > (negative ? 5 : 1071)) return false;
  while (at < end && (*at == ' ' || *at == '\t' || (kEnd != '\r' && *at == '\r'))) ++at;
  if (at == end || *at != kEnd) return false;
  ++at;
  code = negative ? -value : value;
  return true;
}

// The value that begins at `at`: the line without its end. Returns where the line ends.
template <char kEnd>
inline const char* takeValue(const char* at, const char* end, std::string_view& value) {
  const char* const lineEnd = findLineEnd<kEnd>(at, end);
  const char* last = lineEnd;
  while (kEnd != '\r' && last > at && last[-1] == '\r') --last;
  value = {at, static_cast<std::size_t>(last - at)};
  return lineEnd;
}

}  // namespace cad::dxf
