#include "embedded/drawing/plain_text.h"

#include <gtest/gtest.h>

#include "base/codepage.h"

namespace cad {
namespace {

TEST(PlainText, SingleLines) {
  EXPECT_EQ(plainLine(L"%%u見出し%%u %%c50%%p0.1 45%%d %%065 100%%%"), L"見出し ∅50±0.1 45° A 100%");
  EXPECT_EQ(plainLine(L"50%% %%x %%65 %%999 %%"), L"50%% %%x %%65 %%999 %%");
}

TEST(PlainText, CodesGoAndCharactersStay) {
  const struct {
    const wchar_t *contents, *plain;
  } kRows[] = {
      {L"plain", L"plain"},
      {L"a\\Pb\\Nc", L"a\nb\nc"},
      {L"a\\~b", L"a b"},
      {L"\\\\ \\{x\\}", L"\\ {x}"},
      {L"{\\fArial|b0|i0|c128|p34;A}{\\H2.5x;B}", L"AB"},
      {L"\\A1;\\C3;\\c255;\\Fromans;\\Q15;\\T1.2;\\W0.8;\\pi1,l2;x", L"x"},
      {L"\\Lunder\\l \\Oover\\o \\Kthrough\\k", L"under over through"},
      {L"\\S1/2; \\S+0.1^ -0.2; \\S3#4;", L"1/2 +0.1/-0.2 3/4"},
      {L"\\U+5BF8\\U+00e9", L"\x5BF8\x00E9"},
      {L"90%%d %%p1 %%c5 %%% %%065 50%%", L"90\x00B0 \x00B1\x31 \x2205\x35 % A 50%%"},
      {L"a^Ib^Jc^ d", L"a\tb\nc^d"},
      {L"\\Hopen", L"open"},
      {L"\\z \\U+12 end\\", L"\\z \\U+12 end\\"},
      {L"", L""},
  };
  for (const auto& row : kRows) EXPECT_EQ(plainText(row.contents), row.plain) << base::toUtf8(row.contents);
}

}  // namespace
}  // namespace cad
