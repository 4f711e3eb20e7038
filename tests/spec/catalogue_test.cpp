#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "spec/arrow_catalogue.h"
#include "spec/dimension_catalogue.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

// Name and type, in the order in which they are offered.
constexpr const wchar_t* kVariables =
    L"DIMADEC 0, DIMALT 0, DIMALTD 0, DIMALTF 0, DIMALTRND 0, DIMALTTD 0, "
    L"DIMALTTZ 0, DIMALTU 0, DIMALTZ 0, DIMAPOST 2, DIMASO 0, DIMASZ 1, "
    L"DIMATFIT 0, DIMAUNIT 0, DIMAZIN 0, DIMBLK 2, DIMBLK1 2, DIMBLK2 2, "
    L"DIMCEN 1, DIMCLRD 0, DIMCLRE 0, DIMCLRT 0, DIMDEC 0, DIMDLE 1, "
    L"DIMDLI 1, DIMDSEP 2, DIMEXE 1, DIMEXO 1, DIMFRAC 0, DIMGAP 1, "
    L"DIMJUST 0, DIMLDRBLK 2, DIMLFAC 1, DIMLIM 0, DIMLUNIT 0, DIMLWD 0, "
    L"DIMLWE 0, DIMPOST 2, DIMRND 1, DIMSAH 0, DIMSCALE 1, DIMSD1 0, "
    L"DIMSD2 0, DIMSE1 0, DIMSE2 0, DIMSHO 1, DIMSOXD 0, DIMTAD 0, "
    L"DIMTDEC 0, DIMTFAC 1, DIMTIH 0, DIMTIX 0, DIMTM 1, DIMTMOVE 0, "
    L"DIMTOFL 0, DIMTOH 0, DIMTOL 0, DIMTOLJ 0, DIMTP 1, DIMTSZ 1, "
    L"DIMTVP 1, DIMTXSTY 2, DIMTXT 1, DIMTZIN 0, DIMUPT 0, DIMZIN 0";

TEST(DimensionCatalogue, RowsTypesAndOrder) {
  std::wstring shown;
  for (const DimensionVariable& row : dimensionCatalogue()) {
    if (!shown.empty()) shown += L", ";
    shown += std::wstring(row.name) + L" " + std::to_wstring(static_cast<int>(row.type));
    EXPECT_EQ(std::wstring_view(row.description).back(), L'。');
  }
  EXPECT_EQ(shown, kVariables);
  EXPECT_EQ(findDimensionVariable(L"DimAlt"), 1);
  EXPECT_EQ(findDimensionVariable(L"DIMBLKX"), -1);
}

TEST(DimensionCatalogue, Descriptions) {
  const std::pair<const wchar_t*, const wchar_t*> expected[] = {
      {L"DIMADEC", L"角度寸法に表示される精度の位置の数をコントロールします。"},
      {L"DIMALTF", L"変換単位の乗数をコントロールします。"},
      {L"DIMASO", L"寸法オブジェクトの自動調整機能をコントロールします。"},
      {L"DIMASZ", L"寸法線および引出線で使用する矢印のサイズをコントロールします。"},
      {L"DIMBLK", L"寸法線または引出線の両端に表示する矢印ブロックを設定します。"},
      {L"DIMDSEP", L"単位形式が十進表記の寸法を作成するときに使用する1文字の小数点区切りを指定します。"},
      {L"DIMLDRBLK", L"引出線の矢印タイプを指定します。"},
      {L"DIMSCALE",
       L"尺度 (サイズ、距離、または間隔を指定するための寸法記入用変数のすべてに対して適用される) "
       L"を設定します。"},
      {L"DIMSHO", L"ドラッグ機能動作中の寸法オブジェクトの再定義をコントロールします。"},
      {L"DIMTXSTY", L"寸法値の文字スタイルを指定します。"},
      {L"DIMTXT", L"寸法値の高さを指定します (ただし、現在の文字スタイルの高さが固定でない場合)。"},
  };
  for (const auto& [name, description] : expected) {
    EXPECT_STREQ(dimensionCatalogue()[static_cast<size_t>(findDimensionVariable(name))].description,
                 description);
  }
}

TEST(DimensionCatalogue, ArrowVariables) {
  for (const wchar_t* name : {L"DIMBLK", L"dimblk1", L"DIMBLK2", L"DimLdrBlk", L"DIMBLKX"}) {
    EXPECT_TRUE(isArrowVariable(name));
  }
  EXPECT_FALSE(isArrowVariable(L"DIMBL"));
  EXPECT_FALSE(isArrowVariable(L"DIMLDRBLK1"));
}

