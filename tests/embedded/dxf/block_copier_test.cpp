#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

constexpr std::string_view kNested =
    "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 LEAF|70 0|10 1.0|20 0.0|30 0.0|3 LEAF|1 |0 LINE|8 DEEP|6 CHAIN|10 "
    "0.0|20 0.0|"
    "11 1.0|21 0.0|0 ENDBLK|8 0|0 BLOCK|8 0|2 BRANCH|70 0|10 0.0|20 0.0|30 0.0|3 BRANCH|1 |0 INSERT|8 0|2 "
    "leaf|"
    "10 0.0|20 0.0|0 ENDBLK|8 0|0 ENDSEC|";

std::unique_ptr<Drawing> oldWithBlocks(std::string_view blocks, std::string_view entities) {
  std::string text =
      "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $DWGCODEPAGE|3 ANSI_932|9 $INSBASE|10 5.0|20 6.0|30 "
      "0.0|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LTYPE|70 1|0 LTYPE|2 CHAIN|70 0|3 chain|72 65|73 2|"
      "40 3.0|49 2.0|49 -1.0|0 ENDTAB|0 TABLE|2 LAYER|70 1|0 LAYER|2 \x95\xC7|70 4|62 -3|6 CHAIN|"
      "0 ENDTAB|0 ENDSEC|";
  text.append(blocks).append("0 SECTION|2 ENTITIES|").append(entities).append("|0 ENDSEC|0 EOF");
  return read(groups(text));
}

TEST(BlockCopier, BringsLayersLinetypesAndNestedBlocks) {
  auto source = oldWithBlocks(kNested, "0 INSERT|8 \x95\xC7|2 BRANCH|10 0.0|20 0.0");
  auto target = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine", "AC1032", "ANSI_1252");
  const std::string original = saved(*target);
  const auto made = target->defineBlock(L"COPY", *source);
  ASSERT_TRUE(made.ok()) << std::string(made.failure().reason.begin(), made.failure().reason.end());
  EXPECT_EQ(typesIn(*target, made.value()), "INSERT");
  EXPECT_EQ(typesIn(*target, block(*target, L"LEAF")), "LINE");
  const RecordId layer = target->find(Table::kLayer, std::wstring_view(L"\x58C1"));
  ASSERT_NE(layer, kNoRecord);
  EXPECT_EQ(target->integer(layer, Property::kLayerColor), -3);
  EXPECT_EQ(target->integer(layer, Property::kStandardFlags), 4);
  EXPECT_EQ(target->names().text(target->name(layer, Property::kLayerLinetype)), L"CHAIN");
  const std::string text = saved(*target);
  EXPECT_NE(text.find(groups("3 chain|72 65|73 2|40 3.0|49 2.0|74 0|49 -1.0|74 0")), std::string::npos);
  EXPECT_NE(lastRecord(text, "BLOCK").find(groups("10 5.0|20 6.0|30 0.0|3 COPY")), std::string::npos);
  EXPECT_LT(text.find(groups("3 LEAF")), text.find(groups("3 BRANCH")));
  EXPECT_LT(text.find(groups("3 BRANCH")), text.find(groups("3 COPY")));
  expectUndone(*target, original);
}

TEST(BlockCopier, AddsSubclassMarkersForNewFiles) {
  auto source =
      oldWithBlocks("",
                    "0 ARC|8 0|62 1|10 0.0|20 0.0|30 0.0|40 2.0|50 0.0|51 90.0|0 TEXT|8 0|10 0.0|20 0.0|"
                    "40 2.5|1 \x95\xC7|73 2|11 1.0|21 1.0|1001 APP|1000 x|0 POLYLINE|8 0|66 1|70 8|"
                    "0 VERTEX|8 0|10 1.0|20 1.0|30 1.0|70 32|0 SEQEND|8 0");
  auto target = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine", "AC1015", "ANSI_1252");
  ASSERT_TRUE(target->defineBlock(L"C", *source).ok());
  const std::string text = saved(*target);
  EXPECT_NE(text.find(groups(
                "100 AcDbEntity|8 0|62 1|100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 2.0|100 AcDbArc|50 0.0|"
                "51 90.0")),
            std::string::npos)
      << text;
  EXPECT_NE(text.find(groups("1 \\U+58C1|11 1.0|21 1.0|100 AcDbText|73 2|1001 APP|1000 x")),
            std::string::npos)
      << text;
  EXPECT_NE(text.find(groups("100 AcDbVertex|100 AcDb3dPolylineVertex|10 1.0")), std::string::npos) << text;
  EXPECT_NE(target->find(Table::kAppId, std::wstring_view(L"APP")), kNoRecord);
}

