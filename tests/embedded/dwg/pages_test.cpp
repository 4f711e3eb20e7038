#include <gtest/gtest.h>

#include <random>

#include "embedded/dwg/files/coded_compression.h"
#include "embedded/dwg/files/page_compression.h"
#include "embedded/dwg/files/reed_solomon.h"

namespace cad::dwg {
namespace {

std::string bytes(std::initializer_list<int> values) {
  std::string result;
  for (const int value : values) result += static_cast<char>(value);
  return result;
}

// What pages hold, and what is hard for a compressor.
std::vector<std::string> contents() {
  std::mt19937 random(7);
  const auto noise = [&](std::size_t count, unsigned range) {
    std::string result;
    while (result.size() < count) result += static_cast<char>(random() % range);
    return result;
  };
  std::vector<std::string> all = {"four", "abcdabcdabcdabcdabcd", std::string(4, '\0'),
                                  std::string(70000, '\0')};
  for (std::size_t size = 4; size < 90; ++size) all.push_back(noise(size, 3));
  for (const std::size_t size : {273U, 274U, 528U, 529U, 0x7400U, 70528U, 200000U})
    all.push_back(noise(size, 256));
  for (const std::size_t distance :
       {0x1FFU, 0x200U, 0x201U, 0x3FFU, 0x400U, 0x401U, 0xFFFU, 0x1001U, 0x1FFFU, 0x2001U, 0x3FFFU, 0x4000U,
        0x4001U, 0x7FFFU, 0x8001U, 0xFFFFU, 0x10000U}) {
    for (const std::size_t length : {3U, 4U, 14U, 15U, 18U, 19U, 33U, 34U, 50U, 51U, 255U, 256U, 300U}) {
      const std::string once = noise(length, 256);
      all.push_back(once + noise(distance - std::min(length, distance), 256) + once + noise(length % 9, 256));
    }
  }
  all.push_back(std::string(9, 'a') + std::string(0x10100, 'b') + "c" + std::string(0x20201, 'd'));
  return all;
}

TEST(DwgPages, CompressedContentComesBack) {
  for (const std::string& content : contents()) {
    const std::string page = compressPage(content);
    EXPECT_EQ(decompressPage(page, content.size()), content) << content.size();
    EXPECT_EQ(decompressPage(page, content.size() - 1), std::nullopt);
    const std::string coded = compressCoded(content);
    EXPECT_EQ(decompressCoded(coded, content.size()), content) << content.size();
    EXPECT_EQ(decompressCoded(coded, content.size() - 1), std::nullopt);
  }
  EXPECT_LT(compressPage(std::string(70000, '\0')).size(), 300U);
  EXPECT_LT(compressCoded(std::string(70000, '\0')).size(), 30U);
}

TEST(DwgPages, EveryFormOfAMatchIsRead) {
  // Four literal bytes, three from one before with one literal byte, then thirty-six from four before.
  EXPECT_EQ(decompressPage(bytes({1, 'a', 'b', 'c', 'd', 0x41, 0, 'e', 0x20, 3, 0x0C, 0, 0x11, 0, 0}), 100),
            "abcdddde"
            "ddde"
            "ddde"
            "ddde"
            "ddde"
            "ddde"
            "ddde"
            "ddde"
            "ddde"
            "ddde");
  // From far before, with the bit that adds to the distance and without it; the length in further bytes.
  std::string filled(0x8100, 'x');
  filled[0] = 'y', filled[0x4100] = 'z';
  std::string far = compressPage(filled);
  far.resize(far.size() - 3);
  const auto ends = [&](const std::string& code, const std::string& end) {
    const auto page = decompressPage(far + code + bytes({0x11, 0, 0}), 0x10000);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->substr(0x8100), end);
  };
  ends(bytes({0x12, 0x00, 0x00}), "zxxx");  // 0x4000 before
  ends(bytes({0x1A, 0x00, 0x04}), "yxxx");  // 0x8100 before
  ends(bytes({0x10, 3, 0x00, 0x00}), "z" + std::string(11, 'x'));
  // Behind a literal byte a match of 19 to 50 bytes begins otherwise than behind another match.
  const std::string begun = bytes({0x20, 0, 0, 1, 'a'});
  EXPECT_EQ(decompressCoded(begun + bytes({0x00, 0, 0}), 20), std::string(20, 'a'));
  EXPECT_EQ(decompressCoded(begun + bytes({0x30, 0, 0xF0, 0, 0x80}), 39), std::string(39, 'a'));
  EXPECT_EQ(decompressCoded(begun + bytes({0x20, 1, 0, 0x08, 0x12, 0, 1, 'b'}), 15),
            std::string(14, 'a') + "b");
  EXPECT_EQ(decompressCoded(begun + bytes({0x28, 0, 0, 1, 0}), 0x109), std::string(0x109, 'a'));
}

TEST(DwgPages, WhatIsNoPageIsRefused) {
  EXPECT_FALSE(decompressPage("", 100));
  EXPECT_FALSE(decompressPage(bytes({1, 'a', 'b', 'c'}), 100));  // cut off
  EXPECT_FALSE(
      decompressPage(bytes({1, 'a', 'b', 'c', 'd', 0x41, 4, 'e'}), 100));  // from before the beginning
  EXPECT_FALSE(decompressPage(bytes({1, 'a', 'b', 'c', 'd', 1, 0x11, 0, 0}), 100));  // twice literal
  EXPECT_FALSE(decompressPage(std::string(1000, '\0'), 100));                        // a count without end
  EXPECT_FALSE(decompressPage(bytes({1, 'a', 'b', 'c', 'd', 0x20, 0, 255, 0, 0}), 100));  // too much
  EXPECT_FALSE(decompressCoded("", 100));
  EXPECT_FALSE(decompressCoded(bytes({0x20, 0, 0}), 100));
  EXPECT_FALSE(decompressCoded(bytes({0x20, 0, 0, 1, 'a', 0x31, 0}), 4));
  EXPECT_FALSE(decompressCoded(bytes({0x20, 0, 0, 1, 'a', 0x20, 0, 0, 0x08}), 9));
  EXPECT_FALSE(decompressCoded(std::string(1000, '\xFF'), 100));
}

// Products in the field of a code, the slow way.
unsigned product(unsigned a, unsigned b, unsigned polynomial) {
  unsigned result = 0;
  for (; b != 0; b >>= 1, a <<= 1) {
    if ((a & 0x100) != 0) a ^= polynomial;
    if ((b & 1) != 0) result ^= a;
  }
  return result;
}

TEST(DwgPages, ReedSolomonBlocksAreCodewords) {
  std::string data;
  for (unsigned i = 0; i < 700; ++i) data += static_cast<char>(i * 31 + i / 7);
  const std::string padding(251, 'p');
  for (const auto& [code, polynomial, parity] : {std::tuple(&ReedSolomon::ofSystemPages(), 0x169U, 16U),
                                                 std::tuple(&ReedSolomon::ofDataPages(), 0x11DU, 4U)}) {
    const std::size_t count = code->blocks(data.size());
    ASSERT_EQ(count, 3U);
    const std::string coded = code->coded(data, padding);
    ASSERT_EQ(coded.size(), count * 255);
    EXPECT_EQ(code->decoded(coded, count).substr(0, data.size()), data);
    EXPECT_EQ(code->decoded(coded, count).substr(data.size(), 1), "p");
    EXPECT_EQ(code->parity(data, padding).size(), count * parity);
    for (std::size_t block = 0; block < count; ++block) {
      unsigned root = 1;
      for (unsigned power = 1; power <= parity; ++power) {
        root = product(root, 2, polynomial);
        // Parity first, from its lowest coefficient on, and behind it the data.
        unsigned value = 0;
        for (std::size_t i = 255; i-- > 0;) {
          const std::size_t at = i < parity ? 255 - parity + i : i - parity;
          value = product(value, root, polynomial) ^ static_cast<std::uint8_t>(coded[at * count + block]);
        }
        EXPECT_EQ(value, 0U) << block << ' ' << power;
      }
    }
  }
}

}  // namespace
}  // namespace cad::dwg
