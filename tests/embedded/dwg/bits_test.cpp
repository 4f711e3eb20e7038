#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/bits/crc.h"

namespace cad::dwg {
namespace {

// Every code behind three bits, so that none begins at a byte.
template <class Write>
BitWriter written(const Write& write) {
  BitWriter writer;
  writer.bits(5, 3);
  write(writer);
  return writer;
}

template <class Value, class Write, class Read>
void expectSame(const Value& value, std::uint64_t bits, const Write& write, const Read& read) {
  const BitWriter writer = written([&](BitWriter& out) { write(out, value); });
  EXPECT_EQ(writer.size(), 3 + bits) << ::testing::PrintToString(value);
  BitReader reader(writer.bytes(), 3, writer.size());
  EXPECT_EQ(read(reader), value);
  EXPECT_FALSE(reader.failed());
  EXPECT_EQ(reader.left(), 0U);
  // One bit less is not enough, whatever the code.
  BitReader cut(writer.bytes(), 3, writer.size() - 1);
  read(cut);
  EXPECT_TRUE(cut.failed()) << ::testing::PrintToString(value);
}

TEST(DwgBits, NumbersComeBackFromTheirShortestForm) {
  const auto bs = [](int value, unsigned bits) {
    expectSame(
        static_cast<std::int16_t>(value), bits, [](BitWriter& out, std::int16_t v) { out.bs(v); },
        [](BitReader& in) { return in.bs(); });
  };
  bs(0, 2), bs(256, 2), bs(1, 10), bs(255, 10), bs(-1, 18), bs(257, 18), bs(-32768, 18);
  const auto bl = [](std::int32_t value, unsigned bits) {
    expectSame(
        value, bits, [](BitWriter& out, std::int32_t v) { out.bl(v); },
        [](BitReader& in) { return in.bl(); });
  };
  bl(0, 2), bl(255, 10), bl(256, 34), bl(-1, 34), bl(0x12345678, 34);
  const auto bll = [](std::uint64_t value, unsigned bits) {
    expectSame(
        value, bits, [](BitWriter& out, std::uint64_t v) { out.bll(v); },
        [](BitReader& in) { return in.bll(); });
  };
  bll(0, 3), bll(0x80, 11), bll(0x123456, 27), bll(0xFFFFFFFFFFFFFF, 59);
  const auto bd = [](double value, unsigned bits) {
    expectSame(
        value, bits, [](BitWriter& out, double v) { out.bd(v); }, [](BitReader& in) { return in.bd(); });
  };
  bd(0, 2), bd(1, 2), bd(-1.5, 66), bd(-0.0, 66);
}

TEST(DwgBits, DoublesWithADefaultKeepWhatTheDefaultHas) {
  const double base = 1234.5678;
  const auto dd = [&](double value, unsigned bits) {
    expectSame(
        value, bits, [&](BitWriter& out, double v) { out.dd(v, base); },
        [&](BitReader& in) { return in.dd(base); });
  };
  dd(base, 2), dd(std::nextafter(base, 0), 34), dd(base + 1e-2, 50), dd(-7, 66);
}

TEST(DwgBits, ModularNumbersAndTypes) {
  const auto mc = [](std::int64_t value, unsigned bytes) {
    expectSame(
        value, bytes * 8, [](BitWriter& out, std::int64_t v) { out.mc(v); },
        [](BitReader& in) { return in.mc(); });
  };
  mc(0, 1), mc(-63, 1), mc(63, 1), mc(64, 2), mc(-64, 2), mc(-0x123456, 4), mc(std::int64_t{1} << 61, 9);
  const auto umc = [](std::uint64_t value, unsigned bytes) {
    expectSame(
        value, bytes * 8, [](BitWriter& out, std::uint64_t v) { out.umc(v); },
        [](BitReader& in) { return in.umc(); });
  };
  umc(127, 1), umc(128, 2), umc(0x7FFFFFFFFFFFFFFF, 9);
  const auto ms = [](std::uint32_t value, unsigned bytes) {
    expectSame(
        value, bytes * 8, [](BitWriter& out, std::uint32_t v) { out.ms(v); },
        [](BitReader& in) { return in.ms(); });
  };
  ms(0x7FFF, 2), ms(0x8000, 4), ms(0x3FFFFFFF, 4);
  const auto ot = [](unsigned value, unsigned bits, Version version) {
    expectSame(
        value, bits, [&](BitWriter& out, unsigned v) { out.ot(v, version); },
        [&](BitReader& in) { return in.ot(version); });
  };
  ot(19, 10, Version::kR2000), ot(500, 18, Version::kR2000);
  ot(19, 10, Version::kR2010), ot(500, 10, Version::kR2010), ot(0x400, 18, Version::kR2010);
}

TEST(DwgBits, HandlesKeepTheirWidth) {
  for (const HandleReference& handle :
       {HandleReference{5, 2, 0x10}, HandleReference{0, 0, 0}, HandleReference{12, 8, 0xFFFFFFFFFFFFFFFF}}) {
    const BitWriter writer = written([&](BitWriter& out) { out.h(handle); });
    EXPECT_EQ(writer.size(), 3 + 8 + handle.size * 8U);
    BitReader reader(writer.bytes(), 3, writer.size());
    EXPECT_EQ(reader.h(), handle);
  }
  BitWriter widened;
  widened.h({4, 1, 0x1FF});
  EXPECT_EQ(widened.bytes(), std::string("\x42\x01\xFF", 3));
  EXPECT_EQ((HandleReference{6, 0, 0}.absolute(7)), 8U);
  EXPECT_EQ((HandleReference{8, 0, 0}.absolute(7)), 6U);
  EXPECT_EQ((HandleReference{10, 1, 3}.absolute(7)), 10U);
  EXPECT_EQ((HandleReference{12, 1, 3}.absolute(7)), 4U);
  EXPECT_EQ((HandleReference{5, 1, 3}.absolute(7)), 3U);
}

TEST(DwgBits, TextsAndTheVersionsShortForms) {
  expectSame(
      std::string("\x95\\\0x", 4), 42, [](BitWriter& out, const std::string& v) { out.tv(v); },
      [](BitReader& in) { return in.tv(); });
  expectSame(
      std::u16string(u"画層"), 42, [](BitWriter& out, const std::u16string& v) { out.tu(v); },
      [](BitReader& in) { return in.tu(); });
  for (const auto& [version, bits] : {std::pair(Version::kR14, 2 + 6), std::pair(Version::kR2000, 1 + 1)}) {
    const BitWriter writer = written([&](BitWriter& out) {
      out.bt(0, version);
      out.extrusion({0, 0, 1}, version);
    });
    EXPECT_EQ(writer.size(), 3U + static_cast<unsigned>(bits));
    BitReader reader(writer.bytes(), 3, writer.size());
    EXPECT_EQ(reader.bt(version), 0);
    EXPECT_EQ(reader.extrusion(version).z, 1);
    EXPECT_EQ(reader.left(), 0U);
  }
}

TEST(DwgBits, WhatMeansNothingFails) {
  const auto fails = [](std::string_view bytes, const auto& read) {
    BitReader reader(bytes);
    read(reader);
    EXPECT_TRUE(reader.failed());
    EXPECT_EQ(reader.rd(), 0);
  };
  fails("\xC0", [](BitReader& in) { in.bl(); });
  fails("\xC0", [](BitReader& in) { in.bd(); });
  fails("\x09\1\1\1\1\1\1\1\1\1", [](BitReader& in) { in.h(); });
  fails(std::string(20, '\xFF'), [](BitReader& in) { in.umc(); });
  fails(std::string(20, '\xFF'), [](BitReader& in) { in.mc(); });
  fails(std::string(20, '\xFF'), [](BitReader& in) { in.ms(); });
  fails("\x60\x3F abc", [](BitReader& in) { in.tv(); });  // more characters than bytes
  fails("ab", [](BitReader& in) { in.seek(17); });
  EXPECT_TRUE(BitReader("ab", 3, 17).failed());
}

TEST(DwgBits, SpansAreCopiedFromAnyBitToAnyBit) {
  std::string source;
  for (unsigned i = 0; i < 40; ++i) source += static_cast<char>(i * 37 + 11);
  const auto bitOf = [](std::string_view bytes, std::uint64_t at) {
    return BitReader(bytes, at, at + 1).b();
  };
  for (unsigned begin = 0; begin < 18; ++begin) {
    for (unsigned end = begin; end <= 320; end += 29) {
      for (unsigned before = 0; before < 9; before += 4) {
        BitWriter writer;
        writer.bits(0, before);
        writer.copy(source, begin, end);
        ASSERT_EQ(writer.size(), before + end - begin);
        ASSERT_EQ(writer.bytes().size(), (writer.size() + 7) / 8);
        for (unsigned i = 0; i < end - begin; ++i) {
          ASSERT_EQ(bitOf(writer.bytes(), before + i), bitOf(source, begin + i));
        }
      }
    }
  }
}

TEST(DwgBits, Checksums) {
  EXPECT_EQ(crc16(0, "123456789"), 0xBB3D);  // the published check values
  EXPECT_EQ(crc32(0, "123456789"), 0xCBF43926U);
  EXPECT_EQ(pageChecksum(1, "Wikipedia"), 0x11E60398U);
  EXPECT_EQ(pageChecksum(0, std::string(100000, '\xFF')),
            pageChecksum(pageChecksum(0, std::string(60000, '\xFF')), std::string(40000, '\xFF')));
}

}  // namespace
}  // namespace cad::dwg
