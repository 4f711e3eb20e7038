// kivcvt fmt, learn, and check for given drawings.

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "base/codepage.h"
#include "tests/cli/program_runner.h"

namespace kivcli::testing {
namespace {

namespace fs = std::filesystem;

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

using SpecificationsTest = ProgramTest;

TEST_F(SpecificationsTest, FmtWritesTheDialogsFormAndLosesNothingUnasked) {
  writeSpecification("loose.cvt", "[文字]\n[画層]=a\n{\n[色]=3\n}\n---end---\n[備考]\nr\n[eof]\n");
  EXPECT_EQ(kivcvt({"fmt", "--check", "loose.cvt"}).status, 1);
  EXPECT_EQ(kivcvt({"fmt", "loose.cvt", "--out", "new.cvt"}).out, "new.cvt: written\n");
  const std::string made = read("new.cvt");
  EXPECT_TRUE(contains(made, "\r\n                {\r\n")) << made;
  EXPECT_EQ(kivcvt({"fmt", "loose.cvt"}).status, 0);
  EXPECT_EQ(read("loose.cvt"), made);
  const ProgramRun again = kivcvt({"fmt", "--check", "loose.cvt", "new.cvt"});
  EXPECT_EQ(again.status, 0) << again.out;

  // A line that does nothing, and a setting without results, which would run on into the next one.
  writeSpecification("lossy.cvt",
                     "[文字]\n[重さ]=5\n[画層]=A\n{\n}\n[画層]=B\n{\n[色]=3\n}\n---End---\n[EOF]\n");
  const std::string lossy = read("lossy.cvt");
  const ProgramRun refused = kivcvt({"fmt", "lossy.cvt"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(contains(refused.err, "lossy.cvt:2: dropped: ") &&
              contains(refused.err, "lossy.cvt:3: warning: "))
      << refused.err;
  EXPECT_EQ(read("lossy.cvt"), lossy);
  EXPECT_EQ(kivcvt({"fmt", "--drop", "lossy.cvt"}).status, 0);
  EXPECT_EQ(kivcvt({"check", "lossy.cvt"}).out,
            "lossy.cvt: 1 setting, 0 list entries; every line is understood\n");

  // What the reader takes otherwise than it is written would look as if it were meant.
  writeSpecification("red.cvt",
                     "[文字]\n[***]\n{\n[色] = 赤\n[線種] <> X\n[文字角度] = 右\n}\n---End---\n[EOF]\n");
  const ProgramRun hardened = kivcvt({"fmt", "red.cvt"});
  EXPECT_EQ(hardened.status, 1);
  EXPECT_TRUE(contains(hardened.err, "red.cvt:4: ") && contains(hardened.err, "red.cvt:5: ") &&
              !contains(hardened.err, "red.cvt:6: "))
      << hardened.err;
  EXPECT_TRUE(contains(read("red.cvt"), "<> X"));

  // What the code page does not have is told and stays in the file.
  write("utf8.cvt", "\xEF\xBB\xBF[文字]\n[画層] = \xF0\x9F\x8F\xA0\n{\n[色]=3\n}\n---End---\n[EOF]\n");
  const std::string utf8 = read("utf8.cvt");
  EXPECT_EQ(kivcvt({"fmt", "utf8.cvt"}).status, 2);
  EXPECT_EQ(read("utf8.cvt"), utf8);
}

TEST_F(SpecificationsTest, CheckHoldsNamesAgainstDrawings) {
  fs::create_directories(folder() / "in" / "deep");
  write("in/deep/a.dxf", drawing(text("0", "a")));
  writeSpecification(
      "names.cvt",
      "[文字]\n[画層] = 0\n[字体] <> GOTHIC\n{\n[画層] = TARGET\n[画層] = AWAY\n}\n---End---\n[EOF]\n");
  const ProgramRun run = kivcvt({"check", "names.cvt", "--drawings", "in"});
  EXPECT_TRUE(
      contains(run.err, "names.cvt:3: warning: no drawing that was given has anything named \"GOTHIC\""))
      << run.err;
  EXPECT_TRUE(contains(run.err, "\"AWAY\", and it is missing in 1 of 1 drawings, the first is in/deep/a.dxf"))
      << run.err;
  EXPECT_TRUE(contains(run.err, "names.cvt:5: warning: this value never stays; line 6")) << run.err;
  const ProgramRun json = kivcvt({"check", "--json", "--drawings=in/deep/a.dxf", "names.cvt"});
  EXPECT_TRUE(contains(json.out, "\"number\": 43") && contains(json.out, "\"droppedLines\": 0")) << json.out;
  EXPECT_EQ(kivcvt({"check", "names.cvt", "--drawings", "none.dxf"}).status, 2);
  // Of a folder the others count all the same.
  write("in/broken.dxf", "");
  const ProgramRun others = kivcvt({"check", "names.cvt", "--drawings", "in"});
  EXPECT_EQ(others.status, 1);
  EXPECT_TRUE(contains(others.err, "broken.dxf: ") && contains(others.err, "missing in 1 of 1 drawings"))
      << others.err;
}

// Each pair of drawings of the cases, and what no rule explains of it.
TEST_F(SpecificationsTest, LearnedRulesConvertAsThePersonDid) {
  const std::pair<const char*, const char*> kLeft[] = {
      // One object among others.
      {"text-search-list", "not explained: 108 MTEXT"},
  };
  for (const fs::directory_entry& entry : fs::directory_iterator(KIV_SOURCE "/tests/cases")) {
    const std::string name = entry.path().filename().string();
    if (!entry.is_directory() || name == "nothing-touched") continue;
    const ProgramRun run = kivcvt({"learn", (entry.path() / "drawing.dxf").string(),
                                   (entry.path() / "expected.dxf").string(), "--out", name + ".cvt"});
    const auto* left = std::ranges::find(kLeft, name, [](const auto& row) { return std::string(row.first); });
    EXPECT_EQ(run.status, left == std::end(kLeft) ? 0 : 1) << name << ": " << run.out << run.err;
    EXPECT_TRUE(left == std::end(kLeft) || contains(run.out, left->second)) << run.out;
    EXPECT_EQ(kivcvt({"check", name + ".cvt"}).status, 0) << name;
  }
}

// The settings of a CVT file, one a line, and its entries.
std::string settingsOf(std::string cvt) {
  std::erase(cvt, '\r');
  std::istringstream lines(cvt);
  std::string told, line;
  while (std::getline(lines, line)) {
    line.erase(0, line.find_first_not_of(' '));
    if (line.empty() || line.starts_with("---") || line.find('=') == std::string::npos) {
      if (line == "{") told += "=> ";
      if (line == "}" || line.find(',') != std::string::npos) told += (line == "}" ? "" : line) + "\n";
    } else {
      told += line + " ";
    }
  }
  return told;
}

TEST_F(SpecificationsTest, LearnedRulesAreThoseThatAPersonWouldWrite) {
  const fs::path source = fs::path(KIV_SOURCE) / "examples";
  kivcvt({"convert", "--spec", (source / "office.cvt").string(), "--out", "out",
          (source / "machine-part.dxf").string()});
  kivcvt({"learn", (source / "machine-part.dxf").string(), "out/machine-part.DXF", "--out", "part.cvt"});
  const std::string part = base::toUtf8(base::decode(read("part.cvt"), base::kJapanese).text);
  const std::size_t dimensions = part.find("[寸法設定]");
  ASSERT_NE(dimensions, std::string::npos) << part;
  EXPECT_FALSE(contains(settingsOf(part.substr(0, dimensions)), "[***]")) << part;
  EXPECT_TRUE(contains(settingsOf(part), "[画層] = 注記 => [画層] = M-注記 [字体] = 社内標準 \n")) << part;
  EXPECT_TRUE(contains(part, "A-室名, 6, CONTINUOUS\r\n")) << part;
  // Drawing dimensions anew brings their arrow along.
  EXPECT_TRUE(contains(part, "_OBLIQUE") && !contains(part, "\r\n_DOT")) << part;

  // One of them the person has done otherwise, and a rule for all texts of a layer remains one.
  std::string before, after;
  for (const char* name : {"a", "b", "c", "d"}) {
    before += text("0", name) + text("FREE", name);
    after += text(*name == 'c' ? "LOCKED" : "TARGET", name) + text("FREE", name);
  }
  write("a.dxf", drawing(before));
  write("b.dxf", drawing(after));
  const ProgramRun run = kivcvt({"learn", "a.dxf", "b.dxf", "--out", "new.cvt"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.out, "TEXT: layer: 0 -> LOCKED; the rules make it TARGET")) << run.out;
  EXPECT_EQ(settingsOf(base::toUtf8(base::decode(read("new.cvt"), base::kJapanese).text)),
            "[画層] = 0 => [画層] = TARGET \n");
}

// What a CVT file cannot say is not counted as said.
TEST_F(SpecificationsTest, LearnCountsWhatTheRunMakesOfTheRules) {
  const auto layer = [](const std::string& name, const char* color, const char* lineweight) {
    return "  0\r\nLAYER\r\n  2\r\n" + name + "\r\n 70\r\n     0\r\n 62\r\n" + color +
           "\r\n  6\r\nCONTINUOUS\r\n370\r\n" + lineweight + "\r\n";
  };
  const auto withLayers = [](const std::string& layers) {
    std::string text = drawing(kLine);
    text.replace(text.find("AC1009"), 6, "AC1015");
    return text.insert(text.find("  0\r\nENDTAB"), layers);
  };
  write("a.dxf", withLayers(layer("Wall", "1", "-3") + layer("Door", "2", "-3")));
  write("b.dxf", withLayers(layer("WALL", "5", "-3") + layer("Door", "2", "-1")));
  const ProgramRun run = kivcvt({"learn", "a.dxf", "b.dxf", "--out", "new.cvt"});
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_TRUE(contains(run.out, "explain 1 of 3 changes (33 %)")) << run.out;
  EXPECT_TRUE(contains(run.out, "LAYER Wall: name: Wall -> WALL\n")) << run.out;
  EXPECT_TRUE(contains(run.out, "LAYER Door: lineweight: Default -> ByLayer\n")) << run.out;
  EXPECT_EQ(kivcvt({"check", "new.cvt"}).err, "");
}

// Nobody knows whose a list is that is there already; a layer that no table has is no layer added.
TEST_F(SpecificationsTest, LearnLeavesTextListsAlone) {
  const auto plan = [](const char* layer) {
    std::string entities;
    for (const char* room : {"a", "b", "c"}) entities += text(layer, room);
    const std::string whole = drawing(entities + text("0", "d") + text("0", "e"));
    return whole;
  };
  write("a.dxf", plan("0"));
  write("b.dxf", plan("TARGET"));
  write("NEW-1.list", "precious");
  const ProgramRun run = kivcvt({"learn", "a.dxf", "b.dxf", "--out", "new.cvt"});
  EXPECT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_EQ(read("NEW-1.list"), "precious");
  EXPECT_TRUE(fs::exists(folder() / "new-2.LIST"));

  const auto withoutTables = [](std::string whole) {
    const std::size_t begin = whole.find("  0\r\nSECTION\r\n  2\r\nTABLES");
    const std::size_t end = whole.find("  0\r\nSECTION\r\n  2\r\nENTITIES");
    EXPECT_TRUE(begin != whole.npos && end != whole.npos);
    return whole.erase(begin, end - begin);
  };
  write("c.dxf", withoutTables(plan("0")));
  write("d.dxf", withoutTables(plan("ROOM")));
  const ProgramRun implied = kivcvt({"learn", "c.dxf", "d.dxf", "--out", "implied.cvt"});
  EXPECT_EQ(implied.status, 0) << implied.out << implied.err;
}

TEST_F(SpecificationsTest, LearnNamesWhatWasDoneByHandAlone) {
  const std::string line = kLine, red = std::string(kLine) + " 62\r\n     1\r\n";
  std::string moved = kLine;
  moved.replace(moved.find("0.0"), 3, "9.0");
  write("a.dxf", drawing(text("0", "a") + text("0", "b") + line + line + line));
  write("b.dxf", drawing(text("TARGET", "a") + text("TARGET", "b") + moved + red + line));
  const ProgramRun run = kivcvt({"learn", "a.dxf", "b.dxf", "--out", "new.cvt"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.out, "new.cvt: 1 setting and 0 list entries explain 2 of 4 changes (50 %)"))
      << run.out;
  EXPECT_TRUE(contains(run.out, "LINE: colour: ByLayer -> 1")) << run.out;
  EXPECT_TRUE(contains(run.out, "LINE: geometry: ")) << run.out;
  EXPECT_EQ(kivcvt({"convert", "--spec", "new.cvt", "--out", "out", "a.dxf"}).status, 0);
  EXPECT_EQ(read("out/a.DXF"), drawing(text("TARGET", "a") + text("TARGET", "b") + line + line + line));
  EXPECT_EQ(kivcvt({"learn", "a.dxf", "a.dxf", "--out", "none.cvt"}).status, 2);
  // Two texts that have nothing in common make no rule, and a file without rules is not written.
  write("c.dxf", drawing(text("0", "a") + text("0", "b") + text("0", "c")));
  write("d.dxf", drawing(text("TARGET", "a") + text("TARGET", "b") + text("0", "c")));
  const ProgramRun ruleless = kivcvt({"learn", "c.dxf", "d.dxf", "--out", "none.cvt"});
  EXPECT_EQ(ruleless.status, 1) << ruleless.err;
  EXPECT_TRUE(contains(ruleless.out, "none.cvt: not written") && !fs::exists(folder() / "none.cvt"))
      << ruleless.out;
  // A slip that would cost a drawing.
  const std::string kept = read("b.dxf");
  EXPECT_EQ(kivcvt({"learn", "a.dxf", "b.dxf", "--out", "b.dxf"}).status, 2);
  EXPECT_EQ(read("b.dxf"), kept);
}

}  // namespace
}  // namespace kivcli::testing
