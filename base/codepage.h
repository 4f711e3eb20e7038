#pragma once
// Narrow text in a named code page to wide strings and back.

#include <string>
#include <string_view>

namespace base {

// A code page by its Windows number: 932 Japanese, 1252 Western, 65001 UTF-8, 437/850/... DOS,
// 20127 ASCII, 28591.. ISO 8859, 10000 Macintosh Roman. Others: isKnownCodePage() is false.
using CodePage = int;
inline constexpr CodePage kJapanese = 932;
inline constexpr CodePage kUtf8 = 65001;

bool isKnownCodePage(CodePage page);

// True when a byte in 0x80..0xFF may be the first of a two-byte character in which the second may be
// an ASCII byte (932, 936, 949, 950, 1361): a backslash byte is then not always a backslash.
bool isDoubleByte(CodePage page);

struct Decoded {
  std::wstring text;
  bool clean = true;  // false: some bytes were not valid in the code page; each became U+FFFD
};
Decoded decode(std::string_view bytes, CodePage page);

struct Encoded {
  std::string bytes;
  bool clean = true;  // false: some character does not exist in the code page; each became '?'
};
Encoded encode(std::wstring_view text, CodePage page);

// One character; empty when the code page does not have it.
std::string encodeCharacter(wchar_t character, CodePage page);

// UTF-16 in the byte order of Windows, without its mark. Half a character at the end is left out.
std::wstring decodeUtf16(std::string_view bytes);

// UTF-8 for the terminal and for file names on systems that use it.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

}  // namespace base
