#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

constexpr const DimVariableInfo &kTextHeight = dimRow("DIMTXT"), &kTextStyle = dimRow("DIMTXSTY"),
                                &kArrow = dimRow("DIMBLK"), &kAbove = dimRow("DIMTAD");
constexpr std::string_view kDimension =
    "0 DIMENSION|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbDimension|2 *D1|3 Standard|70 0";

std::wstring text(const std::optional<Variable>& value) {
  const auto* name = value ? std::get_if<std::wstring>(&*value) : nullptr;
  return name ? *name : L"(none)";
}
double real(const std::optional<Variable>& value) {
  const auto* number = value ? std::get_if<double>(&*value) : nullptr;
  return number ? *number : -1;
}

TEST(DimOverrides, TheFirstMakesTheListTheLastTakesItAway) {
  auto drawing = modern(kDimension);
  const std::string original = saved(*drawing);
  const RecordId dimension = entity(*drawing, "DIMENSION");
  EXPECT_FALSE(drawing->dimVariable(dimension, kTextHeight).has_value());
  ASSERT_TRUE(drawing->setDimVariable(dimension, kTextHeight, 3.5).ok());
  EXPECT_EQ(real(drawing->dimVariable(dimension, kTextHeight)), 3.5);
  const std::string before = lastRecord(original, "DIMENSION");
  EXPECT_EQ(lastRecord(saved(*drawing), "DIMENSION"),
            before + groups("1001 ACAD|1000 DSTYLE|1002 {|1070 140|1040 3.5|1002 }"));
  EXPECT_NE(drawing->find(Table::kAppId, std::wstring_view(L"ACAD")), kNoRecord);
  ASSERT_TRUE(drawing->removeDimOverride(dimension, kTextHeight).ok());
  EXPECT_EQ(lastRecord(saved(*drawing), "DIMENSION"), before);
  expectUndone(*drawing, original);
}

TEST(DimOverrides, OtherExtendedDataStaysByteForByte) {
  const std::string foreign =
      "|1001 OTHER|1000 DSTYLE|1002 {|1070 140|1040 9.0|1002 }|1001 acad|1000 MORE|1070  7";
  const std::string list = "|1000 DSTYLE|1002 {|1070 77|1070 1|1070 140|1040 2.500|1002 }";
  const std::string tail = "|1001 LAST|1071 5";
  auto drawing = modern(std::string(kDimension) + foreign + list + tail);
  const RecordId dimension = entity(*drawing, "DIMENSION");
  EXPECT_EQ(real(drawing->dimVariable(dimension, kTextHeight)), 2.5);
  const std::string original = saved(*drawing);
  ASSERT_TRUE(drawing->setDimVariable(dimension, kTextHeight, 2.5).ok());
  EXPECT_EQ(saved(*drawing), original) << "an equal value must not be rewritten";

  ASSERT_TRUE(drawing->setDimVariable(dimension, kAbove, std::int64_t{0}).ok());
  EXPECT_EQ(saved(*drawing).find(groups("1070 77|1070 1")), std::string::npos);
  ASSERT_TRUE(drawing->removeDimOverride(dimension, kAbove).ok());
  ASSERT_TRUE(drawing->removeDimOverride(dimension, kTextHeight).ok());
  EXPECT_EQ(lastRecord(saved(*drawing), "DIMENSION"), groups(std::string(kDimension) + foreign + tail));
  // An application with other data gets a new list at its end.
  ASSERT_TRUE(drawing->setDimVariable(dimension, kTextHeight, 4.0).ok());
  EXPECT_EQ(
      lastRecord(saved(*drawing), "DIMENSION"),
      groups(std::string(kDimension) + foreign + "|1000 DSTYLE|1002 {|1070 140|1040 4.0|1002 }" + tail));
}

TEST(DimOverrides, YoungerVariablesStandInDataOfTheirOwnInOldFiles) {
  constexpr std::string_view kData =
      "|1001 ACAD_DSTYLE_DIM_EXT1_LINETYPE|1070 381|1005 11|1001 ACAD_DSTYLE_DIMTEXT_FILL|1070 376|1070 "
      "2|1070 "
      "377|1004 1800000001000000610000C300000000";
  for (const std::string_view version : {"AC1015", "AC1018", "AC1024"}) {
    const auto drawing = modern(std::string(kDimension) + std::string(kData), version);
    DimVariables values;
    values.takeOwn(*drawing, drawing->record(entity(*drawing, "DIMENSION")));
    const bool isOld = version != "AC1024";
    EXPECT_EQ(values.text(dimRow("DIMLTEX1")), isOld ? L"Standard" : L"") << version;
    EXPECT_EQ(values.integer(dimRow("DIMTFILL")), isOld ? 2 : 0);
    EXPECT_EQ(values.integer(dimRow("DIMTFILLCLR")), isOld ? 97 : 0);
  }
}

TEST(DimOverrides, AListThatIsNotClosedIsNoList) {
  auto drawing = modern(std::string(kDimension) + "|1001 ACAD|1000 DSTYLE|1002 {|1070 140|1040 2.0");
  const RecordId dimension = entity(*drawing, "DIMENSION");
  EXPECT_FALSE(drawing->dimVariable(dimension, kTextHeight).has_value());
  ASSERT_TRUE(drawing->setDimVariable(dimension, kTextHeight, 3.5).ok());
  EXPECT_EQ(real(drawing->dimVariable(dimension, kTextHeight)), 3.5);
}

