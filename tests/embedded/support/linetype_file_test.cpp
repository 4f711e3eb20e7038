#include "embedded/support/linetype_file.h"

#include <gtest/gtest.h>

#include "tests/embedded/dxf/building_fixture.h"

namespace cad::support {
namespace {

using dxf::read;
using dxf::saved;

std::filesystem::path shipped(const char* name) {
  return std::filesystem::path(KIV_SOURCE_DIR) / "embedded" / "support" / name;
}

// No shape file is at hand but the one that this is given.
LoadedLinetypes load(Drawing& target, std::wstring_view name, const std::filesystem::path& file,
                     const std::filesystem::path& shapes = {}) {
  return loadLinetypes(target, name, file, [&](std::wstring_view) { return shapes; });
}

bool loads(Drawing& target, std::wstring_view name, const char* file) {
  return load(target, name, shipped(file)).result == LinetypeLoading::kLoaded;
}

class LinetypeFiles : public testing::Test {
 protected:
  void TearDown() override {
    for (const auto& file : files_) std::filesystem::remove(file);
  }
  std::filesystem::path write(std::string_view bytes) {
    files_.push_back(test_support::tempPath("kiv_lin") += std::to_string(files_.size()));
    EXPECT_TRUE(base::writeFileAtomically(files_.back(), bytes).ok());
    return files_.back();
  }
  std::vector<std::filesystem::path> files_;
};

std::unique_ptr<Drawing> drawing() { return read(dxf::drawingText("AC1009", "0 LINE|8 0|62 1")); }

TEST(LinetypeFile, ReadsHeadersPatternsAndComments) {
  const auto all = parseLinetypes(
      ";; a comment\r\n*CHAIN , long, and short __ _\r\n; between\r\n A, .5,-.25 "
      ",+0,-.25 ; and behind\r\n\r\n*\x95\xC7,x\nA,1,-1\n");
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].name, L"CHAIN");
  EXPECT_EQ(all[0].description, L"long, and short __ _");
  const double lengths[] = {0.5, -0.25, 0, -0.25};
  ASSERT_EQ(all[0].dashes.size(), std::size(lengths));
  for (std::size_t i = 0; i < std::size(lengths); ++i) EXPECT_EQ(all[0].dashes[i].dash.length, lengths[i]);
  EXPECT_EQ(all[0].refusal, L"");
  EXPECT_EQ(all[1].name, L"\x58C1");
}

TEST(LinetypeFile, ReadsTextsAndShapes) {
  const auto all = parseLinetypes(
      "*T,x\nA,.5,-.2,[\"\x83K\x83X;, ]\",STANDARD,S=.1,U=0.0,x=-0.1, Y = -.05],-.2,[ zig , a.shx,a=100g],1,"
      "[\"C\",R=3.14159265358979r],2,[\"D\"]\n");
  ASSERT_EQ(all.size(), 1u);
  ASSERT_EQ(all[0].refusal, L"");
  ASSERT_EQ(all[0].dashes.size(), 5u);
  using Turn = DashSymbol::Turn;
  const struct {
    const wchar_t *text, *shape, *source;
    Turn turn;
    double degrees, scale, x, y;
  } wanted[] = {{L"\x30AC\x30B9;, ]", L"", L"STANDARD", Turn::kUpright, 0, 0.1, -0.1, -0.05},
                {L"", L"zig", L"a.shx", Turn::kAbsolute, 90, 1, 0, 0},
                {L"C", L"", L"", Turn::kWithLine, 180, 1, 0, 0},
                {L"D", L"", L"", Turn::kWithLine, 0, 1, 0, 0}};
  for (std::size_t i = 0; i < std::size(wanted); ++i) {
    const DashDefinition& found = all[0].dashes[i + 1];
    ASSERT_TRUE(found.dash.symbol.has_value());
    const DashSymbol& symbol = *found.dash.symbol;
    EXPECT_EQ(symbol.text, wanted[i].text);
    EXPECT_EQ(found.shape, wanted[i].shape);
    EXPECT_EQ(found.source, wanted[i].source);
    EXPECT_EQ(symbol.turn, wanted[i].turn);
    EXPECT_NEAR(symbol.degrees, wanted[i].degrees, 1e-9);
    EXPECT_EQ((std::vector{symbol.scale, symbol.x, symbol.y}),
              (std::vector{wanted[i].scale, wanted[i].x, wanted[i].y}));
  }
}