TEST(ArrowCatalogue, Rows) {
  const std::vector<std::wstring> expected = {
      L"塗り潰し矢印 (.)",         L"空矢印 (_CLOSEDBLANK)",
      L"閉矢印 (_CLOSED)",         L"黒丸 (_DOT)",
      L"ﾃｨｯｸ(太) (_ARCHTIC)",      L"ﾃｨｯｸ (_OBLIQUE)",
      L"開矢印 (_OPEN)",           L"白丸１ (_ORIGIN)",
      L"白丸２ (_ORIGIN2)",        L"直角矢印 (_OPEN90)",
      L"30度開矢印 (_OPEN30)",     L"小黒丸 (_DOTSMALL)",
      L"空白丸 (_DOTBLANK)",       L"小空白丸 (_SMALL)",
      L"四角 (_BOXBLANK)",         L"塗り潰し四角 (_BOXFILLED)",
      L"空白ﾃﾞｰﾀﾑ (_DATUMBLANK)",  L"塗り潰しﾃﾞｰﾀﾑ (_DATUMFILLED)",
      L"波形 (_INTEGRAL)",         L"なし (_NONE)",
      L"ﾕｰｻﾞ指定 (ﾌﾞﾛｯｸ名を入力)",
  };
  std::vector<std::wstring> shown;
  for (const ArrowName& row : arrowCatalogue()) shown.push_back(arrowText(row));
  EXPECT_EQ(shown, expected);
}

TEST(ArrowCatalogue, BuiltInNames) {
  EXPECT_TRUE(isBuiltInArrow(L"."));
  EXPECT_STREQ(builtInArrow(L"_archtic"), L"_ARCHTIC");
  EXPECT_TRUE(isBuiltInArrow(L"_None"));
  EXPECT_FALSE(isBuiltInArrow(L"ﾌﾞﾛｯｸ名を入力"));
  EXPECT_FALSE(isBuiltInArrow(L""));
}

TEST(ItemKinds, Rows) {
  const struct {
    const wchar_t* key;
    int conditionCommand, resultCommand;
  } expected[] = {
      {L"画層", 40021, 40031},       {L"線種", 40022, 40032},     {L"色", 40023, 40033},
      {L"字体", 40024, 40034},       {L"文字高さ", 40025, 40035}, {L"文字角度", 40026, 40036},
      {L"文字幅高比", 40027, 40037}, {L"ｼｽﾃﾑ変数", 40028, 40038}, {L"文字一致のリスト", 40029, 0},
      {L"線幅値", 40050, 40070},     {L"透過性", 40051, 40071},   {L"線種尺度", 40052, 40072},
      {L"表示", 40053, 40073},       {L"ロック", 40054, 40074},   {L"フリーズ", 40055, 40075},
      {L"印刷", 40056, 40076},
  };
  ASSERT_EQ(itemKinds().size(), std::size(expected));
  for (size_t i = 0; i < std::size(expected); ++i) {
    const ItemKind& row = itemKinds()[i];
    EXPECT_EQ(row.kind, static_cast<int>(i) + 1);
    EXPECT_STREQ(row.key, expected[i].key);
    EXPECT_EQ(row.conditionCommand, expected[i].conditionCommand);
    EXPECT_EQ(row.resultCommand, expected[i].resultCommand);
    EXPECT_EQ(itemKindOfConditionCommand(row.conditionCommand), &row);
    if (row.resultCommand != 0) {
      EXPECT_EQ(itemKindOfResultCommand(row.resultCommand), &row);
    }
  }
  EXPECT_EQ(itemKindOfResultCommand(0), nullptr);
}

TEST(Sections, NamesAndHeaders) {
  const std::pair<const wchar_t*, const wchar_t*> expected[] = {
      {L"文字", L"[文字]"},
      {L"寸法", L"[寸法]"},
      {L"ﾊｯﾁﾝｸﾞ", L"[ﾊｯﾁﾝｸﾞ]"},
      {L"その他の図形", L"[その他の図形]"},
      {L"寸法設定", L"[寸法設定]"},
      {L"画層の設定", L"[画層の色･線種]"},
      {L"画層の作成", L"[画層の作成]"},
      {L"線種のﾛｰﾄﾞ", L"[線種のﾛｰﾄﾞ]"},
      {L"字体のﾛｰﾄﾞ", L"[字体のﾛｰﾄﾞ]"},
      {L"矢印のﾛｰﾄﾞ", L"[矢印のﾛｰﾄﾞ]"},
  };
  ASSERT_EQ(sections().size(), std::size(expected));
  for (const SectionInfo& info : sections()) {
    EXPECT_STREQ(info.name, expected[info.number - 1].first);
    EXPECT_STREQ(info.header, expected[info.number - 1].second);
  }
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
