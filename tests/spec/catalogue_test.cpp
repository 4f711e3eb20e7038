#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "spec/arrow_catalogue.h"
#include "spec/dimension_catalogue.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

TEST(DimensionCatalogue, RowsStandInTheirOrderAndAreFoundByName) {
  const auto rows = dimensionCatalogue();
  std::set<std::wstring> descriptions;
  std::vector<std::wstring> arrows;
  for (size_t i = 0; i < rows.size(); ++i) {
    const std::wstring name = rows[i].name;
    SCOPED_TRACE(testing::PrintToString(name));
    if (i > 0) {
      EXPECT_LT(std::wstring(rows[i - 1].name), name);
    }
    EXPECT_EQ(findDimensionVariable(L"d" + name.substr(1)), static_cast<int>(i));
    EXPECT_TRUE(descriptions.insert(rows[i].description).second) << "a description of two variables";
    EXPECT_TRUE(descriptions.rbegin()->ends_with(L'。'));
    if (rows[i].isArrow()) arrows.push_back(name);
  }
  EXPECT_EQ(arrows, (std::vector<std::wstring>{L"DIMBLK", L"DIMBLK1", L"DIMBLK2", L"DIMLDRBLK"}));
  EXPECT_EQ(findDimensionVariable(L"DIMBLKX"), -1);
}

TEST(ArrowCatalogue, BuiltInArrowsAreFoundByNameAndThePromptIsNone) {
  const auto rows = arrowCatalogue();
  std::set<std::wstring> names;
  for (const ArrowName& row : rows) {
    const bool isPrompt = &row == &rows.back();
    const wchar_t* found = builtInArrow(row.blockName);
    EXPECT_EQ(found == nullptr ? L"" : std::wstring(found), isPrompt ? L"" : std::wstring(row.blockName));
    EXPECT_TRUE(names.insert(row.blockName).second && names.insert(row.displayName).second);
  }
  EXPECT_EQ(arrowText(rows.front()), L"塗り潰し矢印 (.)");
  EXPECT_EQ(arrowText(rows.back()), L"ﾕｰｻﾞ指定 (ﾌﾞﾛｯｸ名を入力)");
  EXPECT_STREQ(builtInArrow(L"_Closedblank"), L"_CLOSEDBLANK");
  EXPECT_FALSE(isBuiltInArrow(L""));
}

TEST(ItemKinds, VariablesAreFoundAfterThem) {
  EXPECT_TRUE(lookUpKey(L"ロック")->variable.empty());
  EXPECT_EQ(lookUpKey(L"dimasz")->kind, kVariableKind);
  EXPECT_EQ(lookUpKey(L"dimasz")->variable, L"DIMASZ");
  EXPECT_FALSE(lookUpKey(L"").has_value() || lookUpKey(L"DIMFOO").has_value());
}

}  // namespace
}  // namespace kiv
