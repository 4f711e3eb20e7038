// The blocks that show dimensions follow them, and so do the hooks of leaders.

#include <algorithm>

#include "dbdim.h"
#include "dblead.h"
#include "embedded/graphics/dimensions/compare.h"
#include "tests/embedded/objects/fixture.h"

namespace cad::test {
namespace {

using dxf::groups;
using dxf::replaced;
using dxf::saved;

constexpr Handle kFirst = 0x201, kSecond = 0x202, kJogged = 0x203, kMirrored = 0x204, kLeader = 0x205;

std::string block(std::string_view name, std::string_view handle, std::string_view content) {
  std::string text = "|0 BLOCK|5 ";
  text.append(handle).append("|8 0|2 ").append(name).append("|70 1|10 0.0|20 0.0|30 0.0|3 ").append(name);
  return text.append("|1 ").append(content).append("|0 ENDBLK|5 ").append(handle).append("F|8 0");
}

std::string dimension(std::string_view type, std::string_view handle, std::string_view block,
                      std::string_view rest) {
  std::string text = "|0 ";
  text.append(type).append("|5 ").append(handle).append("|100 AcDbEntity|8 DIM|100 AcDbDimension|2 ");
  return text.append(block).append("|11 5.0|21 4.0|31 0.0|3 S").append(rest);
}

// Two dimensions of 10 units that share a block, a jogged one, one seen from below, a leader with its hook.
std::string dimensions(std::string_view version = "AC1024") {
  const std::string line =
      "|0 LINE|5 %|100 AcDbEntity|8 DIM|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|21 0.0|31 0.0";
  const std::string point = "|0 POINT|5 %|100 AcDbEntity|8 DEFPOINTS|62 0|100 AcDbPoint|10 0.0|20 0.0|30 0.0";
  const auto content = [&](std::string_view first, std::string_view second) {
    return replaced(line, "%", first) + replaced(point, "%", second);
  };
  const std::string measure = "|70 32|10 10.0|20 3.0|30 0.0|13 0.0|23 0.0|33 0.0|14 10.0|24 0.0|34 0.0";
  const auto layer = [](std::string_view name, std::string_view handle) {
    return "|0 LAYER|5 " + std::string(handle) + "|2 " + std::string(name) + "|70 0|62 7|6 CONTINUOUS";
  };
  return groups("0 SECTION|2 HEADER|9 $ACADVER|1 " + std::string(version) +
                "|9 $HANDSEED|5 400|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LAYER|70 3" + layer("0", "10") +
                layer("DIM", "11") + layer("NEW", "12") + layer("DEFPOINTS", "13") +
                "|0 ENDTAB|0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|105 20|100 AcDbSymbolTableRecord|100 "
                "AcDbDimStyleTableRecord|2 S|70 0|41 0.5|140 0.5|271 1|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS" +
                block("*D1", "30", content("31", "32")) + block("*D2", "40", content("41", "42")) +
                block("*D4", "50", content("51", "52")) + "|0 ENDSEC|0 SECTION|2 ENTITIES" +
                dimension("DIMENSION", "201", "*D1", measure) +
                dimension("DIMENSION", "202", "*D1", measure) +
                dimension("LARGE_RADIAL_DIMENSION", "203", "*D2", "|70 137") +
                dimension("DIMENSION", "204", "*D4", measure + "|210 0.0|220 0.0|230 -1.0") +
                "|0 LEADER|5 205|100 AcDbEntity|8 DIM|100 AcDbLeader|3 S|71 1|72 0|76 3|10 0.0|20 0.0|30 0.0"
                "|10 4.0|20 4.0|30 0.0|10 4.5|20 4.0|30 0.0|0 ENDSEC|0 EOF");
}

class FollowersTest : public ObjectTest {
 protected:
  void SetUp() override { start(dimensions()); }
  void start(const std::string& dxf) {
    load(dxf);
    told_.clear();
    tellRemarks(*database_, [this](const base::Failure& failure) { told_.push_back(failure.text()); });
  }

