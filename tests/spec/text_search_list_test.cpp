#include "spec/text_search_list.h"

#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

class TextSearchList : public test_support::TempFolder {};

using Rows = std::vector<std::wstring>;

TEST_F(TextSearchList, LinesStandAsTheyAre) {
  const auto rows = readTextSearchList(makeText("A.LIST", L"*** mojilist ***\r\n 室* \r\n\r\n会議室"));
  ASSERT_TRUE(rows.ok());
  EXPECT_EQ(rows.value(), (Rows{L" 室* ", L"", L"会議室"}));
  EXPECT_TRUE(readTextSearchList(make("B.LIST", "*** MOJILIST ***")).value().empty());
}

TEST_F(TextSearchList, RefusalsInTheirWords) {
  EXPECT_EQ(readTextSearchList(folder_ / "none").failure().reason, L"ファイルを開くことができませんでした");
  EXPECT_EQ(readTextSearchList(make("A", "")).failure().reason, L"選択されたファイルは使用できません");
  EXPECT_EQ(readTextSearchList(make("B", "x\n*** MOJILIST ***\n")).failure().reason,
            L"選択されたファイルは使用できません");
  EXPECT_EQ(writeTextSearchList(folder_ / "none" / "A", {}).failure().kind, base::FailureKind::kNoSuchFolder);
  EXPECT_FALSE(writeTextSearchList(folder_ / "C", {L"한"}).ok());
  EXPECT_EQ(count(), 2U);
}

}  // namespace
}  // namespace kiv
