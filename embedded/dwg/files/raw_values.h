#pragma once
// Whole bytes and integers in a view, with the least significant byte first.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"

namespace cad::dwg {

// `at` and as many bytes as the type has must be within `bytes`.
template <class Integer>
Integer rawAt(std::string_view bytes, std::uint64_t at) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < sizeof(Integer); ++i) {
    value |= std::uint64_t{static_cast<std::uint8_t>(bytes[static_cast<std::size_t>(at) + i])} << (8 * i);
  }
  return static_cast<Integer>(value);
}

template <class Integer>
void putRaw(std::string& bytes, std::uint64_t at, Integer value) {
  for (std::size_t i = 0; i < sizeof(Integer); ++i) {
    bytes[static_cast<std::size_t>(at) + i] = static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i));
  }
}

template <class Integer>
void appendRaw(std::string& bytes, Integer value) {
  bytes.resize(bytes.size() + sizeof(Integer));
  putRaw(bytes, bytes.size() - sizeof(Integer), value);
}

// Whether `length` bytes at `at` are within `size` bytes.
inline bool isWithin(std::uint64_t at, std::uint64_t length, std::uint64_t size) {
  return at <= size && length <= size - at;
}

inline std::string_view part(std::string_view bytes, std::uint64_t at, std::uint64_t length) {
  return bytes.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(length));
}

// Why a file is not read, and where.
inline base::Failure refusal(std::uint64_t byte, std::wstring reason) {
  return {L"byte " + std::to_wstring(byte), std::move(reason)};
}

}  // namespace cad::dwg
