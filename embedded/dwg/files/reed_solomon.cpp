#include "embedded/dwg/files/reed_solomon.h"

#include <algorithm>

namespace cad::dwg {

ReedSolomon::ReedSolomon(std::size_t parity, unsigned polynomial) : parity_(parity) {
  unsigned value = 1;
  for (std::size_t i = 0; i < power_.size(); ++i) {
    power_[i] = static_cast<std::uint8_t>(value);
    exponent_[value] = static_cast<std::uint8_t>(i);
    value <<= 1;
    if ((value & 0x100) != 0) value ^= polynomial;
  }
  // The product of (x - power) for the powers from 1 on.
  std::string generator(1, '\1');
  for (std::size_t i = 1; i <= parity; ++i) {
    std::string next = generator + '\0';
    for (std::size_t j = 0; j < generator.size(); ++j) {
      const auto more = product(static_cast<std::uint8_t>(generator[j]), power_[i]);
      next[j + 1] = static_cast<char>(static_cast<std::uint8_t>(next[j + 1]) ^ more);
    }
    generator = std::move(next);
  }
  for (unsigned factor = 0; factor < 256; ++factor) {
    for (std::size_t i = 1; i <= parity; ++i) {
      products_ += static_cast<char>(
          product(static_cast<std::uint8_t>(factor), static_cast<std::uint8_t>(generator[i])));
    }
  }
}

const ReedSolomon& ReedSolomon::ofSystemPages() {
  static const ReedSolomon code(16, 0x169);
  return code;
}

const ReedSolomon& ReedSolomon::ofDataPages() {
  static const ReedSolomon code(4, 0x11D);
  return code;
}

std::uint8_t ReedSolomon::product(std::uint8_t a, std::uint8_t b) const {
  if (a == 0 || b == 0) return 0;
  return power_[(std::size_t{exponent_[a]} + exponent_[b]) % power_.size()];
}

// A block is a polynomial with its first byte as the coefficient of the lowest power.
std::string ReedSolomon::parityOf(std::string_view block) const {
  std::string rest(parity_ + 1, '\0');  // one more, which stays 0
  for (auto byte = block.rbegin(); byte != block.rend(); ++byte) {
    const auto factor = static_cast<std::uint8_t>(*byte ^ rest.front());
    const char* const products = products_.data() + factor * parity_;
    for (std::size_t i = 0; i < parity_; ++i) rest[i] = static_cast<char>(rest[i + 1] ^ products[i]);
  }
  rest.pop_back();
  std::reverse(rest.begin(), rest.end());
  return rest;
}

std::string ReedSolomon::decoded(std::string_view coded, std::size_t blocks) const {
  std::string result(blocks * data(), '\0');
  std::size_t to = 0;
  for (std::size_t block = 0; block < blocks; ++block) {
    for (std::size_t i = 0; i < data(); ++i) result[to++] = coded[i * blocks + block];
  }
  return result;
}

std::string ReedSolomon::coded(std::string_view bytes, std::string_view padding) const {
  const std::size_t count = blocks(bytes.size());
  std::string filled(bytes);
  filled += padding.substr(0, count * data() - bytes.size());
  const std::string checks = parity(filled, {});
  std::string result(count * kBlock, '\0');
  for (std::size_t block = 0; block < count; ++block) {
    for (std::size_t i = 0; i < kBlock; ++i) {
      result[i * count + block] =
          i < data() ? filled[block * data() + i] : checks[block * parity_ + i - data()];
    }
  }
  return result;
}

std::string ReedSolomon::parity(std::string_view bytes, std::string_view padding) const {
  std::string result;
  for (std::size_t at = 0; at < bytes.size(); at += data()) {
    std::string block(bytes.substr(at, data()));
    block += padding.substr(0, data() - block.size());
    result += parityOf(block);
  }
  return result;
}

}  // namespace cad::dwg