  RecordId blockOf(Handle handle) const {
    return drawing_->reference(drawing_->findHandle(handle), Property::kDimBlock);
  }
  std::wstring blockName(Handle handle) const {
    return drawing_->names().text(drawing_->recordName(blockOf(handle)));
  }
  std::vector<BlockEntity> shown(Handle handle) const { return blockEntities(*drawing_, blockOf(handle)); }
  // "LINE@DIM": the types and layers of what shows a dimension, each run of equals once.
  std::string content(Handle handle) const {
    std::string text, last;
    for (const BlockEntity& entity : shown(handle)) {
      std::string next(entity.type);
      next.append("@").append(entity.layer.begin(), entity.layer.end());
      if (next != last) text += text.empty() ? next : " " + next;
      last = next;
    }
    return text;
  }
  double textHeight(Handle handle) const {
    for (const BlockEntity& entity : shown(handle))
      if (const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape)) return text->height;
    return 0;
  }
  template <class Shape>
  Shape first(Handle handle) const {
    for (const BlockEntity& entity : shown(handle))
      if (const auto* shape = std::get_if<Shape>(&entity.geometry.shape)) return *shape;
    return {};
  }
  template <class Change>
  void change(Handle handle, Change change) {
    drawing_->beginUndoGroup();
    {
      Writing<AcDbDimension> dimension(id(handle), AcDb::kForWrite);
      ASSERT_EQ(dimension.openStatus(), Acad::eOk);
      EXPECT_EQ(change(*dimension), Acad::eOk);
    }
    drawing_->endUndoGroup();
  }

