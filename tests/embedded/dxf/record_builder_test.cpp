#include "embedded/dxf/record_builder.h"

#include "embedded/dxf/record_tools.h"
#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

std::unique_ptr<DxfStorage> storageOf(Dialect dialect, Version version, base::CodePage page) {
  DrawingFacts facts;
  facts.version = version;
  facts.codePage = page;
  return std::make_unique<DxfStorage>(std::make_unique<SourceBytes>(std::string()), dialect, facts,
                                      FileFrame());
}

using Bytes = std::string;

TEST(RecordBuilder, WritesTextInTheWidthsOfTheFile) {
  const auto wide = storageOf({}, Version::kR2000, 932);
  RecordBuilder a(*wide);
  a.stored(0, "LINE").handle(5, 0x1AF).subclass("AcDbEntity").integer(62, 7).real(40, 2.5).integer(90, 3);
  EXPECT_EQ(a.bytes(),
            "  0\r\nLINE\r\n  5\r\n1AF\r\n100\r\nAcDbEntity\r\n 62\r\n     7\r\n 40\r\n2.5\r\n 90\r\n        "
            "3\r\n");
  const auto narrow = storageOf({.lineEnd = LineEnd::kLf, .codeWidth = 1, .int16Width = 0, .int32Width = 0},
                                Version::kR12, 932);
  RecordBuilder b(*narrow);
  b.stored(0, "LINE").subclass("AcDbEntity").integer(62, 7).real(40, 2);
  EXPECT_EQ(b.bytes(), "0\nLINE\n62\n7\n40\n2.0\n");
}

TEST(RecordBuilder, WritesBinaryWithOneAndTwoByteCodes) {
  const auto wide = storageOf({.binary = true}, Version::kR2000, 932);
  RecordBuilder a(*wide);
  a.integer(70, 258).integer(290, 1).chunk(310, "ab").stored(2, "X");
  EXPECT_EQ(a.bytes(), Bytes("\x46\0\x02\x01\x22\x01\x01\x36\x01\x02"
                             "ab\x02\0X\0",
                             16));
  const auto narrow = storageOf({.binary = true, .wideCodes = false}, Version::kR12, 932);
  RecordBuilder b(*narrow);
  b.integer(70, 1).integer(1070, 5);
  EXPECT_EQ(b.bytes(), Bytes("\x46\x01\0\xFF\x2E\x04\x05\0", 8));
}

TEST(RecordBuilder, EscapesWhatTheCodePageLacks) {
  const auto western = storageOf({}, Version::kR2000, 1252);
  RecordBuilder a(*western);
  a.text(1, L"\x58C1 \x00E9");
  EXPECT_EQ(a.bytes(), "  1\r\n\\U+58C1 \xE9\r\n");
}

TEST(RecordBuilder, CopiesGroupsFromAnotherFormAndCodePage) {
  const auto japanese = storageOf({}, Version::kR12, 932);
  const auto unicode = storageOf({.binary = true}, Version::kR2018, base::kUtf8);
  RecordBuilder from(*japanese);
  from.text(1, L"\x58C1").real(40, 0.1).integer(70, -3).chunk(310, "\x01\xFF");
  RecordBuilder to(*unicode);
  GroupCursor there(from.bytes(), japanese->dialect());
  while (there.next()) ASSERT_TRUE(to.copy(there.group(), *japanese));
  RecordBuilder back(*japanese);
  GroupCursor here(to.bytes(), unicode->dialect());
  while (here.next()) ASSERT_TRUE(back.copy(here.group(), *unicode));
  EXPECT_EQ(back.bytes(), from.bytes());
  EXPECT_NE(to.bytes().find("\xE5\xA3\x81"), Bytes::npos);

  Group broken;
  broken.code = 70;
  broken.value = "seven";
  EXPECT_FALSE(to.copy(broken, *japanese));
}

}  // namespace
}  // namespace cad::dxf