TEST(LinetypeFile, DefinitionsThatCannotBeUsedSayWhyAndWhere) {
  const struct {
    const char* pattern;
    const wchar_t* reason;
  } cases[] = {
      {"A,one,-1", L"\"one\" is not a number"},
      {"A,-1,1", L"begins with a gap"},
      {"A,1,-1,1,-1,1,-1,1,-1,1,-1,1,-1,1", L"more than 12"},
      {"B,1,-1", L"alignment"},
      {"A,1", L"fewer than two"},
      {"A,1,-1,[\"GAS,STANDARD],-1", L"not closed"},
      {"A,1,-1,[ZIG,a.shx,-1", L"not closed"},
      {"A,1,-1,[ZIG,a.shx]2,-1", L"bracket"},
      {"A,[ZIG,a.shx],1,-1", L"does not follow a number"},
      {"A,1,[ZIG,a.shx],[ZIG,a.shx],-1", L"does not follow a number"},
      {"A,1,-1,[ZIG],-1", L"names no shape file"},
      {"A,1,-1,[,a.shx],-1", L"neither text nor shape"},
      {"A,1,-1,[\"\",STANDARD],-1", L"neither text nor shape"},
      {"A,1,-1,[ZIG,a.shx,S=big],-1", L"\"S=big\" is none of"},
      {"A,1,-1,[ZIG,a.shx,Q=1],-1", L"\"Q=1\" is none of"},
      {"", L"no pattern"},
  };
  for (const auto& each : cases) {
    const auto all = parseLinetypes("; first\n*BAD,x\n" + std::string(each.pattern) + "\n*NEXT,x\nA,1,-1\n");
    ASSERT_EQ(all.size(), 2u);
    EXPECT_NE(all[0].refusal.find(each.reason), std::wstring::npos)
        << each.pattern << ": " << base::toUtf8(all[0].refusal);
    EXPECT_EQ(all[0].line, *each.pattern == 0 ? 2 : 3);
  }
}

TEST(LinetypeFile, NoBytesCanMakeItFail) {
  EXPECT_TRUE(parseLinetypes("").empty());
  EXPECT_TRUE(parseLinetypes("A,1,-1\n").empty());
  for (const char* bytes : {"*", "*A\nA", "*A\nA,[", "*A\nA,1,[]", "*A\nA,1,[\"", "*A\nA,1,[,]"})
    EXPECT_EQ(parseLinetypes(bytes).size(), 1u) << bytes;
  EXPECT_EQ(parseLinetypes("\xEF\xBB\xBF*\xE5\xA3\x81,x\nA,1,-1").front().name, L"\x58C1");
}

TEST(LinetypeFile, ShippedFilesAreUsableThroughout) {
  for (const char* name : {"acad.lin", "acadiso.lin", "jis.lin"}) {
    const auto bytes = base::readFile(shipped(name));
    ASSERT_TRUE(bytes.ok()) << name;
    const auto all = parseLinetypes(bytes.value());
    EXPECT_GE(all.size(), 14u);
    for (const LinetypeDefinition& each : all) {
      EXPECT_EQ(each.refusal, L"") << base::toUtf8(each.name);
      EXPECT_LE(each.description.size(), 47u) << base::toUtf8(each.name);
    }
  }
}

TEST(LoadLinetypes, AddsOneByNameOnce) {
  auto target = drawing();
  const std::string original = saved(*target);
  ASSERT_TRUE(loads(*target, L"center", "acadiso.lin"));
  EXPECT_NE(saved(*target).find(dxf::groups("72 65|73 4|40 50.8|49 31.75|49 -6.35|49 6.35|49 -6.35")),
            std::string::npos);
  EXPECT_NE(target->find(Table::kLinetype, std::wstring_view(L"CENTER")), kNoRecord);
  EXPECT_EQ(target->find(Table::kLinetype, std::wstring_view(L"CENTER2")), kNoRecord);
  EXPECT_EQ(load(*target, L"CENTER", shipped("acadiso.lin")).result, LinetypeLoading::kInDrawing);
  EXPECT_TRUE(target->undo());
  EXPECT_EQ(saved(*target), original);
}