  std::vector<std::wstring> told_;
};

constexpr auto kDoublesText = [](AcDbDimension& dimension) { return dimension.setDimtxt(1); };
constexpr char kDrawn[] = "LINE@DIM SOLID@DIM MTEXT@DIM POINT@DEFPOINTS";

TEST_F(FollowersTest, IsDrawnWhenAskedForOrWhenTheDimensionIsClosed) {
  const std::string original = saved(*drawing_);
  const RecordId before = blockOf(kMirrored);
  change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
  EXPECT_EQ(content(kMirrored), kDrawn);
  EXPECT_EQ(blockOf(kMirrored), before);
  const auto revision = drawing_->revision();
  change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
  EXPECT_EQ(drawing_->revision(), revision);  // the picture is there already
  drawing_->undo();
  EXPECT_EQ(saved(*drawing_), original);

  change(kMirrored, kDoublesText);
  EXPECT_EQ(textHeight(kMirrored), 1);
  const auto afterwards = drawing_->recordCount();
  change(kMirrored, [&](AcDbDimension& dimension) {
    EXPECT_EQ(dimension.setDimtxt(1.5), Acad::eOk);
    EXPECT_EQ(dimension.recomputeDimBlock(), Acad::eOk);
    EXPECT_EQ(dimension.setDimtxt(2), Acad::eOk);
    return dimension.recomputeDimBlock();
  });
  EXPECT_EQ(drawing_->recordCount(), afterwards + shown(kMirrored).size());  // drawn once
  drawing_->undo(), drawing_->undo();
  EXPECT_EQ(saved(*drawing_), original);
  EXPECT_EQ(AcDbObjectPointer<AcDbDimension>(id(kMirrored))->recomputeDimBlock(), Acad::eNotOpenForWrite);
  EXPECT_TRUE(told_.empty());
}

TEST_F(FollowersTest, IsSeenFromTheSideThatTheNormalTells) {
  change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
  bool sawLine = false, sawArrow = false;
  for (const BlockEntity& entity : shown(kMirrored)) {
    // The origins are world points 0 and 10; the object's own x axis runs the other way.
    if (const auto* line = std::get_if<LineGeometry>(&entity.geometry.shape))
      sawLine = sawLine || (line->from.x == 10 && line->to.x == 10);
    if (const auto* arrow = std::get_if<SolidGeometry>(&entity.geometry.shape)) {
      EXPECT_EQ(entity.geometry.normal.z, -1);
      sawArrow = sawArrow || arrow->corners[2].x == -10;
    }
  }
  EXPECT_TRUE(sawLine);
  EXPECT_TRUE(sawArrow);
}

TEST_F(FollowersTest, IsDrawnAnewWhateverOfItsTextDiffers) {
  const auto redrawn = [&](const std::string& dxf) {
    start(dxf);
    const auto revision = drawing_->revision();
    change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
    return drawing_->revision() != revision;
  };
  std::string drawn = replaced(dimensions(), groups("210 0.0"), groups("1 \\H5;ab x;|210 0.0"));
  EXPECT_TRUE(redrawn(drawn));
  if (!testsDxf()) return;
  drawn = saved(*drawing_);
  EXPECT_FALSE(redrawn(drawn));
  for (const auto& [from, to] : {std::pair{"ab x;\n", "ac x;\n"}, {" 71\n5\n", " 71\n1\n"}}) {
    const std::string other = replaced(drawn, from, to);
    EXPECT_TRUE(other != drawn && redrawn(other)) << from;
  }
}

TEST_F(FollowersTest, TheRecordFollowsATextThatNobodyPlaced) {
  const auto record = [&] {
    const std::string all = saved(*drawing_);
    const std::size_t begin = all.find("DIMENSION\n  5\n204\n");
    return all.substr(begin, all.find("\n  0\n", begin) - begin);
  };
  std::string placed = dimensions();
  const std::string byRules = groups("70 32");
  placed.replace(placed.rfind(byRules), byRules.size(), groups("70 160"));
  for (const bool isPlaced : {false, true}) {
    start(isPlaced ? placed : dimensions());
    const std::string before = testsDxf() ? record() : std::string();
    change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
    const Geometry geometry = drawing_->geometry(drawing_->findHandle(kMirrored));
    const Point middle = std::get<DimensionGeometry>(geometry.shape).text;
    EXPECT_EQ(middle.x, isPlaced ? 5 : -5);  // in the dimension's own system
    EXPECT_EQ(middle.y, isPlaced ? 4 : 3);
    if (!testsDxf()) continue;
    EXPECT_EQ(record(),
              isPlaced ? before : replaced(before, groups("11 5.0|21 4.0"), groups("11 -5.0|21 3.0")));
  }
}

TEST_F(FollowersTest, IsItsOwnAsSoonAsItDiffers) {
  const std::string original = saved(*drawing_), both = content(kFirst);
  change(kFirst, [](AcDbDimension& dimension) { return dimension.setDimtxt(1); });
  EXPECT_EQ(blockName(kFirst), L"*D3");  // a free number
  EXPECT_EQ(content(kFirst), kDrawn);
  EXPECT_EQ(blockName(kSecond), L"*D1");
  EXPECT_EQ(content(kSecond), both);
  const bool hasEntry = drawing_->find(Table::kBlockRecord, std::wstring_view(L"*D3")) != kNoRecord;
  EXPECT_EQ(hasEntry, !testsMemory());
  change(kSecond, [](AcDbDimension& dimension) { return dimension.setDimtxt(2); });
  EXPECT_EQ(blockName(kSecond), L"*D1");
  EXPECT_EQ(textHeight(kFirst), 1);
  EXPECT_EQ(textHeight(kSecond), 2);
  drawing_->undo(), drawing_->undo();
  EXPECT_EQ(saved(*drawing_), original);
}

TEST_F(FollowersTest, TakesOverTheLayerAndNothingElse) {
  const auto moves = [](AcDbDimension& dimension) { return dimension.setLayer(L"NEW"); };
  const std::string original = saved(*drawing_);
  for (const Handle handle : {kMirrored, kJogged}) {
    change(handle, moves);
    EXPECT_EQ(content(handle), "LINE@NEW POINT@DEFPOINTS");
  }
  EXPECT_EQ(content(kFirst), "LINE@DIM POINT@DEFPOINTS");
  if (testsDxf()) {
    std::string expected = original;
    for (const std::string_view line :
         {"LINE\n  5\n41\n", "LINE\n  5\n51\n", "DIMENSION\n  5\n203\n", "DIMENSION\n  5\n204\n"}) {
      const std::size_t at = expected.find("DIM\n", expected.find(line) + line.size());
      expected.replace(at, 3, "NEW");
    }
    EXPECT_EQ(saved(*drawing_), expected);
  }
  change(kJogged, [](AcDbDimension& dimension) { return dimension.setLinetype(L"ByBlock"); });
  for (const BlockEntity& entity : shown(kJogged)) EXPECT_EQ(entity.linetype, L"ByBlock");
  change(kJogged, [](AcDbDimension& dimension) { return dimension.setColorIndex(3); });
  change(kJogged, [](AcDbDimension& dimension) { return dimension.setLayer(L"DEFPOINTS"); });
  EXPECT_EQ(content(kJogged), "LINE@DEFPOINTS POINT@DEFPOINTS");
  change(kJogged, moves);  // definition points stay where they belong
  EXPECT_EQ(content(kJogged), "LINE@NEW POINT@DEFPOINTS");
  change(kFirst, moves);  // shared: it is drawn
  EXPECT_EQ(content(kFirst), "LINE@NEW SOLID@NEW MTEXT@NEW POINT@DEFPOINTS");
  EXPECT_EQ(content(kSecond), "LINE@DIM POINT@DEFPOINTS");
  EXPECT_TRUE(told_.empty());
  while (drawing_->undo()) {
  }
  EXPECT_EQ(saved(*drawing_), original);
}

TEST_F(FollowersTest, TakesAlongTheNamelessBlocksOfItsOwn) {
  // In a block that another block shows too, nothing moves.
  for (const bool isShared : {false, true}) {
    const std::string insert = "0 INSERT|5 6%|100 AcDbEntity|8 0|100 AcDbBlockReference|2 *U1|10 0.0|20 0.0|";
    const auto shows = [&](std::string text, std::string_view handle, std::string_view before) {
      return replaced(std::move(text), groups(before),
                      groups(replaced(insert, "%", handle) + std::string(before)));
    };
    const std::string nested =
        block("*U1", "68", "|0 TEXT|5 67|100 AcDbEntity|8 DIM|10 0.0|20 0.0|40 1.0|1 A");
    std::string dxf =
        replaced(dimensions("AC1009"), groups("0 BLOCK|5 50"), groups(nested.substr(1) + "|0 BLOCK|5 50"));
    dxf = shows(shows(dxf, "1", "0 POINT|5 52"), "2", "0 POINT|5 52");
    if (isShared) dxf = shows(dxf, "3", "0 POINT|5 42");
    start(dxf);
    change(kMirrored, [](AcDbDimension& dimension) { return dimension.setLayer(L"NEW"); });
    EXPECT_EQ(content(kMirrored), "LINE@NEW INSERT@0 POINT@DEFPOINTS");
    const RecordId text = drawing_->findHandle(0x67);
    EXPECT_EQ(drawing_->text(text, Property::kLayer), isShared ? L"DIM" : L"NEW");
  }
}

TEST_F(FollowersTest, GetsABlockWhereItHasNone) {
  const std::string named = replaced(dimensions(), groups("2 *D1|70 1"), groups("2 *D9|70 1"));
  for (const std::string& dxf : {named, replaced(named, groups("2 *D1|11 5.0"), groups("11 5.0"))}) {
    start(dxf);
    const std::string original = saved(*drawing_);
    change(kFirst, [](AcDbDimension& dimension) { return dimension.setDimtxt(1); });
    EXPECT_EQ(content(kFirst), kDrawn);
    EXPECT_EQ(blockOf(kSecond), kNoRecord);  // which has a name, but not the new one
    drawing_->undo();
    EXPECT_EQ(saved(*drawing_), original);
  }
  EXPECT_TRUE(told_.empty());
}

TEST_F(FollowersTest, SizesAreComparedAlikeFarFromTheOrigin) {
  std::string far = dimensions();
  for (const auto& [from, to] :
       {std::pair("10 10.0|20 3.0|30 0.0|13 0.0", "10 50000010.0|20 3.0|30 0.0|13 5e7"),
        std::pair("14 10.0|24 0.0", "14 50000010.0|24 0.0")})
    far = replaced(far, groups(from), groups(to));
  start(far);
  for (const double height : {0.6, 0.604}) {
    change(kFirst, [&](AcDbDimension& dimension) { return dimension.setDimtxt(height); });
    EXPECT_EQ(textHeight(kFirst), height);
  }
}

TEST_F(FollowersTest, StaysAndIsToldOnceWhereItCannotBeDrawn) {
  const std::string kept = content(kJogged);
  for (const double height : {1.0, 2.0})
    change(kJogged, [&](AcDbDimension& dimension) { return dimension.setDimtxt(height); });
  EXPECT_EQ(content(kJogged), kept);
  ASSERT_EQ(told_.size(), 1u);
  EXPECT_NE(told_[0].find(L"LARGE_RADIAL_DIMENSION 203"), std::wstring::npos);
}

constexpr char kNoneSoOld[] = "no DWG drawing that is read is so old";

TEST_F(FollowersTest, OldVersionsHaveALineOfTextAndNeedTheStyle) {
  if (testsDwg()) GTEST_SKIP() << kNoneSoOld;
  start(dimensions("AC1009"));
  change(kMirrored, kDoublesText);
  EXPECT_EQ(content(kMirrored), "LINE@DIM SOLID@DIM TEXT@DIM POINT@DEFPOINTS");
  std::string unnamed = dimensions("AC1009");
  for (int i = 0; i < 2; ++i) unnamed = replaced(unnamed, groups("3 S|70 32"), groups("70 32"));
  start(unnamed);
  change(kFirst, kDoublesText);
  EXPECT_EQ(content(kFirst), "LINE@DIM POINT@DEFPOINTS");
  EXPECT_EQ(told_.size(), 1u);
}

TEST_F(FollowersTest, BlanksOfAPersonsTextCount) {
  for (const auto& [text, written] : {std::pair(" ", L""), std::pair("  A <> ", L"\\A1;  A 10.0 ")}) {
    const std::string group = "34 0.0|1 " + std::string(text) + "|210 0.0";
    start(replaced(dimensions(), groups("34 0.0|210 0.0"), groups(group)));
    change(kMirrored, kDoublesText);
    EXPECT_EQ(first<SolidGeometry>(kMirrored).corners[2].y, 3);
    EXPECT_EQ(first<TextGeometry>(kMirrored).contents, written);
  }
}

TEST_F(FollowersTest, AMissingStyleIsToldAndAnUnnamedOneIsStandard) {
  if (!testsDxf())
    GTEST_SKIP() << "about names of what is missing, which other formats do not refer to by name";
  start(replaced(dimensions(), groups("2 S|70 0"), groups("2 OTHER|70 0")));
  change(kMirrored, kDoublesText);
  EXPECT_EQ(content(kMirrored), "LINE@DIM POINT@DEFPOINTS");
  EXPECT_EQ(told_.size(), 1u);
  std::string unnamed = replaced(dimensions(), groups("2 S|70 0"), groups("2 STANDARD|70 0"));
  for (int i = 0; i < 3; ++i) unnamed = replaced(unnamed, groups("3 S|70 32"), groups("70 32"));
  start(unnamed);
  change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
  EXPECT_EQ(textHeight(kMirrored), 0.5);
}

// DIMFIT tells what DIMATFIT and DIMTMOVE tell from R2000 on.
TEST_F(FollowersTest, OldRulesOfFitHold) {
  const auto drawn = [&](std::string_view version, const std::string& style) {
    start(replaced(dimensions(version), groups("41 0.5|140 0.5"), groups(style)));
    change(kMirrored, [](AcDbDimension& dimension) { return dimension.recomputeDimBlock(); });
    std::string places = content(kMirrored);
    for (const BlockEntity& entity : shown(kMirrored)) {
      if (const auto* line = std::get_if<LineGeometry>(&entity.geometry.shape))
        places += " " + std::to_string(line->from.x) + " " + std::to_string(line->to.x);
      if (const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape))
        places += " " + std::to_string(text->at.x) + " " + std::to_string(text->at.y);
    }
    return places;
  };
  std::string last;
  for (const auto& [fit, later] : {std::pair("41 4.5|140 0.5|287 0", "41 4.5|140 0.5|289 0"),
                                   std::pair("41 4.5|140 0.5|287 1", "41 4.5|140 0.5|289 1"),
                                   std::pair("41 4.5|140 0.5|287 2", "41 4.5|140 0.5|289 2"),
                                   std::pair("41 4.0|140 6.0|287 3", "41 4.0|140 6.0|289 3"),
                                   std::pair("41 4.0|140 6.0|287 4", "41 4.0|140 6.0|279 1|289 3"),
                                   std::pair("41 4.0|140 6.0|287 5", "41 4.0|140 6.0|279 2|289 3")}) {
    const std::string old = drawn("AC1014", fit);
    EXPECT_EQ(old, drawn("AC1015", later)) << fit;
    EXPECT_NE(old, last) << fit;
    last = old;
  }
}

