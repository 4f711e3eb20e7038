// Picks through the module, as the suite's dialogs ask for them, with clicks that a script gives.

#include "platform/entity_pick.h"

#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace kiv {
namespace {

using Values = std::vector<std::wstring>;

// How high the entities of pick.dxf lie, each alone. The drawing is of 2010, where layers and entities have
// lineweights and transparency.
constexpr double kLine = 0, kText = 10.5, kMText = 21, kInsert = 30, kDimension = 40, kTable = 50,
                 kGothic = 60.5, kLeader = 70, kNothing = 90;

class EntityPickTest : public cad_test::HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    ASSERT_TRUE(host().openDocument(KIV_PICK_DRAWING).ok());
  }
  void TearDown() override {
    host().setInputSource(nullptr);
    HostTest::TearDown();
  }
  // Clicks at (0.3, y).
  Values pick(PickItem item, double y, std::uint32_t mask = kPickAll, const wchar_t* variable = L"") {
    host().setInputSource([y, clicked = false]() mutable -> std::optional<cad::InputEvent> {
      if (std::exchange(clicked, true)) return std::nullopt;
      return cad::InputEvent{3, 0, 0.3, y, 0.1};
    });
    return pickEntity(L"\n値を指示:", {item, mask, variable});
  }
  std::wstring single(PickItem item, double y, std::uint32_t mask = kPickAll, const wchar_t* variable = L"") {
    const Values values = pick(item, y, mask, variable);
    return values.size() == 1 ? values.front() : L"(none)";
  }
};

TEST_F(EntityPickTest, TheLayerGivesNineValues) {
  EXPECT_EQ(pick(PickItem::kLayer, kLine),
            (Values{L"WALL", L"1:赤", L"CENTER", L"表示 ON", L"ロック ON", L"フリーズ OFF", L"印刷 OFF",
                    L"線幅値 0.25 mm", L"透過性 30"}));
  EXPECT_TRUE(printedHas(L"\n値を指示:"));
  const Values plain = pick(PickItem::kLayer, kInsert);
  ASSERT_EQ(plain.size(), 9U);
  EXPECT_EQ(plain[0], L"0");
  EXPECT_EQ(plain[7], L"線幅値 Default");
  EXPECT_EQ(plain[8], L"透過性 0");
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
        Row{kDimension, L"NARROW", L"3.5", L"45", L"(none)"}}) {
    for (const std::uint32_t mask : {kPickAll, kPickTexts}) {
      EXPECT_EQ(pick(PickItem::kTextStyle, row.place, mask).at(0), row.style) << row.place;
      EXPECT_EQ(single(PickItem::kTextHeight, row.place, mask), row.height) << row.place;
      EXPECT_EQ(single(PickItem::kTextAngle, row.place, mask), row.angle) << row.place;
      EXPECT_EQ(single(PickItem::kWidthFactor, row.place, mask), row.factor) << row.place;
    }
  }
  EXPECT_EQ(single(PickItem::kBlock, kInsert), L"DOOR");
  EXPECT_EQ(single(PickItem::kBlock, kTable), L"(none)") << "its block is the host's own drawing of it";
  EXPECT_EQ(single(PickItem::kDimension, kDimension), L"ARCH");
}

TEST_F(EntityPickTest, AStyleGivesItsFonts) {
  EXPECT_EQ(pick(PickItem::kTextStyle, kText), (Values{L"NARROW", L"txt.shx", L"extfont2.shx"}));
  EXPECT_EQ(pick(PickItem::kTextStyle, kDimension), pick(PickItem::kTextStyle, kText));
  EXPECT_EQ(pick(PickItem::kTextStyle, kGothic), (Values{L"GOTHIC", L"MS Gothic"}));
  // What older drawings have in place of a typeface and of a file's extension.
  const auto withFont = [this](const wchar_t* file) {
    test_support::inCommand([file] {
      AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
      AcDbTextStyleTableRecordPointer style(L"NARROW", drawing, AcDb::kForWrite);
      EXPECT_EQ(style->setFileName(file), Acad::eOk);
    });
    return pick(PickItem::kTextStyle, kText);
  };
  EXPECT_EQ(withFont(L"msgothic.ttc"), (Values{L"NARROW", L"msgothic.ttc"}));
  EXPECT_EQ(withFont(L"ROMANS"), (Values{L"NARROW", L"ROMANS.shx", L"extfont2.shx"}));
  EXPECT_EQ(withFont(L""), Values{L"NARROW"});
}

