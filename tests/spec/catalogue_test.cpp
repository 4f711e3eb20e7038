#include <gtest/gtest.h>

#include <set>

#include "spec/arrow_catalogue.h"
#include "spec/dimension_catalogue.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

TEST(DimensionCatalogue, RowsTypesAndOrder) {
  const auto rows = dimensionCatalogue();
  ASSERT_EQ(rows.size(), 66U);
  EXPECT_STREQ(rows.front().name, L"DIMADEC");
  EXPECT_STREQ(rows.back().name, L"DIMZIN");
  int counts[3] = {};
  for (size_t i = 0; i < rows.size(); ++i) {
    ++counts[static_cast<int>(rows[i].type)];
    EXPECT_EQ(findDimensionVariable(rows[i].name), static_cast<int>(i));
    EXPECT_EQ(std::wstring_view(rows[i].description).back(), L'。');
    if (i > 0) {
      EXPECT_LT(std::wstring_view(rows[i - 1].name), rows[i].name);
    }
  }
  EXPECT_EQ(counts[0], 41);
  EXPECT_EQ(counts[1], 17);
  EXPECT_EQ(counts[2], 8);
  EXPECT_EQ(rows[static_cast<size_t>(findDimensionVariable(L"dimaltf"))].type,
            DimensionVariable::Type::kInteger);
  EXPECT_EQ(rows[static_cast<size_t>(findDimensionVariable(L"DimSho"))].type, DimensionVariable::Type::kReal);
  EXPECT_EQ(findDimensionVariable(L"DIMBLKX"), -1);
}

TEST(DimensionCatalogue, ArrowVariables) {
  for (const wchar_t* name : {L"DIMBLK", L"dimblk1", L"DIMBLK2", L"DimLdrBlk", L"DIMBLKX"}) {
    EXPECT_TRUE(isArrowVariable(name));
  }
  EXPECT_FALSE(isArrowVariable(L"DIMBL"));
  EXPECT_FALSE(isArrowVariable(L"DIMLDRBLK1"));
}

TEST(ArrowCatalogue, BuiltInNames) {
  ASSERT_EQ(arrowCatalogue().size(), 21U);
  EXPECT_TRUE(isBuiltInArrow(L"."));
  EXPECT_STREQ(builtInArrow(L"_archtic"), L"_ARCHTIC");
  EXPECT_TRUE(isBuiltInArrow(L"_None"));
  EXPECT_FALSE(isBuiltInArrow(L"ﾌﾞﾛｯｸ名を入力"));
  EXPECT_FALSE(isBuiltInArrow(L""));
  EXPECT_EQ(arrowText(arrowCatalogue()[3]), L"黒丸 (_DOT)");
}

TEST(ItemKinds, CommandsFollowTheKinds) {
  std::set<std::wstring> keys;
  for (const ItemKind& row : itemKinds()) {
    keys.insert(row.key);
    EXPECT_EQ(row.conditionCommand, row.kind + (row.kind <= 9 ? 40020 : 40040));
    EXPECT_EQ(itemKindOfConditionCommand(row.conditionCommand), &row);
    if (row.kind == kTextListKind) {
      EXPECT_EQ(row.resultMenu, nullptr);
      continue;
    }
    EXPECT_EQ(row.resultCommand, row.kind + (row.kind <= 9 ? 40030 : 40060));
    EXPECT_EQ(itemKindOfResultCommand(row.resultCommand), &row);
  }
  EXPECT_EQ(keys.size(), 16U);
  EXPECT_EQ(itemKindOfResultCommand(0), nullptr);
}

TEST(ItemKinds, KeysThenVariables) {
  EXPECT_EQ(lookUpKey(L"画層")->kind, kLayerKind);
  EXPECT_EQ(lookUpKey(L"ｼｽﾃﾑ変数")->kind, kVariableKind);
  EXPECT_TRUE(lookUpKey(L"ｼｽﾃﾑ変数")->variable.empty());
  EXPECT_EQ(lookUpKey(L"dimasz")->variable, L"DIMASZ");
  EXPECT_FALSE(lookUpKey(L"").has_value());
  EXPECT_FALSE(lookUpKey(L"DIMFOO").has_value());
}

}  // namespace
}  // namespace kiv