TEST(LoadLinetypes, PatternsPassOverThoseThatAreThere) {
  auto target = drawing();
  ASSERT_TRUE(loads(*target, L"JIS_02_0.7", "jis.lin"));
  ASSERT_TRUE(loads(*target, L"jis_02*", "jis.lin"));
  EXPECT_NE(target->find(Table::kLinetype, std::wstring_view(L"JIS_02_4.0")), kNoRecord);
  EXPECT_EQ(target->find(Table::kLinetype, std::wstring_view(L"JIS_08_11")), kNoRecord);
  EXPECT_EQ(load(*target, L"jis_02*", shipped("jis.lin")).result, LinetypeLoading::kInDrawing);
  EXPECT_EQ(load(*target, L"NOSUCH", shipped("jis.lin")).result, LinetypeLoading::kNotInFile);
  EXPECT_EQ(load(*target, L"*", shipped("nosuch.lin")).result, LinetypeLoading::kNoFile);
}

// The groups of a pattern with the text GAS and of one with two shapes, as other hosts write them.
TEST(LoadLinetypes, TextsAndShapesStandInEveryVersionThatCanHoldThem) {
  for (const char* version : {"AC1012", "AC1014", "AC1015", "AC1024", "AC1027", "AC1032"}) {
    auto target = dxf::modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine", version);
    const std::string original = saved(*target);
    ASSERT_TRUE(loads(*target, L"gas_line", "acad.lin")) << version;
    ASSERT_TRUE(loads(*target, L"ZIGZAG", "acad.lin")) << version;
    ASSERT_TRUE(loads(*target, L"BATTING", "acad.lin")) << version;
    const std::string text = saved(*target);
    const bool upright = std::string_view(version) >= "AC1027";
    const std::string gas =
        dxf::groups(std::string("72 65|73 3|40 0.95|49 0.5|74 0|49 -0.2|74 ") + (upright ? "10" : "2") +
                    "|75 0|340 11|46 0.1|50 0.0|44 -0.1|45 -0.05|9 GAS|49 -0.25|74 0");
    EXPECT_NE(text.find(gas), std::string::npos) << version << text;
    const std::string shapeFile = dxf::lastRecord(text, "STYLE");
    EXPECT_NE(shapeFile.find(dxf::groups("2 |70 1|40 0.0|41 1.0|50 0.0|71 0|42 0.2|3 ltypeshp.shx|4 ")),
              std::string::npos)
        << shapeFile;
    const std::size_t handle = shapeFile.find("  5\n") + 4;
    const std::string style = shapeFile.substr(handle, shapeFile.find('\n', handle) - handle);
    EXPECT_NE(text.find(dxf::groups("73 4|40 0.8001|49 1e-04|74 0|49 -0.2|74 4|75 131|340 " + style +
                                    "|46 0.2|50 0.0|44 -0.2|45 0.0|49 -0.4|74 4|75 131|340 " + style +
                                    "|46 0.2|50 180.0|44 0.2|45 0.0|49 -0.2|74 0")),
              std::string::npos)
        << version << text;
    EXPECT_EQ(text.find("ltypeshp.shx"), text.rfind("ltypeshp.shx")) << "one record stands for the file";
    EXPECT_EQ(target->find(Table::kTextStyle, std::wstring_view(L"ltypeshp")), kNoRecord);
    dxf::expectUndone(*target, original);
  }
}

TEST(LoadLinetypes, ACopiedBlockBringsThemAlong) {
  auto source = dxf::modern(
      "0 LINE|5 20|330 1F|100 AcDbEntity|8 0|6 ZIGZAG|100 AcDbLine|10 0.0|20 0.0|"
      "0 LINE|5 21|330 1F|100 AcDbEntity|8 0|6 GAS_LINE|100 AcDbLine|10 0.0|20 0.0");
  ASSERT_TRUE(loads(*source, L"ZIGZAG", "acad.lin") && loads(*source, L"GAS_LINE", "acad.lin"));
  auto modern = dxf::modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine"), old = drawing();
  ASSERT_TRUE(modern->defineBlock(L"COPY", *source).ok() && old->defineBlock(L"COPY", *source).ok());
  const std::string text = saved(*modern);
  EXPECT_NE(text.find(dxf::groups("46 0.2|50 180.0|44 0.2|45 0.0|49 -0.2")), std::string::npos);
  EXPECT_NE(text.find(dxf::groups("340 11|46 0.1|50 0.0|44 -0.1|45 -0.05|9 GAS")), std::string::npos);
  EXPECT_NE(text.find("ltypeshp.shx"), std::string::npos);
  EXPECT_NE(saved(*old).find(dxf::groups("73 3|40 0.95|49 0.5|49 -0.2|49 -0.25")), std::string::npos);
  EXPECT_EQ(saved(*old).find("ltypeshp.shx"), std::string::npos);
}