TEST_F(EntityPickTest, ADimensionAndALeaderGiveTheVariableThatIsAskedFor) {
  struct Row {
    const wchar_t *variable, *ofDimension, *ofLeader;
  };
  for (const Row& row :
       {Row{L"DIMTXT", L"3.5", L"3.5"}, Row{L"dimclrd", L"1", L"1"}, Row{L"DIMLWD", L"25", L"25"},
        Row{L"DIMALTF", L"25", L"(none)"}, Row{L"DIMTOL", L"0", L"(none)"},
        Row{L"DIMPOST", L"<> mm", L"(none)"}, Row{L"DIMDSEP", L".", L"(none)"},
        Row{L"DIMTXSTY", L"NARROW", L"NARROW"}, Row{L"DIMBLK", L"DOOR", L"(none)"},
        Row{L"DIMLDRBLK", L".", L"."}, Row{L"DIMASO", L"(none)", L"(none)"}}) {
    EXPECT_EQ(single(PickItem::kDimension, kDimension, kPickAll, row.variable), row.ofDimension)
        << base::pathFromText(row.variable);
    EXPECT_EQ(single(PickItem::kDimension, kLeader, kPickAll, row.variable), row.ofLeader)
        << base::pathFromText(row.variable);
  }
  EXPECT_EQ(single(PickItem::kDimension, kLine, kPickAll, L"DIMTXT"), L"(none)");
  EXPECT_EQ(single(PickItem::kDimension, kLeader), L"ARCH");
}

TEST_F(EntityPickTest, WhatTheMaskLeavesOutIsRefusedAloud) {
  EXPECT_EQ(pick(PickItem::kTextHeight, kLine, kPickTexts), Values());
  EXPECT_TRUE(printedHas(L"\n文字または寸法を指示してください。"));
  EXPECT_EQ(pick(PickItem::kWidthFactor, kDimension, kPickTexts), Values());
  EXPECT_TRUE(printedHas(L"\n文字を指示してください。"));
  EXPECT_EQ(pick(PickItem::kBlock, kText, kPickBlockReferences), Values());
  EXPECT_TRUE(printedHas(L"\nﾌﾞﾛｯｸ図形を指示してください。"));
  EXPECT_EQ(pick(PickItem::kColor, kInsert, kPickAllButBlockReferences), Values());
  EXPECT_TRUE(printedHas(L"\nﾌﾞﾛｯｸ図形以外の図形を指示してください。"));
  EXPECT_EQ(pick(PickItem::kTextHeight, kMText, kPickTexts).size(), 1U);
  EXPECT_EQ(pick(PickItem::kBlock, kInsert, kPickBlockReferences).size(), 1U);
  EXPECT_EQ(pick(PickItem::kColor, kDimension, kPickAllButBlockReferences).size(), 1U);
  EXPECT_EQ(pick(PickItem::kColor, kTable, kPickAllButBlockReferences).size(), 1U);
}

TEST_F(EntityPickTest, PicksWithoutAValueFail) {
  EXPECT_EQ(pick(PickItem::kDimension, kLine), Values());
  EXPECT_TRUE(printedHas(L"\nこの図形には該当する値がありません。"));
  EXPECT_EQ(pick(PickItem::kColor, kNothing), Values());
  EXPECT_TRUE(printedHas(L"\n図形が見つかりません。"));
  printed_.clear();
  host().setInputSource([] { return std::optional<cad::InputEvent>({2, 27}); });
  EXPECT_EQ(pickEntity(L"\n色を指示:", {PickItem::kColor, kPickAll, {}}), Values());
  EXPECT_EQ(printed_, L"\n色を指示:") << "whoever cancels needs no message";
  EXPECT_EQ(pick(PickItem::kEnd, kLine), Values());
  EXPECT_EQ(pick(static_cast<PickItem>(0), kLine), Values());
}

}  // namespace
}  // namespace kiv