TEST(DimOverrides, NamesAreHandlesFrom2000AndTextsBefore) {
  auto drawing = modern(kDimension);
  const RecordId dimension = entity(*drawing, "DIMENSION");
  const Shape tick = LineShape{{-0.5, -0.5}, {0.5, 0.5}};
  ASSERT_TRUE(drawing->defineBlock(L"_Oblique", std::span(&tick, 1)).ok());
  ASSERT_TRUE(drawing->setDimVariable(dimension, kArrow, std::wstring(L"_OBLIQUE")).ok());
  ASSERT_TRUE(drawing->setDimVariable(dimension, kTextStyle, std::wstring(L"standard")).ok());
  EXPECT_EQ(text(drawing->dimVariable(dimension, kArrow)), L"_Oblique");
  EXPECT_EQ(text(drawing->dimVariable(dimension, kTextStyle)), L"Standard");
  const Handle arrow = *drawing->handle(drawing->find(Table::kBlockRecord, std::wstring_view(L"_OBLIQUE")));
  char handle[32];
  std::snprintf(handle, sizeof handle, "%llX", static_cast<unsigned long long>(arrow));
  EXPECT_NE(saved(*drawing).find(groups("1070 342|1005 " + std::string(handle) + "|1070 340|1005 11")),
            std::string::npos);
  ASSERT_TRUE(drawing->setDimVariable(dimension, kArrow, std::wstring(L".")).ok());
  EXPECT_EQ(text(drawing->dimVariable(dimension, kArrow)), L"");

  auto before = old("0 DIMENSION|8 0|2 *D1|70 0");
  const RecordId oldDimension = entity(*before, "DIMENSION");
  ASSERT_TRUE(before->defineBlock(L"_OBLIQUE", std::span(&tick, 1)).ok());
  ASSERT_TRUE(before->setDimVariable(oldDimension, kArrow, std::wstring(L"_oblique")).ok());
  EXPECT_NE(saved(*before).find(groups("1070 5|1000 _OBLIQUE|1002 }")), std::string::npos);
  EXPECT_EQ(text(before->dimVariable(oldDimension, kArrow)), L"_OBLIQUE");
}

TEST(DimOverrides, RefusalsLeaveNothingBehind) {
  auto drawing = modern(std::string(kDimension) + "|0 LINE|5 21|100 AcDbEntity|8 0|100 AcDbLine");
  const std::string original = saved(*drawing);
  const RecordId dimension = entity(*drawing, "DIMENSION");
  EXPECT_FALSE(drawing->setDimVariable(dimension, kArrow, std::wstring(L"NOSUCH")).ok());
  EXPECT_FALSE(drawing->setDimVariable(dimension, kTextHeight, std::wstring(L"tall")).ok());
  EXPECT_FALSE(drawing->setDimVariable(dimension, kAbove, 1.5).ok());
  EXPECT_FALSE(drawing->setDimVariable(dimension, kAbove, std::int64_t{40000}).ok());
  EXPECT_FALSE(drawing->setDimVariable(dimension, dimRow("DIMFXL"), 1.0).ok()) << "DIMFXL came in 2007";
  EXPECT_FALSE(drawing->setDimVariable(entity(*drawing, "LINE"), kTextHeight, 1.0).ok());
  EXPECT_EQ(saved(*drawing), original);
}

TEST(DimStyles, ValuesStandAsPlainGroups) {
  auto drawing = modern("0 LINE|5 20|8 0");
  const RecordId style = drawing->addTableRecord(Table::kDimStyle, L"D").value();
  ASSERT_TRUE(drawing->setDimVariable(style, kTextHeight, 5.0).ok());
  ASSERT_TRUE(drawing->setDimVariable(style, kTextHeight, 6.0).ok());
  ASSERT_TRUE(drawing->setDimVariable(style, dimRow("DIMPOST"), std::wstring(L"<>mm")).ok());
  EXPECT_EQ(lastRecord(saved(*drawing), "DIMSTYLE"),
            groups("0 DIMSTYLE|105 400|330 A|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 D|70 0|"
                   "340 11|140 6.0|3 <>mm"));
  EXPECT_FALSE(drawing->removeDimOverride(style, kTextHeight).ok());

  auto before = old("0 LINE|8 0|62 1");
  const Shape tick = LineShape{{-0.5, -0.5}, {0.5, 0.5}};
  ASSERT_TRUE(before->defineBlock(L"_OBLIQUE", std::span(&tick, 1)).ok());
  const RecordId oldStyle = before->addTableRecord(Table::kDimStyle, L"D").value();
  ASSERT_TRUE(before->setDimVariable(oldStyle, kArrow, std::wstring(L"_OBLIQUE")).ok());
  EXPECT_NE(lastRecord(saved(*before), "DIMSTYLE").find(groups("5 _OBLIQUE|6 |7 ")), std::string::npos);
}

}  // namespace
}  // namespace cad::dxf
