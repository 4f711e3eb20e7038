#include "embedded/dwg/bits/crc.h"

#include <array>

namespace cad::dwg {
namespace {

template <class Word, Word kPolynomial>
constexpr std::array<Word, 256> reflectedTable() {
  std::array<Word, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    auto value = static_cast<Word>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      value = static_cast<Word>((value & 1) != 0 ? value >> 1 ^ kPolynomial : value >> 1);
    }
    table[byte] = value;
  }
  return table;
}

constexpr auto kTable16 = reflectedTable<std::uint16_t, 0xA001>();
constexpr auto kTable32 = reflectedTable<std::uint32_t, 0xEDB88320>();

}  // namespace

std::uint16_t crc16(std::uint16_t start, std::string_view bytes) {
  for (const char c : bytes) {
    start = static_cast<std::uint16_t>(start >> 8 ^ kTable16[(start ^ static_cast<std::uint8_t>(c)) & 0xFF]);
  }
  return start;
}

std::uint32_t crc32(std::uint32_t start, std::string_view bytes) {
  start = ~start;
  for (const char c : bytes) start = start >> 8 ^ kTable32[(start ^ static_cast<std::uint8_t>(c)) & 0xFF];
  return ~start;
}

std::uint32_t pageChecksum(std::uint32_t start, std::string_view bytes) {
  constexpr std::uint32_t kModulus = 65521;
  constexpr std::size_t kChunk = 0x15B0;  // as many as the sums can take before the remainder is due
  std::uint32_t low = start & 0xFFFF, high = start >> 16;
  while (!bytes.empty()) {
    const std::string_view chunk = bytes.substr(0, kChunk);
    bytes.remove_prefix(chunk.size());
    for (const char c : chunk) low += static_cast<std::uint8_t>(c), high += low;
    low %= kModulus, high %= kModulus;
  }
  return high << 16 | low;
}

}  // namespace cad::dwg
