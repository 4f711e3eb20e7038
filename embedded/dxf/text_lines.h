#pragma once
// The two lines of a group in a text file, read without a call: most time of a conversion is spent here.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace cad::dxf {

// kEnd is the byte that ends a line: LF, before which one CR or several may stand, or CR in files that have
// no other.

// The first line end at or after `at`; `end` when there is none.
template <char kEnd>
inline const char* findLineEnd(const char* at, const char* end) {
#ifdef __SSE2__
  while (end - at >= 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const int hits = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(kEnd)));
    if (hits != 0) return at + std::countr_zero(static_cast<unsigned>(hits));
    at += 16;
  }
#endif
  while (at < end && *at != kEnd) ++at;
  return at;
}

// The group code of the line at `at`, however it is written; moves `at` behind the line. False: the line is
// no group code.
template <char kEnd>
bool takeAnyCode(const char*& at, const char* end, int& code);
extern template bool takeAnyCode<'\n'>(const char*& at, const char* end, int& code);
extern template bool takeAnyCode<'\r'>(const char*& at, const char* end, int& code);

// The three columns in which most programs write a code, and what is read from them at once.
inline constexpr std::array<std::uint32_t, 1000> kCodeColumns = [] {
  std::array<std::uint32_t, 1000> columns{};
  for (std::uint32_t code = 0; code < columns.size(); ++code) {
    const std::uint32_t hundreds = code < 100 ? ' ' : '0' + code / 100,
                        tens = code < 10 ? ' ' : '0' + code / 10 % 10;
    columns[code] = hundreds | tens << 8 | ('0' + code % 10) << 16;
  }
  return columns;
}();

// As takeAnyCode().
template <char kEnd>
inline bool takeCode(const char*& at, const char* end, int& code) {
  if (kEnd == '\n' && std::endian::native == std::endian::little && end - at >= 5) {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    const std::uint32_t number = ((bytes & 0xF) * 10 + (bytes >> 8 & 0xF)) * 10 + (bytes >> 16 & 0xF);
    const char* const lineEnd = at + (bytes >> 24 == '\r' ? 4 : 3);
    if (number < kCodeColumns.size() && kCodeColumns[number] == (bytes & 0xFFFFFF) && *lineEnd == '\n') {
      at = lineEnd + 1;
      code = static_cast<int>(number);
      return true;
    }
  }
  return takeAnyCode<kEnd>(at, end, code);
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
