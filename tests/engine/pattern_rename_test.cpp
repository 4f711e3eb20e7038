#include "engine/pattern_rename.h"

#include <gtest/gtest.h>

namespace {

struct Case {
  const wchar_t* name;
  const wchar_t* from;
  const wchar_t* to;
  const wchar_t* expected;  // null: the patterns do not fit
};

class PatternRename : public testing::TestWithParam<Case> {};

TEST_P(PatternRename, GivesTheNewName) {
  const Case& c = GetParam();
  const auto renamed = kiv::renameByPattern(c.name, c.from, c.to);
  if (c.expected == nullptr) {
    EXPECT_FALSE(renamed) << testing::PrintToString(*renamed);
  } else {
    ASSERT_TRUE(renamed);
    EXPECT_EQ(*renamed, c.expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Literals, PatternRename,
                         testing::Values(Case{L"A-WALL", L"A-*", L"B-*", L"B-WALL"},
                                         Case{L"WALL", L"*", L"X-*", L"X-WALL"},
                                         Case{L"A12B", L"A*B", L"C*", L"C12"},
                                         Case{L"A12B", L"A*B", L"C*D", L"C12D"},
                                         Case{L"1-2-3", L"*-*-*", L"*+*=*", L"1+2=3"},
                                         Case{L"PLAN_WALL_1F", L"*_*_?F", L"*-*-?", L"PLAN-WALL-1"},
                                         Case{L"壁-1F", L"壁-*", L"WALL-*", L"WALL-1F"}));

INSTANTIATE_TEST_SUITE_P(WildcardsSideBySideCopyOneCharacter, PatternRename,
                         testing::Values(Case{L"A12", L"A**", L"B*-*", L"B12"},
                                         Case{L"A1234", L"A?*", L"B?*", L"B1234"},
                                         Case{L"A1234", L"A***", L"B*x*y*z", L"B1234z"},
                                         Case{L"AB", L"A?*", L"C?*", L"CB"}));

// "?" is not bound to one character where a literal follows it.
INSTANTIATE_TEST_SUITE_P(QuestionMarks, PatternRename,
                         testing::Values(Case{L"A1-B", L"A?-B", L"X?-Y", L"X1-Y"},
                                         Case{L"A1", L"A?", L"B?", L"B1"}));

INSTANTIATE_TEST_SUITE_P(ResultWithoutWildcardsIsTheName, PatternRename,
                         testing::Values(Case{L"A-WALL", L"A-*", L"NEW", L"NEW"},
                                         Case{L"A-WALL", L"*", L"NEW", L"NEW"}));

INSTANTIATE_TEST_SUITE_P(
    DoNotFit, PatternRename,
    testing::Values(Case{L"C-WALL", L"A-*", L"B-*", nullptr}, Case{L"A-WALL", L"A-*", L"B-*-*", nullptr},
                    Case{L"A-WALL", L"A-*", L"B-?", nullptr}, Case{L"A1B2", L"A?B*", L"*-?", nullptr},
                    Case{L"A-WALL", L"", L"B-*", nullptr}, Case{L"C-WALL", L"A-*", L"NEW", nullptr}));

// Rules are upper-cased when they are read; layers of drawings are not.
INSTANTIATE_TEST_SUITE_P(CaseIsIgnoredAndKept, PatternRename,
                         testing::Values(Case{L"a-Wall", L"A-*", L"B-*", L"B-Wall"},
                                         Case{L"Plan-wall-x", L"PLAN-*-X", L"*", L"wall"}));

TEST(PatternRename, OnlyThirtyWildcardsCount) {
  const std::wstring thirty(30, L'?'), thirtyOne(31, L'?');
  const std::wstring name(31, L'n');
  // The thirty-first is literal text on both sides, and the name does not hold it.
  EXPECT_FALSE(kiv::renameByPattern(name, thirtyOne, L"X" + thirtyOne));
  EXPECT_EQ(kiv::renameByPattern(std::wstring(30, L'n'), thirty, L"X" + thirty),
            L"X" + std::wstring(30, L'n'));
}

}  // namespace
