// Settings of layers.

#include "acdocman.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;
using cad::Property;

// Layers of the sample: 0 (current), All (colour 1, DASHED, 0.25 mm), NEW (colour 3), LOCKED (locked, colour
// 4), B-ALL (frozen, off, not plotted, colour 5, 50 % transparency).
const wchar_t* const kLayers[] = {L"0", L"ALL", L"NEW", L"LOCKED", L"B-ALL"};

class LayerSettings : public UndoneRunTest {
 protected:
  void convert(const std::wstring& settings) { run({{L"画層の色･線種", settings}}); }
  // The layers that a condition reaches, by their new colour.
  std::wstring reached(const std::wstring& condition) {
    convert(condition + L"\n{\n[色] = 42\n}");
    std::wstring found;
    for (const wchar_t* each : kLayers) {
      if (std::abs(layerInteger(each, Property::kLayerColor)) == 42) found += each + std::wstring(L" ");
    }
    undo();
    EXPECT_EQ(savedBytes(), before_) << base::toUtf8(condition);
    return found;
  }
};

TEST_F(LayerSettings, EveryKindAsConditionEqualAndInverted) {
  const struct {
    const wchar_t *key, *value, *equal, *inverted;
  } cases[] = {
      {L"画層", L"*ALL", L"ALL B-ALL ", L"0 NEW LOCKED "},
      {L"線種", L"DASHED", L"ALL ", L"0 NEW LOCKED B-ALL "},
      {L"色", L"5", L"B-ALL ", L"0 ALL NEW LOCKED "},
      {L"線幅値", L"0.25 mm", L"ALL ", L"0 NEW LOCKED B-ALL "},
      {L"透過性", L"50", L"B-ALL ", L"0 ALL NEW LOCKED "},
      {L"透過性", L"0", L"0 ALL NEW LOCKED ", L"B-ALL "},
      {L"表示", L"OFF", L"B-ALL ", L"0 ALL NEW LOCKED "},
      {L"ロック", L"on", L"LOCKED ", L"0 ALL NEW B-ALL "},
      {L"フリーズ", L"ON", L"B-ALL ", L"0 ALL NEW LOCKED "},
      {L"印刷", L"OFF", L"B-ALL ", L"0 ALL NEW LOCKED "},
      // Kinds that layers do not have are no conditions.
      {L"線種尺度", L"2.5", L"0 ALL NEW LOCKED B-ALL ", L"0 ALL NEW LOCKED B-ALL "},
      {L"DIMTAD", L"1", L"0 ALL NEW LOCKED B-ALL ", L"0 ALL NEW LOCKED B-ALL "},
  };
  for (const auto& c : cases) {
    const std::wstring key = L"[" + std::wstring(c.key) + L"]";
    EXPECT_EQ(reached(key + L" = " + c.value), c.equal) << base::toUtf8(key);
    EXPECT_EQ(reached(key + L" <> " + c.value), c.inverted) << base::toUtf8(key);
  }
}

// Beside what the case layer-settings changes.
TEST_F(LayerSettings, TransparencyAndPlottingAsResults) {
  convert(L"[画層] = NEW\n{\n[透過性] = 60\n}\n[画層] = B-ALL\n{\n[印刷] = ON\n[透過性] = 0\n}");
  EXPECT_TRUE(sink_.problems.empty());
  EXPECT_EQ(layerInteger(L"NEW", Property::kTransparency), 0x02000000 | 102);
  EXPECT_EQ(layerInteger(L"B-ALL", Property::kTransparency), 0x020000FF);
  EXPECT_EQ(layerInteger(L"B-ALL", Property::kLayerPlottable), 1);
}

TEST_F(LayerSettings, ConditionsSeeTheLayersAsTheyWere) {
  convert(L"[画層] = NEW\n{\n[色] = 1\n}\n[画層] = *\n[色] = 1\n{\n[色] = 8\n}");
  EXPECT_EQ(layerInteger(L"NEW", Property::kLayerColor), 1);
  EXPECT_EQ(layerInteger(L"ALL", Property::kLayerColor), 8);
}

// Conditions see the name that the layer had; what a later setting writes comes after what an earlier one
// did.
TEST_F(LayerSettings, LaterRenamesFollowEarlierOnes) {
  convert(
      L"[画層] = ALL\n{\n[画層] = X\n}\n[画層] = ALL\n{\n[画層] = ALL\n}\n"
      L"[画層] = NEW\n{\n[画層] = Y\n}\n[画層] = NEW\n{\n[画層] = Z\n}");
  EXPECT_NE(layer(L"ALL"), cad::kNoRecord);
  EXPECT_EQ(layer(L"X"), cad::kNoRecord);
  EXPECT_NE(layer(L"Z"), cad::kNoRecord);
  EXPECT_TRUE(sink_.problems.empty());
}

