#include "engine/pattern_rename.h"

#include <gtest/gtest.h>

namespace {

TEST(PatternRename, GivesTheNewNameOrNone) {
  const struct {
    const wchar_t *name, *from, *to, *expected;  // null: the patterns do not fit
  } cases[] = {
      {L"A-WALL", L"A-*", L"B-*", L"B-WALL"},
      {L"WALL", L"*", L"X-*", L"X-WALL"},
      {L"A12B", L"A*B", L"C*", L"C12"},
      {L"A12B", L"A*B", L"C*D", L"C12D"},
      {L"1-2-3", L"*-*-*", L"*+*=*", L"1+2=3"},
      {L"PLAN_WALL_1F", L"*_*_?F", L"*-*-?", L"PLAN-WALL-1"},
      {L"壁-1F", L"壁-*", L"WALL-*", L"WALL-1F"},
      // wildcards side by side copy one character each
      {L"A12", L"A**", L"B*-*", L"B12"},
      {L"A1234", L"A?*", L"B?*", L"B1234"},
      {L"A1234", L"A***", L"B*x*y*z", L"B1234z"},
      {L"AB", L"A?*", L"C?*", L"CB"},
      // "?" is not bound to one character where a literal follows it
      {L"A1-B", L"A?-B", L"X?-Y", L"X1-Y"},
      {L"A1", L"A?", L"B?", L"B1"},
      // a result without wildcards is the name
      {L"A-WALL", L"A-*", L"NEW", L"NEW"},
      {L"A-WALL", L"*", L"NEW", L"NEW"},
      // patterns that do not fit
      {L"C-WALL", L"A-*", L"B-*", nullptr},
      {L"A-WALL", L"A-*", L"B-*-*", nullptr},
      {L"A-WALL", L"A-*", L"B-?", nullptr},
      {L"A1B2", L"A?B*", L"*-?", nullptr},
      {L"A-WALL", L"", L"B-*", nullptr},
      {L"C-WALL", L"A-*", L"NEW", nullptr},
      // rules are upper-cased when they are read; layers of drawings are not
      {L"a-Wall", L"A-*", L"B-*", L"B-Wall"},
      {L"Plan-wall-x", L"PLAN-*-X", L"*", L"wall"},
  };
  for (const auto& [name, from, to, expected] : cases) {
    const auto renamed = kiv::renameByPattern(name, from, to);
    EXPECT_EQ(renamed, expected ? std::optional<std::wstring>(expected) : std::nullopt)
        << testing::PrintToString(std::wstring(name)) << " by " << testing::PrintToString(std::wstring(from));
  }
}

TEST(PatternRename, OnlyThirtyWildcardsCount) {
  const std::wstring thirty(30, L'?'), thirtyOne(31, L'?');
  const std::wstring name(31, L'n');
  // The thirty-first is literal text on both sides, and the name does not hold it.
  EXPECT_FALSE(kiv::renameByPattern(name, thirtyOne, L"X" + thirtyOne));
  EXPECT_EQ(kiv::renameByPattern(std::wstring(30, L'n'), thirty, L"X" + thirty),
            L"X" + std::wstring(30, L'n'));
}

}  // namespace