std::string withTextStyle(const std::string& dxf, const std::string& style) {
  const std::string table = "0 TABLE|2 STYLE|70 1|0 STYLE|5 60|" + style + "|41 1.0|3 txt|4 |0 ENDTAB|";
  return replaced(dxf, groups("0 TABLE|2 DIMSTYLE"), groups(table + "0 TABLE|2 DIMSTYLE"));
}

constexpr char kOldLine[] =
    "0 LINE|5 51|100 AcDbEntity|8 DIM|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|21 0.0";

TEST_F(FollowersTest, AScaleThatOnlyThePictureTellsIsThatOfTheArrowsUnderAFixedTextHeight) {
  std::string dxf = replaced(dimensions(), groups("41 0.5|140 0.5"), groups("40 0.0|41 0.5|140 0.5"));
  dxf = replaced(dxf, groups(kOldLine),
                 groups("0 SOLID|5 51|100 AcDbEntity|8 DIM|100 AcDbTrace|10 0.0|20 0.2|30 0.0|12 1.0|22 "
                        "0.0|32 0.0|11 0.0|21 -0.2"));
  start(withTextStyle(dxf, "2 STANDARD|70 0|40 7.0"));
  change(kMirrored, kDoublesText);
  const auto corners = first<SolidGeometry>(kMirrored).corners;
  EXPECT_DOUBLE_EQ(std::abs(corners[2].x - corners[0].x), 1);
  EXPECT_EQ(textHeight(kMirrored), 7);
}