TEST_F(LayerSettings, NameInAnotherCaseIsNoRename) {
  convert(L"[画層] = ALL\n{\n[画層] = aLL\n}");
  EXPECT_EQ(savedBytes(), before_);
}

TEST_F(LayerSettings, UnobtainableRecordIsNamed) {
  ASSERT_EQ(acDocManager->lockDocument(acDocManager->curDocument()), Acad::eOk);
  AcDbLayerTableRecordPointer held(L"NEW", acdbHostApplicationServices()->workingDatabase(), AcDb::kForWrite);
  ASSERT_EQ(held.openStatus(), Acad::eOk);
  convert(L"[画層] = *\n{\n[色] = 42\n}");
  held.close();
  EXPECT_EQ(acDocManager->unlockDocument(acDocManager->curDocument()), Acad::eOk);
  EXPECT_EQ(sink_.problems,
            (std::vector<std::wstring>{L"画層変換で、画層[NEW]の情報が取得できませんでした"}));
  EXPECT_EQ(layerInteger(L"NEW", Property::kLayerColor), 3);
  EXPECT_EQ(layerInteger(L"ALL", Property::kLayerColor), 42);
}

TEST_F(LayerSettings, RefusedNamesAreProblems) {
  convert(
      L"[画層] = AL*\n{\n[画層] = B-AL*\n}\n[画層] = NEW\n{\n[画層] = X*Y\n}\n[画層] = 0\n{\n[画層] = "
      L"ZERO\n}");
  EXPECT_EQ(sink_.problems,
            (std::vector<std::wstring>{L"画層変換で、画層[All]の名前を[B-ALl]に変更できませんでした",
                                       L"画層変換で、画層[NEW]の名前を[X*Y]に変更できませんでした",
                                       L"画層変換で、画層[0]の名前を[ZERO]に変更できませんでした"}));
  EXPECT_NE(layer(L"ALL"), cad::kNoRecord);
}

TEST_F(LayerSettings, LayersOfExternalReferencesKeepTheirNames) {
  ASSERT_TRUE(cad::Host::instance().closeDocument().ok());
  open(engine_test::drawing(
      "0 LINE\n5 A1\n100 AcDbEntity\n8 SITE|WALL\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n"));
  before_ = savedBytes();
  convert(
      L"[画層] = SITE|*\n{\n[画層] = A-*\n[色] = 42\n}\n[画層] = *WALL\n{\n[画層] = *DOOR\n}\n"
      L"[画層] = NEW\n{\n[画層] = SITE|NEW\n}");
  EXPECT_EQ(sink_.problems,
            (std::vector<std::wstring>{L"画層変換で、外部参照の画層[SITE|WALL]の名前は変更できませんでした",
                                       L"画層変換で、外部参照の画層[SITE|WALL]の名前は変更できませんでした",
                                       L"画層変換で、画層[NEW]の名前を[SITE|NEW]に変更できませんでした"}));
  EXPECT_EQ(layerInteger(L"SITE|WALL", Property::kLayerColor), 42);
  EXPECT_NE(layer(L"NEW"), cad::kNoRecord);
}

TEST_F(LayerSettings, CurrentLayerIsNotFrozenAndBadValuesAreProblems) {
  convert(L"[画層] = 0\n{\n[フリーズ] = ON\n[線種] = NONE\n[色] = 5\n}");
  EXPECT_EQ(sink_.problems,
            (std::vector<std::wstring>{L"画層変換で、現在の画層[0]はフリーズできませんでした",
                                       L"画層変換で、画層[0]の線種[NONE]を設定できませんでした"}));
  EXPECT_EQ(layerInteger(L"0", Property::kLayerColor), 5);
}

TEST_F(LayerSettings, ColoursOfLayersAreIndexes) {
  std::wstring settings;
  for (const wchar_t* value : {L"0", L"256", L"BYBLOCK", L"BYLAYER", L"-3", L"999"}) {
    settings += std::wstring(L"[画層] = NEW\n{\n[色] = ") + value + L"\n}\n";
  }
  convert(settings);
  EXPECT_EQ(sink_.problems.size(), 6U);
  EXPECT_TRUE(sink_.reported.empty());  // a person reads the notes
  EXPECT_EQ(sink_.notes.size(), 6U);
  EXPECT_EQ(layerInteger(L"NEW", Property::kLayerColor), 3);
}

}  // namespace
