#include "embedded/drawing/wildcard.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "acutads.h"

namespace {

struct Case {
  const wchar_t* pattern;
  const wchar_t* text;
  bool matches;
};

TEST(Wildcard, Language) {
  const Case cases[] = {
      {L"", L"", true},
      {L"", L"A", false},
      {L"*", L"", true},
      {L"ABC", L"ABC", true},
      {L"ABC", L"abc", false},
      {L"ABC", L"ABCD", false},
      {L"A#", L"A7", true},
      {L"A#", L"AB", false},
      {L"A@", L"AB", true},
      {L"A@", L"A7", false},
      {L"@", L"壁", true},
      {L"A.B", L"A-B", true},
      {L"A.B", L"A1B", false},
      {L"A.B", L"AxB", false},
      {L"A?C", L"ABC", true},
      {L"A?C", L"AC", false},
      {L"*-WALL", L"A-B-WALL", true},
      {L"*A*B*", L"xxAyyBzz", true},
      {L"*A*B*", L"xxByyAzz", false},
      {L"~*WALL*", L"DOOR", true},
      {L"~*WALL*", L"A-WALL-1", false},
      {L"~~A", L"~A", false},
      {L"A~B", L"A~B", true},  // only a leading tilde negates
      {L"[AB]1", L"B1", true},
      {L"[AB]1", L"C1", false},
      {L"[~AB]1", L"C1", true},
      {L"[~AB]1", L"A1", false},
      {L"[A-C]1", L"B1", true},
      {L"[A-C]1", L"D1", false},
      {L"[-A]1", L"-1", true},
      {L"[A-]1", L"-1", true},
      {L"[A`-C]1", L"-1", true},
      {L"[A`-C]1", L"B1", false},
      {L"[`]]1", L"]1", true},
      {L"[AB", L"[AB", true},  // never closed: a bracket like any other character
      {L"A,B", L"B", true},
      {L"A,B", L"A,B", false},
      {L"A`,B", L"A,B", true},
      {L"`*A", L"*A", true},
      {L"`*A", L"XA", false},
      {L"A``", L"A`", true},
      {L"A`", L"A`", true},
      {L"~A,A", L"A", true},
      {L",", L"", true},
      {L"壁*,柱*", L"柱-1", true},
  };
  for (const Case& each : cases)
    EXPECT_EQ(acutWcMatch(each.text, each.pattern) == RTNORM, each.matches)
        << testing::PrintToString(std::wstring(each.pattern)) << " on "
        << testing::PrintToString(std::wstring(each.text));
}

TEST(Wildcard, IgnoresCaseOnRequest) {
  EXPECT_FALSE(acutWcMatchEx(L"wall-1", L"WALL-#", false));
  EXPECT_TRUE(acutWcMatchEx(L"wall-1", L"WALL-#", true));
  EXPECT_TRUE(acutWcMatchEx(L"b", L"[A-C]", true));
  EXPECT_FALSE(acutWcMatchEx(L"b", L"[~A-C]", true));
  EXPECT_TRUE(acutWcMatchEx(L"ｗａｌｌ", L"ＷＡＬＬ", true));
  EXPECT_FALSE(acutWcMatchEx(nullptr, L"*", true));
  EXPECT_EQ(acutWcMatch(L"A", nullptr), RTERROR);
}

// A matcher that tries every way to share the text among the stars would need years for these.
TEST(Wildcard, ManyStarsStayCheap) {
  std::wstring pattern;
  for (int i = 0; i < 200; ++i) pattern += L"*a";
  pattern += L"b";
  const std::wstring text(20000, L'a');
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(cad::Wildcard(pattern).matches(text));
  EXPECT_FALSE(cad::Wildcard(std::wstring(5000, L'*') + L"x").matches(text));
  EXPECT_TRUE(cad::Wildcard(std::wstring(5000, L'*')).matches(text));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
