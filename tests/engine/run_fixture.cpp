#include "tests/engine/run_fixture.h"

#include <fstream>
#include <sstream>

#include "acedCmdNF.h"
#include "adsdef.h"
#include "base/codepage.h"
#include "base/files.h"
#include "engine/conversion_run.h"
#include "platform/settings.h"
#include "tests/support/temp_path.h"

namespace engine_test {
namespace {

constexpr std::string_view kTables = R"(0 SECTION
2 TABLES
0 TABLE
2 LTYPE
5 5
100 AcDbSymbolTable
70 2
0 LTYPE
5 14
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 ByBlock
70 0
3
72 65
73 0
40 0.0
0 LTYPE
5 15
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 ByLayer
70 0
3
72 65
73 0
40 0.0
0 LTYPE
5 16
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 Continuous
70 0
3 Solid line
72 65
73 0
40 0.0
0 LTYPE
5 17
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 DASHED
70 0
3 Dashed
72 65
73 2
40 9.0
49 6.0
74 0
49 -3.0
74 0
0 ENDTAB
0 TABLE
2 LAYER
5 2
100 AcDbSymbolTable
70 6
0 LAYER
5 20
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 0
70 0
62 7
6 Continuous
370 -3
0 LAYER
5 21
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 All
70 0
62 1
6 DASHED
370 25
0 LAYER
5 22
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 NEW
70 0
62 3
6 Continuous
370 -3
0 LAYER
5 23
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 LOCKED
70 4
62 4
6 Continuous
370 -3
0 LAYER
5 24
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 B-ALL
70 1
62 -5
6 Continuous
290 0
370 -3
1001 AcCmTransparency
1071 33554559
0 ENDTAB
0 TABLE
2 STYLE
5 3
100 AcDbSymbolTable
70 2
0 STYLE
5 30
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 Standard
70 0
40 0.0
41 1.0
50 0.0
71 0
42 2.5
3 txt
4
0 STYLE
5 31
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 KANJI
70 0
40 0.0
41 1.0
50 0.0
71 0
42 2.5
3 txt.shx
4 bigfont.shx
0 ENDTAB
0 TABLE
2 APPID
5 9
100 AcDbSymbolTable
70 2
0 APPID
5 90
100 AcDbSymbolTableRecord
100 AcDbRegAppTableRecord
2 ACAD
70 0
0 APPID
5 25
100 AcDbSymbolTableRecord
100 AcDbRegAppTableRecord
2 AcCmTransparency
70 0
0 ENDTAB
0 TABLE
2 DIMSTYLE
5 A
100 AcDbSymbolTable
70 1
100 AcDbDimStyleTable
0 DIMSTYLE
105 40
100 AcDbSymbolTableRecord
100 AcDbDimStyleTableRecord
2 PLAN
70 0
77 1
140 3.5
340 31
0 ENDTAB
0 TABLE
2 BLOCK_RECORD
5 1
100 AcDbSymbolTable
70 2
0 BLOCK_RECORD
5 50
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Model_Space
0 BLOCK_RECORD
5 51
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Paper_Space
0 ENDTAB
0 ENDSEC
)";

constexpr std::string_view kSpaces = R"(0 BLOCK
5 52
330 50
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 *Model_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Model_Space
1
0 ENDBLK
5 53
330 50
100 AcDbEntity
8 0
100 AcDbBlockEnd
0 BLOCK
5 54
330 51
100 AcDbEntity
67 1
8 0
100 AcDbBlockBegin
2 *Paper_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Paper_Space
1
0 ENDBLK
5 55
330 51
100 AcDbEntity
67 1
8 0
100 AcDbBlockEnd
)";

constexpr std::string_view kCommon = R"(100 AcDbEntity
8 ALL
6 DASHED
62 2
48 2.0
370 25
440 33554610
)";

std::string group(std::string_view line) {
  const std::size_t blank = std::min(line.find(' '), line.size());
  std::string code(line.substr(0, blank));
  if (code.size() < 3) code.insert(0, 3 - code.size(), ' ');
  return code + "\r\n" + std::string(line.substr(std::min(blank + 1, line.size()))) + "\r\n";
}

std::string common(std::string_view type, std::string_view handle, std::string_view own) {
  return "0 " + std::string(type) + "\n5 " + std::string(handle) + "\n" + std::string(kCommon) +
         std::string(own);
}

constexpr std::string_view kTextGroups = R"(100 AcDbText
10 0.0
20 0.0
40 3.5
1 ROOM 101
50 90.0
41 0.8
7 KANJI
)";

}  // namespace

std::string dxf(std::string_view groups) {
  std::string out;
  while (!groups.empty()) {
    const std::size_t end = std::min(groups.find('\n'), groups.size() - 1);
    out += group(groups.substr(0, end));
    groups.remove_prefix(end + 1);
  }
  return out;
}

