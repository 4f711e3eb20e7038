#include "ui/item_inputs.h"

#include "embedded/editor/host.h"
#include "platform/settings.h"
#include "spec/item_kinds.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

using Texts = std::vector<std::wstring>;

class OfferedValues : public test_support::TempFolder {
 protected:
  void SetUp() override { cad::Host::instance().start(); }
  void TearDown() override {
    cad::Host::instance().stop();
    clearSettingOverrides();
  }
};

const std::string kDrawing = cad::dxf::groups(
    "0 SECTION|2 TABLES|0 TABLE|2 LTYPE|70 3|0 LTYPE|2 DASHED|70 0|3 |72 65|73 0|40 0.0|"
    "0 LTYPE|2 BYBLOCK|70 0|3 |72 65|73 0|40 0.0|0 LTYPE|2 CONTINUOUS|70 0|3 |72 65|73 0|40 0.0|0 ENDTAB|"
    "0 TABLE|2 LAYER|70 3|0 LAYER|2 WALL|70 0|62 1|6 CONTINUOUS|0 LAYER|2 0|70 0|62 7|6 CONTINUOUS|"
    "0 LAYER|2 DOOR|70 0|62 3|6 CONTINUOUS|0 ENDTAB|0 TABLE|2 STYLE|70 1|0 STYLE|2 KANJI|70 0|40 0.0|41 1.0|"
    "50 0.0|71 0|42 2.5|3 txt|4 |0 ENDTAB|0 ENDSEC|0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF");

TEST_F(OfferedValues, WhatTheLayerSettingsWithhold) {
  const int layers = kLayerSettingSection;
  EXPECT_EQ(offeredValues(kColorKind, 1, {}, L""), (Texts{L"0:BYBLOCK", L"256:BYLAYER", L"1:赤", L"2:黄",
                                                          L"3:緑", L"4:水色", L"5:青", L"6:紫", L"7:白"}));
  EXPECT_EQ(offeredValues(kColorKind, layers, {}, L"").front(), L"1:赤");
  EXPECT_EQ(offeredValues(kLineweightKind, 1, {}, L"").size(), 27U);
  const Texts weights = offeredValues(kLineweightKind, layers, {}, L"");
  ASSERT_EQ(weights.size(), 25U);
  EXPECT_EQ(weights[0], L"Default");
  EXPECT_EQ(weights[1], L"0.00 mm");
  EXPECT_EQ(offeredValues(kTransparencyKind, 4, {}, L"").size(), 12U);
  EXPECT_EQ(offeredValues(kTransparencyKind, layers, {}, L""),
            (Texts{L"ByLayer", L"10", L"20", L"30", L"40", L"50", L"60", L"70", L"80", L"90"}));
  EXPECT_EQ(offeredValues(kFreezeKind, layers, {}, L""), (Texts{L"ON", L"OFF"}));
}

TEST_F(OfferedValues, NothingIsOfferedForWhatIsOnlyTyped) {
  for (const int kind : {0, -1, 50, kTextAngleKind, kWidthFactorKind, kVariableKind, kLinetypeScaleKind}) {
    EXPECT_TRUE(offeredValues(kind, 1, {}, L"").empty()) << kind;
  }
}

TEST_F(OfferedValues, SettingsSwitchTextHeightsByTheirPlace) {
  const Texts all = {L"2.24", L"3.15", L"4.5", L"6.3", L"9.0"};
  EXPECT_EQ(offeredValues(kTextHeightKind, 1, {}, L""), all);
  overrideCommonSetting(L"KivTextHeight/KivTextHeightLot", L"3");
  overrideCommonSetting(L"KivTextHeight/Par00", L"5");
  overrideCommonSetting(L"KivTextHeight/Par01", L"-1");
  overrideCommonSetting(L"KivTextHeight/Par02", L"7");
  overrideCommonSetting(L"KivTextHeight/Par03", L"7");
  EXPECT_EQ(offeredValues(kTextHeightKind, 1, {}, L""), (Texts{L"2.24", L"4.5"}));
  overrideCommonSetting(L"KivTextHeight/KivTextHeightLot", L"1000000000");
  EXPECT_EQ(offeredValues(kTextHeightKind, 1, {}, L""), (Texts{L"2.24", L"4.5", L"6.3"}));
}

TEST_F(OfferedValues, NamesOfTheDrawingStandBeforeThoseOfTheSpecification) {
  ASSERT_TRUE(cad::Host::instance().openDocument(make("plan.dxf", kDrawing)).ok());
  EXPECT_EQ(offeredValues(kLayerKind, 1, {L"wall", L"NEW", L"new", L"A"}, L""),
            (Texts{L"WALL", L"0", L"DOOR", L"NEW", L"A"}));
  const Texts linetypes = offeredValues(kLinetypeKind, 1, {}, L"");
  EXPECT_NE(std::find(linetypes.begin(), linetypes.end(), L"BYBLOCK"), linetypes.end());
  Texts withheld = linetypes;
  std::erase_if(withheld,
                [](const std::wstring& name) { return name.starts_with(L"By") || name.starts_with(L"BY"); });
  EXPECT_LT(withheld.size(), linetypes.size());
  EXPECT_EQ(offeredValues(kLinetypeKind, kLayerSettingSection, {}, L""), withheld);
  EXPECT_EQ(offeredValues(kFontKind, 1, {}, L"").front(), L"KANJI");
  EXPECT_EQ(sectionOfNames(kFontKind), kFontSection);
}

TEST_F(OfferedValues, WithoutADrawingTheSpecificationsNamesRemain) {
  cad::Host::instance().stop();
  EXPECT_EQ(offeredValues(kLayerKind, 1, {L"A"}, L""), Texts{L"A"});
}

TEST_F(OfferedValues, TextSearchListsOfTheFolder) {
  make("Rooms.List", "");
  make("rooms.txt", "");
  std::filesystem::create_directory(folder_ / "OLD.LIST");
  EXPECT_EQ(offeredValues(kTextListKind, 1, {}, base::pathText(folder_) + L"/"), Texts{L"Rooms.List"});
  EXPECT_TRUE(offeredValues(kTextListKind, 1, {}, base::pathText(folder_) + L"/none/").empty());
}

}  // namespace
}  // namespace kiv