TEST(BlockCopier, RemovesWhatOldFilesDoNotKnow) {
  auto source = modern(
      "0 CIRCLE|5 20|102 {ACAD_REACTORS|330 99|102 }|330 1F|100 AcDbEntity|8 0|370 25|420 255|48 2.0|"
      "100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 2.0");
  auto target = old("0 LINE|8 0|62 1");
  ASSERT_TRUE(target->defineBlock(L"C", *source).ok());
  const std::string circle = lastRecord(saved(*target), "CIRCLE");
  EXPECT_TRUE(circle.ends_with(groups("8 0|10 0.0|20 0.0|30 0.0|40 2.0"))) << circle;
  EXPECT_EQ(circle.find("330"), std::string::npos);
}

TEST(BlockCopier, HandlesAreNewAndReferencesFollowOrGo) {
  auto source = modern(
      "0 CIRCLE|5 20|330 1F|100 AcDbEntity|8 0|347 77|100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 2.0|"
      "1001 ACAD|1005 21|1005 99|0 LEADER|5 21|330 1F|100 AcDbEntity|8 0|100 AcDbLeader|3 Standard|"
      "73 0|340 99|0 LEADER|5 22|330 1F|100 AcDbEntity|8 0|100 AcDbLeader|3 Standard|73 0|340 20");
  auto target = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
  const RecordId made = target->defineBlock(L"C", *source).value();
  const std::vector<RecordId> copies = target->entitiesOf(made);
  ASSERT_EQ(copies.size(), 3u);
  const auto hex = [&](RecordId id) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(*target->handle(id)));
    return std::string(digits);
  };
  const std::string text = saved(*target);
  const std::string circle = lastRecord(text, "CIRCLE");
  EXPECT_EQ(circle.find("347"), std::string::npos);
  EXPECT_NE(circle.find(groups("1005 " + hex(copies[1]) + "|1005 0")), std::string::npos) << circle;
  EXPECT_NE(text.find(groups("3 Standard|73 3|0 LEADER")), std::string::npos) << text;
  EXPECT_NE(text.find(groups("3 Standard|73 0|340 " + hex(copies[0]))), std::string::npos) << text;
}

TEST(BlockCopier, AnonymousBlocksGetFreeNames) {
  constexpr std::string_view blocks =
      "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 *D1|70 1|10 0.0|20 0.0|30 0.0|3 *D1|1 |0 LINE|8 0|10 0.0|20 0.0|11 "
      "9.0|21 0.0|"
      "0 ENDBLK|8 0|0 ENDSEC|";
  auto source = oldWithBlocks(blocks,
                              "0 DIMENSION|8 0|2 *D1|70 0|10 0.0|20 0.0|13 1.0|23 0.0|1001 ACAD|1000 DSTYLE|"
                              "1002 {|1070 140|1040 7.0|1002 }");
  auto target = oldWithBlocks(blocks, "0 DIMENSION|8 0|2 *D1|70 0|10 0.0|20 0.0");
  const RecordId made = target->defineBlock(L"C", *source).value();
  const RecordId copy = target->entitiesOf(made).front();
  EXPECT_EQ(target->names().text(target->name(copy, Property::kDimBlock)), L"*D2");
  EXPECT_EQ(typesIn(*target, block(*target, L"*D2")), "LINE");
  EXPECT_EQ(target->dimVariable(copy, dimRow("DIMTXT")), Variable(7.0));
}

TEST(BlockCopier, FailuresNameTheTypeAndLeaveNothingBehind) {
  auto target = old("0 LINE|8 0|62 1");
  const std::string original = saved(*target);
  auto light = modern(
      "0 LINE|5 20|100 AcDbEntity|8 NEW|100 AcDbLine|0 LWPOLYLINE|5 21|100 AcDbEntity|8 0|"
      "100 AcDbPolyline|90 0|70 0");
  const auto failed = target->defineBlock(L"C", *light);
  ASSERT_FALSE(failed.ok());
  EXPECT_EQ(failed.failure().place, L"LWPOLYLINE");
  auto image = modern("0 IMAGE|5 20|100 AcDbEntity|8 0|100 AcDbRasterImage|340 99");
  auto newer = modern("0 LINE|5 20|8 0");
  EXPECT_EQ(newer->defineBlock(L"C", *image).failure().place, L"IMAGE");
  auto lost = oldWithBlocks("", "0 INSERT|8 0|2 MISSING|10 0.0|20 0.0");
  EXPECT_FALSE(target->defineBlock(L"C", *lost).ok());
  EXPECT_EQ(saved(*target), original);
  EXPECT_EQ(target->find(Table::kLayer, std::wstring_view(L"NEW")), kNoRecord);
}

