// Picks through the module, as the suite's dialogs ask for them, with clicks that a script gives.

#include "platform/entity_pick.h"

#include <optional>

#include "tests/embedded/editor/host_fixture.h"

namespace kiv {
namespace {

using Values = std::vector<std::wstring>;

// A drawing of 2010, where layers and entities have lineweights and transparency; each entity lies alone.
std::string pickDrawing() {
  using cad_test::groups;
  std::string out = groups({{0, "SECTION"},
                            {2, "HEADER"},
                            {9, "$ACADVER"},
                            {1, "AC1024"},
                            {9, "$HANDSEED"},
                            {5, "FF"},
                            {0, "ENDSEC"}});
  out += groups({{0, "SECTION"},
                 {2, "TABLES"},
                 {0, "TABLE"},
                 {2, "LTYPE"},
                 {70, "1"},
                 {0, "LTYPE"},
                 {5, "10"},
                 {100, "AcDbSymbolTableRecord"},
                 {100, "AcDbLinetypeTableRecord"},
                 {2, "CENTER"},
                 {70, "0"},
                 {3, ""},
                 {72, "65"},
                 {73, "0"},
                 {40, "0.0"},
                 {0, "ENDTAB"},
                 {0, "TABLE"},
                 {2, "LAYER"},
                 {70, "1"},
                 {0, "LAYER"},
                 {5, "20"},
                 {100, "AcDbSymbolTableRecord"},
                 {100, "AcDbLayerTableRecord"},
                 {2, "WALL"},
                 {70, "4"},
                 {62, "1"},
                 {6, "CENTER"},
                 {290, "0"},
                 {370, "25"},
                 {1001, "AcCmTransparency"},
                 {1071, "33554610"},
                 {0, "ENDTAB"},
                 {0, "TABLE"},
                 {2, "STYLE"},
                 {70, "1"},
                 {0, "STYLE"},
                 {5, "30"},
                 {100, "AcDbSymbolTableRecord"},
                 {100, "AcDbTextStyleTableRecord"},
                 {2, "NARROW"},
                 {70, "0"},
                 {40, "0.0"},
                 {41, "0.8"},
                 {50, "0.0"},
                 {71, "0"},
                 {42, "2.5"},
                 {3, "txt"},
                 {4, ""},
                 {0, "ENDTAB"},
                 {0, "TABLE"},
                 {2, "DIMSTYLE"},
                 {70, "1"},
                 {0, "DIMSTYLE"},
                 {105, "40"},
                 {100, "AcDbSymbolTableRecord"},
                 {100, "AcDbDimStyleTableRecord"},
                 {2, "ARCH"},
                 {70, "0"},
                 {140, "3.5"},
                 {340, "30"},
                 {0, "ENDTAB"},
                 {0, "TABLE"},
                 {2, "BLOCK_RECORD"},
                 {70, "2"},
                 {0, "BLOCK_RECORD"},
                 {5, "50"},
                 {100, "AcDbSymbolTableRecord"},
                 {100, "AcDbBlockTableRecord"},
                 {2, "DOOR"},
                 {0, "BLOCK_RECORD"},
                 {5, "51"},
                 {100, "AcDbSymbolTableRecord"},
                 {100, "AcDbBlockTableRecord"},
                 {2, "*D1"},
                 {0, "ENDTAB"},
                 {0, "ENDSEC"}});
  const auto block = [](const char* name, const char* y) {
    return groups({{0, "BLOCK"},  {100, "AcDbEntity"},
                   {8, "0"},      {100, "AcDbBlockBegin"},
                   {2, name},     {70, "0"},
                   {10, "0"},     {20, "0"},
                   {3, name},     {1, ""},
                   {0, "LINE"},   {100, "AcDbEntity"},
                   {8, "0"},      {100, "AcDbLine"},
                   {10, "0"},     {20, y},
                   {11, "5"},     {21, y},
                   {0, "ENDBLK"}, {100, "AcDbEntity"},
                   {8, "0"},      {100, "AcDbBlockEnd"}});
  };
  out += groups({{0, "SECTION"}, {2, "BLOCKS"}}) + block("DOOR", "0") + block("*D1", "40") +
         groups({{0, "ENDSEC"}});
  out += groups({{0, "SECTION"},
                 {2, "ENTITIES"},
                 {0, "LINE"},
                 {5, "60"},
                 {100, "AcDbEntity"},
                 {8, "WALL"},
                 {62, "3"},
                 {6, "CENTER"},
                 {48, "2.5"},
                 {370, "13"},
                 {440, "33554509"},
                 {100, "AcDbLine"},
                 {10, "0"},
                 {20, "0"},
                 {11, "5"},
                 {21, "0"},
                 {0, "TEXT"},
                 {5, "61"},
                 {100, "AcDbEntity"},
                 {8, "0"},
                 {100, "AcDbText"},
                 {10, "0"},
                 {20, "10"},
                 {40, "2.5"},
                 {1, "ABC"},
                 {50, "30"},
                 {41, "0.75"},
                 {7, "NARROW"},
                 {100, "AcDbText"},
                 {0, "MTEXT"},
                 {5, "62"},
                 {100, "AcDbEntity"},
                 {8, "0"},
                 {100, "AcDbMText"},
                 {10, "0"},
                 {20, "20"},
                 {40, "5"},
                 {41, "0"},
                 {71, "7"},
                 {1, "ABC"},
                 {7, "NARROW"},
                 {50, "0"},
                 {0, "INSERT"},
                 {5, "63"},
                 {100, "AcDbEntity"},
                 {8, "0"},
                 {100, "AcDbBlockReference"},
                 {2, "DOOR"},
                 {10, "0"},
                 {20, "30"},
                 {0, "DIMENSION"},
                 {5, "64"},
                 {100, "AcDbEntity"},
                 {8, "0"},
                 {100, "AcDbDimension"},
                 {2, "*D1"},
                 {10, "0"},
                 {20, "40"},
                 {70, "0"},
                 {3, "ARCH"},
                 {53, "45"},
                 {100, "AcDbAlignedDimension"},
                 {0, "ENDSEC"},
                 {0, "EOF"}});
  return out;
}

constexpr double kLine = 0, kText = 10.5, kMText = 21, kInsert = 30, kDimension = 40, kNothing = 90;

class EntityPickTest : public cad_test::HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    const base::Status opened = host().openDocument(write("pick.dxf", pickDrawing()));
    ASSERT_TRUE(opened.ok());
  }
  void TearDown() override {
    host().setInputSource(nullptr);
    HostTest::TearDown();
  }
  // Clicks at (0.3, y).
  std::optional<Values> pick(PickItem item, double y, std::uint32_t mask = kPickAll) {
    host().setInputSource([y, clicked = false]() mutable -> std::optional<cad::InputEvent> {
      if (std::exchange(clicked, true)) return std::nullopt;
      return cad::InputEvent{3, 0, 0.3, y, 0.1};
    });
    Values values{L"left over"};
    if (pickEntity(L"\n値を指示:", item, mask, values)) return values;
    EXPECT_TRUE(values.empty());
    return std::nullopt;
  }
  std::wstring single(PickItem item, double y) {
    const std::optional<Values> values = pick(item, y);
    if (!values || values->size() != 1) return L"(none)";
    return values->front();
  }
};