TEST_F(FollowersTest, OldVersionsKeepTheStyleOfTheText) {
  if (testsDwg()) GTEST_SKIP() << kNoneSoOld;
  const std::string dxf = withTextStyle(dimensions("AC1009"), "2 OFFICE|70 0|40 0.0");
  const std::string text = "0 TEXT|5 51|8 DIM|7 OFFICE|1 5|40 0.5|10 0.0|20 0.0|30 0.0|11 1.0|21 0.0";
  for (const std::string& each :
       {replaced(dxf, groups(kOldLine), groups(text)),
        replaced(dxf, groups("9 $HANDSEED"), groups("9 $TEXTSTYLE|7 OFFICE|9 $HANDSEED"))}) {
    start(each);
    change(kMirrored, kDoublesText);
    for (const BlockEntity& entity : shown(kMirrored))
      EXPECT_EQ(entity.textStyle, entity.type == "TEXT" ? L"OFFICE" : L"");
    EXPECT_EQ(textHeight(kMirrored), 1);
  }
}

TEST_F(FollowersTest, TheHookOfALeaderIsAsLongAsItsArrow) {
  const auto lastX = [&] {
    const Geometry geometry = drawing_->geometry(drawing_->findHandle(kLeader));
    return std::get<PolylineGeometry>(geometry.shape).vertices.back().at.x;
  };
  const std::string original = saved(*drawing_);
  const auto setSize = [&](double size) {
    drawing_->beginUndoGroup();
    EXPECT_EQ(Writing<AcDbLeader>(id(kLeader), AcDb::kForWrite)->setDimasz(size), Acad::eOk);
    drawing_->endUndoGroup();
  };
  setSize(2);
  EXPECT_DOUBLE_EQ(lastX(), 6);
  drawing_->undo();
  EXPECT_EQ(saved(*drawing_), original);
  start(replaced(dimensions(), "4.5\n", "4.7\n"));  // no hook: another length
  setSize(2);
  EXPECT_DOUBLE_EQ(lastX(), 4.7);
}

}  // namespace
}  // namespace cad::test