TEST(BlockCopier, ABlockNeverContainsItself) {
  auto source = oldWithBlocks(kNested, "0 INSERT|8 0|2 BRANCH|10 0.0|20 0.0");
  auto target = old("0 LINE|8 0|62 1");
  const std::string original = saved(*target);
  EXPECT_FALSE(target->defineBlock(L"Leaf", *source).ok());
  EXPECT_EQ(saved(*target), original);
  // The receiving drawing's own BRANCH, which stays, refers to its LEAF.
  auto full = oldWithBlocks(kNested, "0 LINE|8 0");
  auto user = oldWithBlocks(
      "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 BRANCH|70 0|10 0.0|20 0.0|30 0.0|3 BRANCH|1 |0 ENDBLK|8 0|0 ENDSEC|",
      "0 INSERT|8 0|2 BRANCH|10 0.0|20 0.0");
  EXPECT_FALSE(full->defineBlock(L"LEAF", *user).ok());
  auto loop = oldWithBlocks(
      "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 A|70 0|10 0.0|20 0.0|30 0.0|3 A|1 |0 INSERT|8 0|2 A|10 0.0|"
      "20 0.0|0 ENDBLK|8 0|0 ENDSEC|",
      "0 INSERT|8 0|2 A|10 0.0|20 0.0");
  EXPECT_FALSE(target->defineBlock(L"C", *loop).ok());
}

TEST(BlockCopier, RefusesEndlessNestingWithoutExhaustingTheStack) {
  const auto nested = [](int levels) {
    std::string blocks = "0 SECTION|2 BLOCKS|";
    for (int i = 0; i < levels; ++i) {
      const std::string name = "N" + std::to_string(i), next = "N" + std::to_string(i + 1);
      blocks.append("0 BLOCK|8 0|2 " + name + "|70 0|10 0.0|20 0.0|30 0.0|3 " + name + "|1 |");
      if (i + 1 < levels) blocks.append("0 INSERT|8 0|2 " + next + "|10 0.0|20 0.0|");
      blocks.append("0 ENDBLK|8 0|");
    }
    return oldWithBlocks(blocks + "0 ENDSEC|", "0 INSERT|8 0|2 N0|10 0.0|20 0.0");
  };
  auto target = old("0 LINE|8 0|62 1");
  const std::string original = saved(*target);
  const auto deep = nested(60000);
  const auto refused = target->defineBlock(L"C", *deep);
  ASSERT_FALSE(refused.ok());
  EXPECT_TRUE(refused.failure().place.starts_with(L"N")) << "the block is named";
  EXPECT_EQ(saved(*target), original);
  EXPECT_TRUE(target->defineBlock(L"C", *nested(100)).ok());
  // The receiving drawing's own nest is as deep as its file makes it.
  EXPECT_TRUE(deep->defineBlock(L"C", *nested(1)).ok());
  EXPECT_FALSE(deep->defineBlock(L"N59999", *nested(1)).ok()) << "N0 refers to it";
}

TEST(BlockBuilding, InsertsGoToLayerZeroWhenTheCurrentLayerIsNoText) {
  auto drawing =
      read(groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $CLAYER|70 3|0 ENDSEC|0 SECTION|2 BLOCKS|"
                  "0 BLOCK|8 0|2 B|70 0|10 0.0|20 0.0|30 0.0|3 B|1 |0 ENDBLK|8 0|0 ENDSEC|"
                  "0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF"));
  const auto made = drawing->addInsert(drawing->modelSpace(), {block(*drawing, L"B"), {}});
  ASSERT_TRUE(made.ok());
  EXPECT_EQ(drawing->text(made.value(), Property::kLayer), L"0");
}

}  // namespace
}  // namespace cad::dxf
