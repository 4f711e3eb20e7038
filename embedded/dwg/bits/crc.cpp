#include "embedded/dwg/bits/crc.h"

#include <array>
#include <cstddef>
#include <initializer_list>

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

// Of sums of bytes: a chunk has as many as they can take before the remainder is due.
constexpr std::uint32_t kModulus = 65521;
constexpr std::size_t kChunk = 0x15B0;

// Of a byte with up to fifteen zeros behind it: every object is checked when a drawing is opened, sixteen
// bytes at a time.
constexpr std::size_t kAhead = 16;
constexpr auto kAhead16 = [] {
  std::array<std::array<std::uint16_t, 256>, kAhead> tables{reflectedTable<std::uint16_t, 0xA001>()};
  for (std::size_t i = 1; i < kAhead; ++i)
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint16_t before = tables[i - 1][byte];
      tables[i][byte] = static_cast<std::uint16_t>(before >> 8 ^ tables[0][before & 0xFF]);
    }
  return tables;
}();
constexpr auto kTable32 = reflectedTable<std::uint32_t, 0xEDB88320>();

constexpr std::array<std::uint64_t, 256> forwardTable(std::uint64_t polynomial) {
  std::array<std::uint64_t, 256> table{};
  for (std::uint64_t byte = 0; byte < table.size(); ++byte) {
    std::uint64_t value = byte << 56;
    for (int bit = 0; bit < 8; ++bit) value = value >> 63 != 0 ? value << 1 ^ polynomial : value << 1;
    table[byte] = value;
  }
  return table;
}

constexpr auto kForward64 = forwardTable(0x42F0E1EBA9EA3693);
constexpr auto kMirrored64 = reflectedTable<std::uint64_t, 0x95AC9329AC4BC9B5>();

constexpr std::uint64_t kFactor = 0x343FD, kTerm = 0x269EC3;

// The sums of R2007 take the bytes of eight in another order, and so those of what is left at the end.
template <class Take>
void inOrder(std::string_view bytes, const Take& take) {
  const auto run = [&](std::initializer_list<std::size_t> order) {
    for (const std::size_t at : order) take(static_cast<std::uint8_t>(bytes[at]));
  };
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) run({6, 7, 4, 5, 2, 3, 0, 1});
  if (bytes.size() >= 4) run({2, 3, 0, 1}), bytes.remove_prefix(4);
  for (const char c : bytes) take(static_cast<std::uint8_t>(c));
}

}  // namespace

std::uint16_t crc16(std::uint16_t start, std::string_view bytes) {
  const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  const auto take = [&](const std::size_t count) {
    unsigned next = kAhead16[count - 1][at(0) ^ (start & 0xFF)] ^ kAhead16[count - 2][at(1) ^ start >> 8];
    for (std::size_t i = 2; i < count; ++i) next ^= kAhead16[count - 1 - i][at(i)];
    start = static_cast<std::uint16_t>(next);
    bytes.remove_prefix(count);
  };
  while (bytes.size() >= kAhead) take(kAhead);
  if (bytes.size() >= kAhead / 2) take(kAhead / 2);
  if (bytes.size() >= kAhead / 4) take(kAhead / 4);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    start = static_cast<std::uint16_t>(start >> 8 ^ kAhead16[0][(start ^ at(i)) & 0xFF]);
  return start;
}

std::uint32_t crc32(std::uint32_t start, std::string_view bytes) {
  start = ~start;
  for (const char c : bytes) start = start >> 8 ^ kTable32[(start ^ static_cast<std::uint8_t>(c)) & 0xFF];
  return ~start;
}

std::uint32_t pageChecksum(std::uint32_t start, std::string_view bytes) {
  std::uint32_t low = start & 0xFFFF, high = start >> 16;
  while (!bytes.empty()) {
    const std::string_view chunk = bytes.substr(0, kChunk);
    bytes.remove_prefix(chunk.size());
    for (const char c : chunk) low += static_cast<std::uint8_t>(c), high += low;
    low %= kModulus, high %= kModulus;
  }
  return high << 16 | low;
}

std::uint64_t headerCrc64(std::string_view bytes) {
  std::uint64_t crc = bytes.size() * kFactor + kTerm;
  crc = ~(crc * ((std::uint64_t{1} << 32) + kFactor) + bytes.size() + kTerm);
  inOrder(bytes, [&](std::uint8_t byte) { crc = kForward64[(byte ^ crc >> 56) & 0xFF] ^ crc << 8; });
  return ~crc;
}

std::uint64_t pageCrc64(std::uint64_t seed, std::string_view bytes) {
  std::uint64_t crc = (seed + bytes.size()) * kFactor + kTerm;
  crc = ~(crc | (crc * (kFactor << 32) + (kTerm << 32)));
  inOrder(bytes, [&](std::uint8_t byte) { crc = kMirrored64[(crc ^ byte) & 0xFF] ^ crc >> 8; });
  return crc;
}

std::uint32_t dataChecksum(std::string_view bytes) {
  const std::uint64_t seed = bytes.size() * kFactor + kTerm;
  std::uint32_t low = seed & 0xFFFF, high = seed >> 16 & 0xFFFF;
  while (!bytes.empty()) {
    const std::string_view chunk = bytes.substr(0, kChunk);
    bytes.remove_prefix(chunk.size());
    inOrder(chunk, [&](std::uint8_t byte) { low += byte, high += low; });
    low %= kModulus, high %= kModulus;
  }
  return high << 16 | low;
}

}  // namespace cad::dwg
