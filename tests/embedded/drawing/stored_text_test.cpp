#include "embedded/drawing/stored_text.h"

#include <gtest/gtest.h>

namespace cad {
namespace {

TEST(StoredText, EscapesAreDecodedAfterTheCodePage) {
  EXPECT_EQ(decodeStored("a\\U+3042b", 1252), L"a\u3042b");
  EXPECT_EQ(decodeStored("\\M+182A0\\M+5B0A1", 1252), L"\u3042\u554A");
  EXPECT_EQ(decodeStored("\xE9\\u+00e9", 1252), L"\u00E9\u00E9");
  EXPECT_EQ(decodeStored("\\U+30", 1252), L"\\U+30") << "not a whole escape";
  EXPECT_EQ(decodeStored("\\U+D83D\\U+DE00", 1252),
            sizeof(wchar_t) > 2 ? std::wstring{wchar_t(0x1F600)} : std::wstring(L"\xD83D\xDE00"));
}

TEST(StoredText, ASecondByteThatLooksLikeABackslashIsNone) {
  // 0x95 0x5C is one character of code page 932; what follows would otherwise be an escape.
  EXPECT_EQ(decodeStored("\x95\x5CU+3042", 932), L"\u8868U+3042");
  EXPECT_EQ(decodeStored("\x95\x5C\\U+3042", 932), L"\u8868\u3042");
  EXPECT_EQ(decodeStored("\xB1\\U+3042", 932), L"\uFF71\u3042") << "half-width katakana are single bytes";
  EXPECT_EQ(storedUnit("\x95\x5CU+3042", 0, 932), 2u);
}

TEST(StoredText, CharactersThatTheCodePageLacksBecomeEscapes) {
  EXPECT_EQ(encodeStored(L"\u8868\u00E9", 932), "\x95\x5C\\U+00E9");
  EXPECT_EQ(encodeStored(L"\u3042", 1252), "\\U+3042");
  EXPECT_EQ(encodeStored(L"\u3042", 65001), "\xE3\x81\x82");
  EXPECT_EQ(encodeStored(L"a\nb\t", 1252), "a^Jb^I") << "a line end would break the record";
  for (const base::CodePage page : {932, 1252, 65001, 850}) {
    const std::wstring text = L"A\u8868\u00E9\u0416\\x";
    EXPECT_EQ(decodeStored(encodeStored(text, page), page), text) << page;
  }
}

}  // namespace
}  // namespace cad
