// kivcvt convert, from the command line to the files and messages that it leaves.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <thread>

#include "base/codepage.h"
#include "base/process_facts.h"
#include "tests/cli/program_runner.h"
#include "tests/embedded/dwg/whole_drawing.h"

namespace kivcli::testing {
namespace {

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos);
  return text.replace(at, from.size(), to);
}

class ConvertTest : public ProgramTest {
 protected:
  void SetUp() override {
    writeSpecification("rules.cvt", kTextsGreen);
    write("good.dxf", good_);
  }
  ProgramRun convert(std::vector<std::string> words) const {
    words.insert(words.begin(), {"convert", "--spec", "rules.cvt", "--out", "out"});
    return kivcvt(words);
  }

  const std::string good_ = drawing(text("0", "居間") + kLine);
};

TEST_F(ConvertTest, ChangesWhatTheRuleNamesAndNothingElseAndReplacesAnOlderOutput) {
  write("out/good.DXF", "something older");
  const ProgramRun run = convert({"good.dxf"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "good.dxf -> out/good.DXF\n" + greenTexts(1) + "1 drawing converted\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(read("out/good.DXF"), replaced(good_, " 62\r\n     1\r\n", " 62\r\n     3\r\n"));
  EXPECT_EQ(read("good.dxf"), good_);
}

TEST_F(ConvertTest, BadDrawingsAreNamedAndTheBatchGoesOn) {
  write("empty.dxf", "");
  write("truncated.dxf", good_.substr(0, good_.size() / 2));
  write("picture.dxf", "\x89PNG\r\n\x1a\n and so on");
  write("group.dxf", replaced(good_, "  0\r\nTEXT", "abc\r\nTEXT"));
  std::filesystem::create_directory(folder() / "folder.dxf");
  write("entityless.dxf", drawing(""));
  const ProgramRun run = convert({"missing.dxf", "empty.dxf", "truncated.dxf", "picture.dxf", "group.dxf",
                                  "folder.dxf", "entityless.dxf", "good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "good.dxf -> out/good.DXF\n" + greenTexts(1) + "1 of 8 drawings converted\n");
  for (const char* name : {"missing", "empty", "truncated", "picture", "group", "folder", "entityless"}) {
    EXPECT_TRUE(
        std::regex_search(run.err, std::regex("(^|\n)" + std::string(name) + "\\.dxf(, line \\d+)?: .{12}")))
        << name << " in\n"
        << run.err;
  }
  EXPECT_TRUE(contains(run.err, "the drawing has no entities")) << run.err;
  EXPECT_FALSE(contains(run.err, folder().string())) << "as the user typed the names:\n" << run.err;
  EXPECT_EQ(filesIn("out"), std::vector<std::string>{"good.DXF"});
}

TEST_F(ConvertTest, AFormatThatADrawingCannotBeSavedInIsRefusedBeforeItIsConverted) {
  for (const char* format : {"dwg", "dwt"}) {
    const ProgramRun run = convert({"--format", format, "good.dxf"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "0 of 1 drawing converted\n");
    EXPECT_EQ(run.err, std::string("good.dxf: not converted: a DXF drawing cannot be saved as ") +
                           (format[2] == 'g' ? "DWG\n" : "DWT\n"));
  }
}

TEST_F(ConvertTest, TheFormatIsThatOfTheContentWhateverTheFileIsCalled) {
  const std::string dwg = cad::dwg::bytesOf(cad::dwg::wholeDrawing(base::Version::kR2004));
  for (const char* name : {"right.dwg", "plan.dxf", "plan2.dwg.bak", "none", "template.dwt"})
    write(name, dwg);
  write("text.dwg", good_);
  const ProgramRun run =
      convert({"right.dwg", "plan.dxf", "plan2.dwg.bak", "none", "template.dwt", "text.dwg"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(filesIn("out"), (std::vector<std::string>{"none.DWG", "plan.DWG", "plan2.dwg.DWG", "right.DWG",
                                                      "template.DWT", "text.DXF"}));
  EXPECT_TRUE(read("out/right.DWG").starts_with("AC1018"));
  EXPECT_EQ(read("out/plan.DWG"), read("out/right.DWG"));
  EXPECT_EQ(read("out/text.DXF"), replaced(good_, " 62\r\n     1\r\n", " 62\r\n     3\r\n"));

  write("plan.dwg", dwg);
  EXPECT_TRUE(contains(convert({"plan.dxf", "plan.dwg"}).err, "has the same target"));
#ifndef _WIN32
  const std::string pipe = (folder() / "pipe.dxf").string();
  ASSERT_EQ(std::system(("mkfifo '" + pipe + "' && cat '" + (folder() / "right.dwg").string() + "' > '" +
                         pipe + "' &")
                            .c_str()),
            0);
  while (!std::filesystem::exists(pipe)) std::this_thread::yield();
  const ProgramRun piped = convert({"pipe.dxf"});
  EXPECT_EQ(piped.status, 0) << piped.err;
  EXPECT_EQ(read("out/pipe.DWG"), read("out/right.DWG"));
#endif
}

TEST_F(ConvertTest, ADrawingThatOnlyLacksItsEndIsConvertedWithAWarning) {
  const std::string cut = good_.substr(0, good_.rfind("  0\r\nEOF"));
  write("cut.dxf", cut);
  const ProgramRun run = convert({"cut.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "cut.dxf -> out/cut.DXF\n" + greenTexts(1) + "1 drawing converted, 1 with problems\n");
  EXPECT_TRUE(run.err.starts_with("cut.dxf: The file has no EOF")) << run.err;
  EXPECT_EQ(read("out/cut.DXF"), replaced(cut, " 62\r\n     1\r\n", " 62\r\n     3\r\n"));
  const ProgramRun info = kivcvt({"info", "cut.dxf"});
  EXPECT_EQ(info.status, 1);
  EXPECT_TRUE(contains(info.out, "entities        2")) << info.out;
  EXPECT_TRUE(info.err.starts_with("cut.dxf: The file has no EOF")) << info.err;
}

TEST_F(ConvertTest, ANameThatIsOnlyAnExtensionIsAName) {
  write(".dxf", good_);
  const std::string left = "out/.tmp-kiv-" + base::machineName() + "-2000000000-0";
  write(left, "what a killed run left");
  const ProgramRun run = convert({".dxf", "good.dxf"});
  EXPECT_EQ(run.out,
            ".dxf -> out/.DXF\ngood.dxf -> out/good.DXF\n" + greenTexts(2) + "2 drawings converted\n")
      << run.err;
  EXPECT_EQ(filesIn("out"), (std::vector<std::string>{".DXF", "good.DXF"}));
  EXPECT_EQ(read("out/.DXF"), read("out/good.DXF"));
}

#if !defined(_WIN32)  // links that anybody can make and names in any encoding are these systems' own

// A link to itself cannot be opened, a folder is not replaced; no user is privileged enough.
TEST_F(ConvertTest, AnUnreadableDrawingAndAnOutputThatCannotBeWrittenAreNamed) {
  std::filesystem::create_symlink("secret.dxf", folder() / "secret.dxf");
  std::filesystem::create_directories(folder() / "out" / "good.DXF");
  const ProgramRun run = convert({"secret.dxf", "good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(std::regex_search(run.err, std::regex("secret\\.dxf: .*symbolic links"))) << run.err;
  EXPECT_TRUE(run.err.ends_with("\ngood.dxf: not saved: out/good.DXF: this is a folder, not a file\n"))
      << run.err;
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 2) << run.err;
  EXPECT_EQ(filesIn("out"), std::vector<std::string>{"good.DXF"});
}

// Nobody may make a file in /proc, and everybody may try.
TEST_F(ConvertTest, ALogThatCannotBeWrittenIsToldOnce) {
  write("second.dxf", good_);
  const ProgramRun run = convert({"--log", "/proc", "good.dxf", "second.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(std::regex_match(run.err, std::regex("kivcvt: the log cannot be written: /proc/.*: .+\n")))
      << run.err;
  EXPECT_TRUE(contains(run.out, "2 drawings converted\n")) << run.out;
}

TEST_F(ConvertTest, ControlCharactersOfNamesAreShownAndNotObeyed) {
  const std::string name = "a\x1b[2J\n\xc2\x9b\xe2\x80\xae";
  write(name + ".dxf", good_);
  const std::string shown = "a\\x1b[2J\\x0a\\x9b\\u202e";
  const ProgramRun run = convert({name + ".dxf", name});
  EXPECT_EQ(run.out,
            shown + ".dxf -> out/" + shown + ".DXF\n" + greenTexts(1) + "1 of 2 drawings converted\n");
  EXPECT_TRUE(run.err.starts_with(shown + ": ")) << run.err;
  EXPECT_EQ(filesIn("out"), std::vector<std::string>{name + ".DXF"});
}

// A full disk, a closed stream, and a reader that has gone.
TEST_F(ConvertTest, AStandardOutputThatCannotBeWrittenIsToldAndTheDrawingsAreSaved) {
  const std::string call = KIVCVT_PROGRAM " convert --spec rules.cvt --out out good.dxf ";
  for (const std::string& line : {call + ">/dev/full", call + ">&-",
                                  "(until [ -e gone ]; do sleep 0.1; done; " + call +
                                      "; echo $? >status.new; mv status.new status) | { exec <&-; >gone; }; "
                                      "until [ -e status ]; do sleep 0.1; done; exit $(cat status)"}) {
    const ProgramRun run = test_support::runProgram("/bin/sh", {"-c", line}, folder());
    EXPECT_EQ(run.status, 1) << line;
    EXPECT_TRUE(std::regex_match(run.err, std::regex("kivcvt: standard output cannot be written: .+\n")))
        << line << run.err;
    EXPECT_TRUE(std::filesystem::remove(folder() / "out" / "good.DXF")) << line;
  }
}

TEST_F(ConvertTest, NamesInCodePage932ComeBackByteForByte) {
  const std::string drawingName = "\x95\xbd\x96\xca\x90\x7d", folderName = "\x90\x7d\x96\xca";
  const std::string rules = folderName + "/rules.cvt", source = folderName + "/" + drawingName + ".dxf";
  writeSpecification(rules, kTextsGreen);
  write(source, good_);
  const ProgramRun run = kivcvt({"convert", "--spec", rules, "--out", drawingName, source, drawingName});
  EXPECT_EQ(run.out, source + " -> " + drawingName + "/" + drawingName + ".DXF\n" + greenTexts(1) +
                         "1 of 2 drawings converted\n");
  EXPECT_TRUE(run.err.starts_with(drawingName + ": ")) << run.err;
  EXPECT_EQ(filesIn(drawingName), std::vector<std::string>{drawingName + ".DXF"});
}

#endif

TEST_F(ConvertTest, AnUnusableCallConvertsNothing) {
  write("utf16.cvt", std::string("\xff\xfe[\0\x87\x65\x57\x5b]\0", 9));
  write("plain.cvt", "not a specification\r\n");
  write("file", "");
  const struct {
    std::vector<std::string> words;
    const char* says;
  } cases[] = {
      {{"convert", "--out", "out", "good.dxf"}, "--spec FILE.cvt"},
      {{"convert", "--spec", "missing.cvt", "--out", "out", "good.dxf"}, "missing.cvt: "},
      {{"convert", "--spec", "plain.cvt", "--out", "out", "good.dxf"}, "plain.cvt: "},
      {{"convert", "--spec", "utf16.cvt", "--out", "out", "good.dxf"}, "UTF-16"},
      {{"convert", "--spec", ".", "--out", "out", "good.dxf"}, ".: "},
      {{"convert", "--spec", "rules.cvt", "--out", "file", "good.dxf"}, "--out file: this is a file"},
      {{"convert", "--spec", "rules.cvt", "--out", "file/out", "good.dxf"},
       "--out file/out: this folder cannot be made: "},
      {{"convert", "--spec", "rules.cvt", "--out", "out", "--log", "file/log", "good.dxf"},
       "--log file/log: "},
      {{"convert", "--spec", "rules.cvt", "--out", std::string(300, 'x'), "good.dxf"},
       "x: this folder cannot be made: "},
      {{"convert", "--spec", "rules.cvt", "--out", "out", "--log", std::string(300, 'x'), "good.dxf"},
       "x: this folder cannot be made: "},
  };
  for (const auto& [words, says] : cases) {
    const ProgramRun run = kivcvt(words);
    EXPECT_EQ(run.status, 2) << says;
    EXPECT_TRUE(contains(run.err, says)) << says << " in\n" << run.err;
    EXPECT_EQ(run.out, "");
    if (std::filesystem::exists(folder() / "out")) {
      EXPECT_EQ(filesIn("out"), std::vector<std::string>{});
    }
  }
}

TEST_F(ConvertTest, LinesThatAreDroppedAreNotForgottenAtTheEnd) {
  writeSpecification("rules.cvt", "[文字]\n[画層] = 0\n{\n[色] = 3\n[重さ] = 5\n}\n---End---\n[EOF]\n");
  const ProgramRun run = convert({"good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.err, "rules.cvt:5: dropped: ")) << run.err;
  EXPECT_TRUE(contains(run.err, "重さ")) << run.err;
  EXPECT_TRUE(contains(run.err, "\nrules.cvt: 1 line is dropped")) << run.err;
  EXPECT_EQ(run.out, "good.dxf -> out/good.DXF\n" + greenTexts(1) + "1 drawing converted\n");
}

TEST_F(ConvertTest, ASpecificationThatChangesNothingSaysSo) {
  writeSpecification("rules.cvt",
                     "[文字]\n[画層] = 0\n{\n[表示] = ON\n}\n[色] = 3\n"
                     "[文字一致のリスト] = NONE.LIST\n{\n[色] = 3\n}\n---End---\n"
                     "[寸法設定]\nDIMNONE, 1\nDIMASZ\n---End---\n[線種のﾛｰﾄﾞ]\nA.LIN\n---End---\n[EOF]\n");
  const ProgramRun run = convert({"good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.err, "\nrules.cvt: nothing in this file changes a drawing")) << run.err;
  EXPECT_EQ(read("out/good.DXF"), good_);
}

TEST_F(ConvertTest, ArrowFilesAreLookedUpBesideTheSpecificationAndAMissingOneIsNamed) {
  write("set/arrows/BAR.dxf", drawing(kLine));
  write("set/arrows/BOX.dxf", drawing(kLine));
  writeSpecification("set/arrows.cvt",
                     "[矢印のﾛｰﾄﾞ]\narrows/BAR.dxf\narrows\\BOX.dxf\n_NOSUCH\n---End---\n[EOF]\n");
  const ProgramRun run =
      kivcvt({"convert", "--spec", "set/arrows.cvt", "--out", "out", "--log", "logs", "good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "good.dxf: 矢印のﾛｰﾄﾞ = _NOSUCH: there is no such file, and the host has nothing of this name\n");
  EXPECT_TRUE(contains(read("out/good.DXF"), "BAR\r\n"));
  EXPECT_TRUE(contains(read("out/good.DXF"), "BOX\r\n"));
  EXPECT_TRUE(contains(read("logs/" + filesIn("logs")[0]), ", OK\r\n"));
}

TEST_F(ConvertTest, ADamagedObjectKeepsItsValuesAndTheRunSaysSo) {
  cad::dwg::SmallDrawing damaged = cad::dwg::wholeDrawing(base::Version::kR2000);
  cad::dwg::spoilLastChecksum(damaged);
  write("damaged.dwg", cad::dwg::bytesOf(damaged));
  writeSpecification("rules.cvt", "[その他の図形]\n[画層] = *\n{\n[色] = 3\n}\n---End---\n[EOF]\n");
  const ProgramRun run = convert({"damaged.dwg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.err, "1 of its objects has a wrong checksum")) << run.err;
  EXPECT_TRUE(contains(run.err, "色 = 3 was refused by 1 object: the host refused it\n")) << run.err;
}

TEST_F(ConvertTest, AnArrowFileThatIsRefusedIsToldWithTheReasonBehindIt) {
  write("BAD.dxf", "no drawing\r\n");
  writeSpecification("rules.cvt", "[矢印のﾛｰﾄﾞ]\nBAD.dxf\n---End---\n[EOF]\n");
  const ProgramRun run = convert({"good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.err, "BAD.dxf, line 1: This is neither a DXF nor a DWG drawing\n")) << run.err;
  EXPECT_EQ(read("out/good.DXF"), good_);
}

TEST_F(ConvertTest, TheSourceIsNeverOverwritten) {
  const ProgramRun run = kivcvt({"convert", "--spec", "rules.cvt", "--out", ".", "good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(contains(run.err, "would be overwritten")) << run.err;
  EXPECT_EQ(read("good.dxf"), good_);
  const std::vector<std::string> left = filesIn(".");
  EXPECT_EQ(std::count(left.begin(), left.end(), "good.DXF"), 0);
}

TEST_F(ConvertTest, WhatTheRulesCouldNotChangeIsNamed) {
  writeSpecification(
      "rules.cvt",
      "[文字]\n[***]\n{\n[画層] = NOWHERE\n[線種尺度] = 2\n[透過性] = 30\n[色] = 3\n}\n---End---\n[EOF]\n");
  const ProgramRun run = convert({"good.dxf"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "good.dxf -> out/good.DXF\nchanged by each setting:\n"
            "  1  (refused: 3) texts 1: all -> 画層=NOWHERE, 線種尺度=2, 透過性=30, 色=3\n"
            "1 drawing converted, 1 with problems\n");
  EXPECT_TRUE(contains(run.err, "good.dxf: 画層 = NOWHERE was refused by 1 object: ")) << run.err;
  for (const char* item : {"線種尺度 = 2", "透過性 = 30"}) {
    const std::string line =
        "good.dxf: " + std::string(item) + " was refused by 1 object: a drawing of this version";
    EXPECT_TRUE(contains(run.err, line)) << run.err;
  }
  EXPECT_EQ(read("out/good.DXF"), replaced(good_, " 62\r\n     1\r\n", " 62\r\n     3\r\n"));
}

TEST_F(ConvertTest, OneLogTellsOfAllDrawings) {
  write("second.dxf", drawing(text("LOCKED", "a") + kLine));
  writeSpecification("rules.cvt", "[文字]\n[***]\n{\n[色] = 3\n}\n---End---\n[EOF]\n");
  const ProgramRun run = convert({"--log", "logs/new", "good.dxf", "second.dxf"});
  const std::vector<std::string> logs = filesIn("logs/new");
  ASSERT_EQ(logs.size(), 1u);
  EXPECT_TRUE(std::regex_match(logs[0], std::regex("\\d{8}_\\d\\dh\\d\\dm\\d\\dsMorlux\\.log"))) << logs[0];

  const base::Decoded log = base::decode(read("logs/new/" + logs[0]), base::kJapanese);
  EXPECT_TRUE(log.clean);
  const std::string text = base::toUtf8(log.text);
  const std::string time = "\\d{4}年\\d\\d月\\d\\d日 \\d\\d:\\d\\d:\\d\\d,";
  EXPECT_TRUE(std::regex_match(
      text, std::regex("日時,ファイル名,結果\r\n" + time + "[^,]*good\\.dxf, OK\r\n" + time +
                       "[^,]*second\\.dxf,[^,]*ロックされた画層上にあるため 1件変換できませんでした\r\n")))
      << text;
}

TEST_F(ConvertTest, NamesOutsideAsciiComeBackAsTheyWereTyped) {
  write("図面/平面図.dxf", good_);
  const ProgramRun run = convert({"図面/平面図.dxf"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "図面/平面図.dxf -> out/平面図.DXF\n" + greenTexts(1) + "1 drawing converted\n");
  EXPECT_EQ(filesIn("out"), std::vector<std::string>{"平面図.DXF"});
}

}  // namespace
}  // namespace kivcli::testing
