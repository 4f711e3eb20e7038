#include "base/codepage.h"

#include <gtest/gtest.h>

namespace {

using base::decode;
using base::encode;

TEST(CodePage, JapaneseBothWays) {
  const std::string bytes =
      "A\x89\xe6\x91\x77\xb0\xc0\x5c\x83\x5c";  // half-width kana; a trail byte that is a backslash
  const std::wstring text = L"A画層ｰﾀ\\ソ";
  EXPECT_EQ(decode(bytes, 932).text, text);
  EXPECT_TRUE(decode(bytes, 932).clean);
  EXPECT_EQ(encode(text, 932).bytes, bytes);
  EXPECT_TRUE(encode(text, 932).clean);
}

TEST(CodePage, JapanesePageIsTheWindowsOne) {
  EXPECT_EQ(decode("\x81\x60", 932).text, L"～");  // full-width tilde, not the wave dash of the standard
  EXPECT_EQ(decode("\x87\x40", 932).text, L"①");   // vendor extension
  EXPECT_EQ(encode(L"①", 932).bytes, "\x87\x40");
  EXPECT_EQ(decode("\x7e", 932).text, L"~");
}

TEST(CodePage, LookAlikesAreNotInThePage) {
  EXPECT_EQ(base::encodeCharacter(L'\u00a5', 932), "");  // a yen sign must not turn into a path separator
  const auto encoded = encode(L"a\u00a5b\U0001F600", 932);
  EXPECT_FALSE(encoded.clean);
  EXPECT_EQ(encoded.bytes, "a?b?");
}

TEST(CodePage, InvalidBytesAreReplacedOneByOne) {
  const auto cut = decode("ab\x89", 932);
  EXPECT_FALSE(cut.clean);
  EXPECT_EQ(cut.text, L"ab\uFFFD");
  const auto badTrail = decode("\x89\x20x", 932);
  EXPECT_FALSE(badTrail.clean);
  EXPECT_EQ(badTrail.text, L"\uFFFD x");
  EXPECT_FALSE(decode("\xff", 20127).clean);
}

TEST(CodePage, OtherPages) {
  EXPECT_EQ(decode("\x80\xe9", 1252).text, L"€é");
  EXPECT_EQ(decode("\x81", 437).text, L"ü");
  EXPECT_EQ(decode("\xa4", 28605).text, L"€");
  EXPECT_EQ(decode("\x8a", 10000).text, L"ä");
  EXPECT_EQ(decode("\xb0\xa1", 949).text, L"가");
  EXPECT_EQ(decode("\xa4\x40", 950).text, L"一");
  EXPECT_EQ(encode(L"一", 936).bytes, "\xd2\xbb");
  EXPECT_FALSE(base::isKnownCodePage(12345));
  EXPECT_FALSE(decode("\x80", 12345).clean);
}

TEST(CodePage, Utf8RoundTripAndRefusals) {
  const std::wstring text = L"aé画\U0001F600";
  EXPECT_EQ(base::fromUtf8(base::toUtf8(text)), text);
  for (const char* bad : {"\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe7\x94", "\x80"}) {
    EXPECT_FALSE(decode(bad, base::kUtf8).clean) << bad;
  }
}

}  // namespace
