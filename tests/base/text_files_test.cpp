#include "base/text_files.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(TextFiles, LinesOfAnyEnding) {
  const auto lines = textLines(
      "a\r\n\r\n\x89\xe6\nlast\x1a"
      "behind\n\x1a");
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0].text, L"a");
  EXPECT_EQ(lines[1].text, L"");
  EXPECT_EQ(lines[2].text, L"画");
  EXPECT_EQ(lines[3].text, L"last");
  EXPECT_TRUE(textLines("").empty());
  EXPECT_EQ(textLines("a\n").size(), 1U);
  EXPECT_FALSE(textLines("ok\n\xff\n")[1].clean);
}

TEST(TextFiles, WrittenWithCarriageReturns) {
  EXPECT_EQ(encodeText(L"画\n\n").bytes, "\x89\xe6\r\n\r\n");
  EXPECT_FALSE(encodeText(L"한\n").clean);
  EXPECT_EQ(unwritableCharacters(L"a한b€한"), L"한€");
}

}  // namespace
}  // namespace base