TEST_F(EntityPickTest, TheLayerGivesNineValues) {
  EXPECT_EQ(pick(PickItem::kLayer, kLine),
            (Values{L"WALL", L"1:赤", L"CENTER", L"表示 ON", L"ロック ON", L"フリーズ OFF", L"印刷 OFF",
                    L"線幅値 0.25 mm", L"透過性 30"}));
  EXPECT_TRUE(printedHas(L"\n値を指示:"));
  const std::optional<Values> plain = pick(PickItem::kLayer, kInsert);
  ASSERT_TRUE(plain);
  EXPECT_EQ((*plain)[0], L"0");
  EXPECT_EQ((*plain)[7], L"線幅値 Default");
  EXPECT_EQ((*plain)[8], L"透過性 0");
}

TEST_F(EntityPickTest, PropertiesOfEveryEntity) {
  EXPECT_EQ(single(PickItem::kLinetype, kLine), L"CENTER");
  EXPECT_EQ(single(PickItem::kColor, kLine), L"3:緑");
  EXPECT_EQ(single(PickItem::kLineWeight, kLine), L"0.13 mm");
  EXPECT_EQ(single(PickItem::kTransparency, kLine), L"70");
  EXPECT_EQ(single(PickItem::kLinetypeScale, kLine), L"2.5");
  EXPECT_EQ(single(PickItem::kLinetype, kText), L"ByLayer");
  EXPECT_EQ(single(PickItem::kColor, kText), L"256:BYLAYER");
  EXPECT_EQ(single(PickItem::kLineWeight, kText), L"ByLayer");
  EXPECT_EQ(single(PickItem::kTransparency, kText), L"ByLayer");
  EXPECT_EQ(single(PickItem::kLinetypeScale, kText), L"1");
  EXPECT_EQ(single(PickItem::kDisplay, kLine), L"ON");
  EXPECT_EQ(single(PickItem::kLock, kLine), L"ON");
  EXPECT_EQ(single(PickItem::kFreeze, kLine), L"OFF");
  EXPECT_EQ(single(PickItem::kPlot, kLine), L"OFF");
}