TEST_F(LinetypeFiles, WhatADrawingCannotHaveIsRefusedWithPlaceAndReason) {
  const auto file = write(
      "*GAS,x\nA,1,-1,[\"G\",NOTES],-1\n*ZIG,x\nA,1,-1,[ZIG,ltypeshp.shx],-1\n*BAD,x\nA,1,-1,[ZIG],-1\n");
  const struct {
    const wchar_t* name;
    LinetypeLoading old, modern;
    const wchar_t *line, *reason;
  } cases[] = {
      {L"GAS", LinetypeLoading::kNotInThisVersion, LinetypeLoading::kNoTextStyle, L", line 2", L"\"NOTES\""},
      {L"BAD", LinetypeLoading::kBadDefinition, LinetypeLoading::kBadDefinition, L", line 6", L"shape file"},
      {L"ZIG", LinetypeLoading::kNotInThisVersion, LinetypeLoading::kLoaded, L"", L""},
  };
  for (const auto& each : cases) {
    auto old = drawing(), modern = dxf::modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
    const std::string original = saved(*old);
    EXPECT_EQ(load(*old, each.name, file).result, each.old);
    EXPECT_EQ(saved(*old), original);
    const LoadedLinetypes loaded = load(*modern, each.name, file);
    EXPECT_EQ(loaded.result, each.modern);
    EXPECT_NE(loaded.failure.place.find(each.line), std::wstring::npos)
        << base::toUtf8(loaded.failure.text());
    EXPECT_NE(loaded.failure.reason.find(each.reason), std::wstring::npos);
  }
  auto modern = dxf::modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
  EXPECT_EQ(load(*modern, L"*", file).result, LinetypeLoading::kLoaded);
  EXPECT_EQ(modern->find(Table::kLinetype, std::wstring_view(L"GAS")), kNoRecord);
}

// A host that cannot find a shape draws the linetype without it.
TEST_F(LinetypeFiles, ShapesHaveTheNumberOfTheirFileOrAreLeftOut) {
  using namespace std::string_literals;
  const auto file = write("*POLES,x\nA,1,-1,[pole,office.shx],-1\n");
  const std::string index = "\x05\0\x2C\x01\x02\0\x05\0\x07\0\x2C\x01\x08\0"s;
  const std::string bodies = "WALL\0\x14\0POLE\0\x02\x14\0EOF"s;
  const std::string head = "x shapes 1.0\r\n\x1A"s;
  const struct {
    std::filesystem::path shapes;
    const wchar_t* remark;
  } cases[] = {
      {write(head + index + bodies), L""},
      {write(head + index.substr(0, 6) + "\x05\0\x07\0\x2C\x01\x04\0"s + "WALL\0\x14\0PIN\0"s),
       L"no shape \"pole\""},
      {write(head + index), L"no shape"},
      {write(head + "\x05\0\x05\0\xFF\x7F"s), L"cut short"},
      {write("no shapes"), L"not a file of shapes"},
      {{}, L"not found"},
  };
  for (const auto& each : cases) {
    auto target = dxf::modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
    const LoadedLinetypes loaded = load(*target, L"POLES", file, each.shapes);
    EXPECT_EQ(loaded.result, LinetypeLoading::kLoaded);
    const bool whole = *each.remark == 0;
    EXPECT_EQ(saved(*target).find(dxf::groups("74 4|75 300")) != std::string::npos, whole);
    EXPECT_EQ(saved(*target).find("office.shx") != std::string::npos, whole);
    ASSERT_EQ(loaded.remarks.size(), whole ? 0u : 1u);
    if (whole) continue;
    EXPECT_NE(loaded.remarks[0].reason.find(each.remark), std::wstring::npos);
  }
}

}  // namespace
}  // namespace cad::support
