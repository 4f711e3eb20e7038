#include "embedded/dxf/text_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace cad::dxf {
namespace {

// What is read of a code at the beginning of a text: the code, and how much of the text.
std::string codeRead(bool (*take)(const char*&, const char*, int&), const std::string& text) {
  const std::string exact(text.data(), text.size());  // so that a byte too many is noticed
  const char* at = exact.data();
  int code = -99;
  if (!take(at, exact.data() + exact.size(), code)) return "none";
  return std::to_string(code) + " in " + std::to_string(at - exact.data());
}

TEST(TextLines, ACodeIsReadAlikeInThreeColumnsAndAnywhere) {
  const auto read = [](const std::string& text) {
    const std::string quick = codeRead(takeCode<'\n'>, text);
    EXPECT_EQ(quick, codeRead(takeAnyCode<'\n'>, text)) << text;
    EXPECT_EQ(codeRead(takeCode<'\r'>, text), codeRead(takeAnyCode<'\r'>, text)) << text;
    return quick;
  };
  const std::string alphabet = " 019-+:/\t\r\n\x10\x12\xB0";
  std::string columns(3, ' ');
  for (const char a : alphabet)
    for (const char b : alphabet)
      for (const char c : alphabet) {
        columns[0] = a, columns[1] = b, columns[2] = c;
        for (const char* rest : {"", "\n", "\r\n", "\r\r\n", "\nLINE\n", "\r\nLINE\r\n", " \nA\n", "\rABC\r",
                                 "1\r\nAB\r\n", "\r", "\rA\n"})
          read(columns + rest);
      }
  EXPECT_EQ(read("  0\r\nLINE\r\n"), "0 in 5");
  EXPECT_EQ(read("100\nAcDbLine\n"), "100 in 4");
  EXPECT_EQ(read("1071\n     1\n"), "1071 in 5");
  EXPECT_EQ(read(" -5\n     1\n"), "-5 in 4");
  EXPECT_EQ(read("1 0\n     1\n"), "none");
}

TEST(TextLines, TheEndOfALineIsFoundWhereverItStands) {
  for (std::size_t length = 0; length < 40; ++length) {
    for (std::size_t place = 0; place <= length; ++place) {
      std::string text(length, '\r');
      if (place < length) text[place] = '\n';
      const char *const begin = text.data(), *const end = begin + length;
      EXPECT_EQ(findLineEnd<'\n'>(begin, end), std::find(begin, end, '\n'));
    }
  }
}

}  // namespace
}  // namespace cad::dxf
