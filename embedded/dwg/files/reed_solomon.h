#pragma once
// The Reed-Solomon code of pages in R2007: blocks of 255 bytes, some of them parity.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cad::dwg {

class ReedSolomon {
 public:
  static constexpr std::size_t kBlock = 255;
  static const ReedSolomon& ofSystemPages();  // 239 bytes of data in a block
  static const ReedSolomon& ofDataPages();    // 251 bytes

  std::size_t data() const { return kBlock - parity_; }
  std::size_t blocks(std::size_t length) const { return (length + data() - 1) / data(); }

  // The data of interleaved blocks; `coded` has at least so many. Parity is not looked at.
  std::string decoded(std::string_view coded, std::size_t blocks) const;
  // Interleaved blocks. What the last one lacks is taken from `padding`, which must have as much.
  std::string coded(std::string_view data, std::string_view padding) const;
  // The parity of all blocks one after the other, for data that is not interleaved.
  std::string parity(std::string_view data, std::string_view padding) const;

 private:
  ReedSolomon(std::size_t parity, unsigned polynomial);
  std::string parityOf(std::string_view block) const;
  std::uint8_t product(std::uint8_t a, std::uint8_t b) const;

  std::size_t parity_;
  std::array<std::uint8_t, 255> power_{};
  std::array<std::uint8_t, 256> exponent_{};
  std::string products_;  // of every byte with the coefficients of the generator behind the first, which is 1
};

}  // namespace cad::dwg