TEST_F(EntityPickTest, PropertiesOfTexts) {
  struct Row {
    double place;
    const wchar_t *style, *height, *angle, *factor;
  };
  for (const Row& row :
       {Row{kText, L"NARROW", L"2.5", L"30", L"0.75"}, Row{kMText, L"NARROW", L"5", L"0", L"0.8"},
        Row{kDimension, L"NARROW", L"3.5", L"45", L"0.8"}}) {
    EXPECT_EQ(single(PickItem::kTextStyle, row.place), row.style) << row.place;
    EXPECT_EQ(single(PickItem::kTextHeight, row.place), row.height) << row.place;
    EXPECT_EQ(single(PickItem::kTextAngle, row.place), row.angle) << row.place;
    EXPECT_EQ(single(PickItem::kWidthFactor, row.place), row.factor) << row.place;
  }
  EXPECT_EQ(single(PickItem::kBlock, kInsert), L"DOOR");
  EXPECT_EQ(single(PickItem::kDimStyle, kDimension), L"ARCH");
}

TEST_F(EntityPickTest, WhatTheMaskLeavesOutIsRefusedAloud) {
  EXPECT_EQ(pick(PickItem::kTextHeight, kLine, kPickTexts), std::nullopt);
  EXPECT_TRUE(printedHas(L"\n文字を指示してください。"));
  EXPECT_EQ(pick(PickItem::kBlock, kText, kPickBlockReferences), std::nullopt);
  EXPECT_TRUE(printedHas(L"\nﾌﾞﾛｯｸ図形を指示してください。"));
  EXPECT_EQ(pick(PickItem::kColor, kInsert, kPickAllButBlockReferences), std::nullopt);
  EXPECT_TRUE(printedHas(L"\nﾌﾞﾛｯｸ図形以外の図形を指示してください。"));
  EXPECT_TRUE(pick(PickItem::kTextHeight, kMText, kPickTexts));
  EXPECT_TRUE(pick(PickItem::kBlock, kInsert, kPickBlockReferences));
  EXPECT_TRUE(pick(PickItem::kColor, kDimension, kPickAllButBlockReferences));
}

TEST_F(EntityPickTest, PicksWithoutAValueFail) {
  EXPECT_EQ(pick(PickItem::kDimStyle, kLine), std::nullopt);
  EXPECT_TRUE(printedHas(L"\nこの図形には該当する値がありません。"));
  EXPECT_EQ(pick(PickItem::kColor, kNothing), std::nullopt);
  EXPECT_TRUE(printedHas(L"\n図形が見つかりません。"));
  printed_.clear();
  host().setInputSource([] { return std::optional<cad::InputEvent>({2, 27}); });
  Values values;
  EXPECT_FALSE(pickEntity(L"\n色を指示:", PickItem::kColor, kPickAll, values));
  EXPECT_EQ(printed_, L"\n色を指示:") << "whoever cancels needs no message";
  EXPECT_EQ(pick(static_cast<PickItem>(17), kLine), std::nullopt);
  EXPECT_EQ(pick(static_cast<PickItem>(0), kLine), std::nullopt);
}

}  // namespace
}  // namespace kiv
