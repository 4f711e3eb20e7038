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

// The three columns in which most programs write a code, and what is read from them at once: their digits
// give the place in a table, whose columns tell whether they are digits and blanks as they should be.
constexpr std::size_t kColumnPlaces = 4096;
constexpr std::size_t columnPlace(std::uint32_t columns) {
  // The low halves of the three bytes, put side by side.
  return ((columns & 0x0F0F0F) * 0x01001001u >> 16) % kColumnPlaces;
}
struct CodeColumns {
  std::uint32_t columns = 0;
  int code = 0;
};
inline constexpr std::array<CodeColumns, kColumnPlaces> kCodeColumns = [] {
  std::array<CodeColumns, kColumnPlaces> places{};
  for (std::uint32_t code = 0; code < 1000; ++code) {
    const std::uint32_t hundreds = code < 100 ? ' ' : '0' + code / 100,
                        tens = code < 10 ? ' ' : '0' + code / 10 % 10;
    const std::uint32_t columns = hundreds | tens << 8 | ('0' + code % 10) << 16;
    places[columnPlace(columns)] = {columns, static_cast<int>(code)};
  }
  return places;
}();

// As takeAnyCode().
template <char kEnd>
inline bool takeCode(const char*& at, const char* end, int& code) {
  if (kEnd == '\n' && std::endian::native == std::endian::little && end - at >= 5) {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    const CodeColumns& found = kCodeColumns[columnPlace(bytes)];
    const std::ptrdiff_t length = bytes >> 24 == '\r' ? 5 : 4;
    if (found.columns == (bytes & 0xFFFFFF) && at[length - 1] == '\n') {
      at += length;
      code = found.code;
      return true;
    }
  }
  const char* lineEnd = at;  // what is handed on would be kept in memory above, too
  int anyCode = 0;
  if (!takeAnyCode<kEnd>(lineEnd, end, anyCode)) return false;
  at = lineEnd;
  code = anyCode;
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