std::string drawing(std::string_view entities, std::string_view blocks) {
  std::string groups = "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1024\n9 $HANDSEED\n5 FFFF\n9 $CLAYER\n8 0\n";
  groups += "9 $DIMTAD\n70 0\n9 $DIMSCALE\n40 1.0\n9 $DIMBLK\n1 \n9 $TILEMODE\n70 1\n0 ENDSEC\n";
  groups += kTables;
  groups += "0 SECTION\n2 BLOCKS\n";
  groups += kSpaces;
  groups += blocks;
  groups += "0 ENDSEC\n0 SECTION\n2 ENTITIES\n";
  groups += entities;
  groups += "0 ENDSEC\n0 EOF\n";
  return dxf(groups);
}

std::string sampleDrawing() {
  std::string entities = common("TEXT", "A1", std::string(kTextGroups) + "100 AcDbText\n");
  entities += common("MTEXT", "A2", R"(100 AcDbMText
10 0.0
20 0.0
40 3.5
41 50.0
71 1
1 {\C1;ROOM} 101
7 KANJI
50 90.0
)");
  entities += common("ATTDEF", "A3", std::string(kTextGroups) + "100 AcDbAttributeDefinition\n2 TAG\n70 0\n");
  entities += common("DIMENSION", "A4", R"(100 AcDbDimension
10 0.0
20 0.0
11 5.0
21 0.0
70 32
1 ROOM 102
53 90.0
3 PLAN
100 AcDbAlignedDimension
13 0.0
23 0.0
14 10.0
24 0.0
)");
  entities += common("LEADER", "A5", R"(100 AcDbLeader
3 PLAN
71 1
72 0
73 3
74 0
76 2
10 0.0
20 0.0
10 5.0
20 5.0
)");
  entities += common("HATCH", "A6", R"(100 AcDbHatch
10 0.0
20 0.0
30 0.0
2 SOLID
70 1
71 0
91 0
75 0
76 1
98 0
)");
  entities += common("INSERT", "A7", "100 AcDbBlockReference\n2 DOOR\n10 0.0\n20 0.0\n");
  entities += common("LINE", "A8", "100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n");
  const char* door =
      "0 BLOCK\n5 60\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 DOOR\n70 0\n10 0.0\n20 0.0\n"
      "0 ENDBLK\n5 61\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
  return drawing(entities, door);
}

void RunTest::SetUp() {
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  folder_ = test_support::tempPath(std::string("engine_test_") + test->name());
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_ / "out");
  cad::Host::instance().setOutput([this](std::wstring_view text) { printed_ += text; });
  cad::Host::instance().start();
  set(L"KivBlock", 0);
  set(L"MorluxIgnoreLocks", 0);
}

void RunTest::TearDown() {
  cad::Host::instance().stop();
  cad::Host::instance().setOutput({});
  kiv::clearSettingOverrides();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void RunTest::open(const std::string& bytes) {
  write("plan.dxf", bytes);
  const base::Status opened = cad::Host::instance().openDocument(folder_ / "plan.dxf");
  ASSERT_TRUE(opened.ok()) << base::toUtf8(opened.failure().text());
}

kiv::RunOutcome RunTest::run(const std::map<std::wstring, std::wstring>& sections) {
  std::wstring text;
  for (const auto& [header, body] : sections) text += L"[" + header + L"]\n" + body + L"\n---End---\n\n";
  text += L"[EOF]\n";
  write("rules.cvt", base::encode(text, base::kJapanese).bytes);
  parameters_.specification = base::pathText(folder_ / "rules.cvt");
  return kiv::runConversion(parameters_, sink_);
}

kiv::RunOutcome RunTest::runOnAll(const std::wstring& setting) {
  return run({{L"文字", setting}, {L"寸法", setting}, {L"ﾊｯﾁﾝｸﾞ", setting}, {L"その他の図形", setting}});
}

void RunTest::set(const wchar_t* setting, int value) {
  kiv::overrideCommonSetting(setting, std::to_wstring(value).c_str());
}

std::int64_t RunTest::integer(std::uint64_t handle, cad::Property property) {
  return drawing().integer(entity(handle), property).value_or(-999);
}

double RunTest::real(std::uint64_t handle, cad::Property property) {
  return drawing().real(entity(handle), property).value_or(-999);
}

std::wstring RunTest::name(std::uint64_t handle, cad::Property property) {
  const cad::NameId id = drawing().name(entity(handle), property);
  return id == cad::kNoName ? L"" : drawing().names().text(id);
}

std::string RunTest::savedBytes() {
  const std::filesystem::path path = folder_ / "saved_for_comparison.dxf";
  EXPECT_TRUE(drawing().save(path).ok());
  return read(path);
}

void RunTest::undo() { acedCommandS(RTSTR, L"UNDO", RTSTR, L"1", RTNONE); }

void RunTest::write(const std::string& file, const std::string& bytes) {
  std::ofstream(folder_ / file, std::ios::binary) << bytes;
}

std::string RunTest::read(const std::filesystem::path& file) {
  std::ostringstream out;
  out << std::ifstream(file, std::ios::binary).rdbuf();
  return out.str();
}

}  // namespace engine_test
