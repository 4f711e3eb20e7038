// kivcvt check, info and help: what they print and how they end.

#include <algorithm>

#include "tests/cli/program_runner.h"
#include "tests/embedded/dwg/whole_drawing.h"

namespace kivcli::testing {
namespace {

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

using CheckTest = ProgramTest;
using InfoTest = ProgramTest;

TEST_F(CheckTest, ACleanFileIsCounted) {
  writeSpecification("clean.cvt", kTextsGreen);
  const ProgramRun run = kivcvt({"check", "clean.cvt"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "clean.cvt: 1 setting, 0 list entries; every line is understood\n");
  EXPECT_EQ(run.err, "");
}

TEST_F(CheckTest, EveryDroppedLineHasItsNumberAndReason) {
  writeSpecification("lossy.cvt",
                     "[文字]\n[重さ] = 5\n[画層] = 0\n{\n色 = 3\n[色] = 3\n}\n---End---\n"
                     "[画層の作成]\nA, 1\n---End---\n[EOF]\n");
  const ProgramRun run = kivcvt({"check", "lossy.cvt"});
  EXPECT_EQ(run.status, 1);
  for (const char* line : {"lossy.cvt:2: dropped: ", "lossy.cvt:5: dropped: ", "lossy.cvt:10: dropped: "}) {
    EXPECT_TRUE(contains(run.err, line)) << line << " in\n" << run.err;
  }
  EXPECT_EQ(run.out, "lossy.cvt: 1 setting, 0 list entries; 3 lines are dropped\n");
}

// A warning drops nothing.
TEST_F(CheckTest, TextSearchListsAreLookedUpBesideTheFile) {
  const std::string header = "*** MOJILIST ***\r\n";
  std::string rows = header;
  for (int i = 0; i <= 200; ++i) rows += "A*\r\n";
  write("set/long.list", rows);
  write("set/plain.list", "A*\r\n");
  write("set/good.list", header + "A*\r\n");
  writeSpecification(
      "set/lists.cvt",
      "[文字]\n[文字一致のリスト] = GOOD.LIST\n[文字一致のリスト] <> NONE.LIST\n"
      "[文字一致のリスト] = plain.list\n[文字一致のリスト] = LONG.LIST\n{\n[色] = 3\n}\n---End---\n"
      "[画層の色･線種]\n[文字一致のリスト] = NONE.LIST\n---End---\n[EOF]\n");
  const ProgramRun run = kivcvt({"check", "set/lists.cvt"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "set/lists.cvt: 2 settings, 0 list entries; no line is dropped\n");
  for (const char* line :
       {"lists.cvt:3: warning: the text search list \"NONE.LIST\" cannot be opened",
        "lists.cvt:4: warning: \"PLAIN.LIST\" is no text search list",
        "lists.cvt:5: warning: the text search list \"LONG.LIST\" is too long; only its first 200"}) {
    EXPECT_TRUE(contains(run.err, line)) << line << " in\n" << run.err;
  }
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 5) << run.err;
}

TEST_F(CheckTest, TheWorstFileDecides) {
  writeSpecification("clean.cvt", kTextsGreen);
  write("other.cvt", "PK\x03\x04 something else");
  const ProgramRun run = kivcvt({"check", "other.cvt", "clean.cvt", "missing.cvt"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(contains(run.err, "other.cvt: ")) << run.err;
  EXPECT_TRUE(contains(run.err, "missing.cvt: ")) << run.err;
  EXPECT_TRUE(contains(run.out, "clean.cvt: 1 setting")) << run.out;
}

TEST_F(InfoTest, EveryDamagedObjectIsListed) {
  cad::dwg::SmallDrawing damaged = cad::dwg::wholeDrawing(base::Version::kR2000);
  cad::dwg::spoilLastChecksum(damaged);
  for (cad::dwg::SmallObject& object : damaged.objects)
    if (object.handle == 0x30 || object.handle == 0x31) object.data.assign(object.data.size(), '\xFF');
  write("damaged.dwg", cad::dwg::bytesOf(damaged));
  const ProgramRun run = kivcvt({"info", "damaged.dwg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.out,
                       "  unreadable      2\n    30\n    31\n  wrong checksum  1\n    32            "
                       "INSERT (*Model_Space)\n"))
      << run.out;
  EXPECT_TRUE(contains(run.err, "1 of its objects has a wrong checksum")) << run.err;
}

TEST_F(InfoTest, CountsWhatStandsInTheDrawing) {
  write("a.dxf", drawing(text("0", "居間") + kLine + text("TARGET", "台所")));
  const ProgramRun run = kivcvt({"info", "a.dxf"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "a.dxf\n"
            "  version         AC1009 (R12, text)\n"
            "  code page       932 (ANSI_932)\n"
            "  entities        3\n"
            "    LINE          1\n"
            "    TEXT          2\n"
            "  in blocks       0\n"
            "  layers          3\n"
            "  linetypes       0\n"
            "  text styles     0\n"
            "  blocks          0\n");
}

TEST_F(InfoTest, ABadDrawingIsNamedAndTheNextOneIsRead) {
  write("bad.dxf", "no drawing");
  write("good.dxf", drawing(kLine));
  const ProgramRun run = kivcvt({"info", "bad.dxf", "good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.starts_with("bad.dxf, line 1: ")) << run.err;
  EXPECT_TRUE(run.out.starts_with("good.dxf\n")) << run.out;
}

TEST_F(InfoTest, HelpIsAResultAndAMistakeIsNot) {
  const ProgramRun help = kivcvt({"convert", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(contains(help.out, "--block-scope"));
  const ProgramRun mistake = kivcvt({});
  EXPECT_EQ(mistake.status, 2);
  EXPECT_EQ(mistake.out, "");
  EXPECT_TRUE(contains(mistake.err, "convert, info, picture")) << mistake.err;
}

}  // namespace
}  // namespace kivcli::testing
