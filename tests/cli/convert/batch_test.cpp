// Many drawings: in parallel, with losses, from lists and folders, in parts, and taken up again.

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>

#include "base/codepage.h"
#include "tests/cli/program_runner.h"

namespace kivcli::testing {
namespace {

namespace fs = std::filesystem;

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

const std::string notToldAgain =
    "problems that an earlier run had with the skipped drawings are not told again\n";

class BatchTest : public ProgramTest {
 protected:
  void SetUp() override {
    writeSpecification("rules.cvt", kTextsGreen);
    for (const char* name : {"a.dxf", "b.dxf", "c.dxf", "sub/d.dxf"}) write(name, good_);
  }
  ProgramRun convert(const std::string& out, std::vector<std::string> words) const {
    words.insert(words.begin(), {"convert", "--spec", "rules.cvt", "--out", out});
    return kivcvt(words);
  }

  const std::string good_ = drawing(text("0", "居間") + kLine);
};

TEST_F(BatchTest, TheNumberOfJobsDoesNotShowInWhatComesOut) {
  std::vector<std::string> words = {"--log", "", "--jobs", ""};
  for (int i = 0; i < 12; ++i) {
    const std::string name = "n" + std::to_string(i) + ".dxf";
    // Small ones overtake large ones; some cannot be read, some have locked texts, which the log names.
    std::string entities = text(i % 3 == 0 ? "LOCKED" : "0", "室");
    for (int lines = 0; lines < (i % 2 == 0 ? 4000 : 1); ++lines) entities += kLine;
    if (i != 5) write(name, i == 7 ? "no drawing" : drawing(entities));
    words.push_back(name);
  }
  writeSpecification("rules.cvt", "[文字]\n[***]\n{\n[色] = 3\n}\n---End---\n[EOF]\n");
  std::vector<std::string> seen;
  for (const char* jobs : {"1", "4"}) {
    const std::string folder = std::string("log") + jobs;
    words[1] = folder, words[3] = jobs;
    const ProgramRun run = convert("out", words);
    EXPECT_EQ(run.status, 1);
    std::string all = run.out + run.err +
                      std::regex_replace(read(folder + "/" + filesIn(folder).at(0)),
                                         std::regex(" \\d\\d:\\d\\d:\\d\\d,"), ",");
    EXPECT_EQ(filesIn(folder).size(), 1u);
    for (const std::string& file : filesIn("out")) all += file + read("out/" + file);
    seen.push_back(all);
    fs::remove_all(this->folder() / "out");
  }
  EXPECT_EQ(seen[0], seen[1]);
  EXPECT_TRUE(contains(seen[0], "n0.dxf -> out/n0.DXF\nn1.dxf -> out/n1.DXF\n")) << seen[0];
}

TEST_F(BatchTest, FoldersAreMirroredListsAreReadAndPartsCoverAllOnce) {
  write("list",
        "\xEF\xBB\xBF"
        "a.dxf\r\n\n  \nb.dxf");
  write("zeros", std::string("a.dxf\0b.dxf\0", 12));
  write("ended", "a.dxf\nb.dxf\n");
  write("wide", std::string("\xFF\xFE"
                            "a\0.\0d\0x\0f\0\r\0\n\0b\0.\0d\0x\0f\0",
                            26));
  for (const char* list : {"list", "zeros", "ended", "wide"}) {
    const ProgramRun run = convert(std::string("o-") + list, {"--files-from", list});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(filesIn(std::string("o-") + list), (std::vector<std::string>{"a.DXF", "b.DXF"}));
    fs::remove_all(folder() / (std::string("o-") + list));
  }
  fs::copy_file(folder() / "a.dxf", folder() / fs::path(u8"平面.dxf"));
  for (const char* name : {"平面.dxf", "\x95\xBD\x96\xCA.dxf"}) {  // code page 932
    write("list", name);
    EXPECT_EQ(convert("o-list", {"--files-from", "list"}).status, 0) << name;
    fs::remove_all(folder() / "o-list");
  }
  fs::remove(folder() / fs::path(u8"平面.dxf"));
  write("list", "\xEF\xBB\xBF\r\n");
  const ProgramRun empty = convert("o-list", {"--files-from", "list"});
  EXPECT_EQ(empty.status, 1);
  EXPECT_EQ(empty.err, "list: this list names no drawing\n");
  fs::create_directories(folder() / "old");
  write("old/r12.DWG", "AC1009");
  const ProgramRun old = convert("o-old", {"--recursive", "old"});
  EXPECT_TRUE(old.err.starts_with("old/r12.DWG, byte 0: ")) << old.err;
  fs::remove_all(folder() / "old");
  fs::remove_all(folder() / "o-old");
  fs::create_directories(folder() / "sub" / "empty");
  write("sub/notes.txt", "");
  const ProgramRun refused = convert("out", {"a.dxf", "sub"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(refused.err.starts_with("sub: this is a folder; --recursive")) << refused.err;
  EXPECT_EQ(filesIn("out"), std::vector<std::string>{"a.DXF"});
  // Nothing of what comes out goes in again.
  for (const char* earlier : {"out", "o-list"}) fs::remove_all(folder() / earlier);
  for (int times = 0; times < 2; ++times) {
    const ProgramRun run = convert("sub/out", {"--recursive", ".", "sub/empty"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "sub/empty: there is no drawing in this folder or below it\n");
    EXPECT_TRUE(contains(
        run.out, "./sub/d.dxf -> sub/out/sub/d.DXF\n" + greenTexts(4) + "4 of 5 drawings converted\n"))
        << run.out;
  }

  std::string all;
  for (const char* part : {"1/3", "2/3", "3/3"}) {
    // Two have one target: which is refused does not depend on the part that it falls into.
    const ProgramRun run = convert("parts", {"--shard", part, "a.dxf", "b.dxf", "sub/../a.dxf", "c.dxf"});
    EXPECT_EQ(run.status, part[0] == '3' ? 1 : 0) << run.err;
    all += std::regex_replace(run.out, std::regex("changed by.*\n.*\n|.* converted\n"), "") + run.err;
  }
  EXPECT_EQ(
      all,
      "a.dxf -> parts/a.DXF\nc.dxf -> parts/c.DXF\nb.dxf -> parts/b.DXF\n"
      "sub/../a.dxf: a.dxf has the same target, parts/a.DXF; please convert this one into another folder\n");
}

TEST_F(BatchTest, ResumeConvertsWhatIsNewerThanItsOutput) {
  const auto resumed = [&] { return convert("out", {"--resume", "a.dxf", "b.dxf"}).out; };
  const auto touch = [&](const char* file) {
    fs::last_write_time(folder() / file, fs::file_time_type::clock::now() + std::chrono::seconds(5));
  };
  const auto age = [&](const char* file) {
    fs::last_write_time(folder() / file, fs::file_time_type::clock::now() - std::chrono::hours(1));
  };
  for (const char* file : {"a.dxf", "b.dxf", "rules.cvt"}) age(file);
  EXPECT_TRUE(contains(resumed(), "\n2 drawings converted\n"));
  EXPECT_EQ(resumed(), notToldAgain + "0 drawings converted, 2 skipped\n");
  touch("b.dxf");
  EXPECT_EQ(resumed(),
            "b.dxf -> out/b.DXF\n" + greenTexts(1) + notToldAgain + "1 drawing converted, 1 skipped\n");
  age("b.dxf");
  write("out/a.DXF", "");
  write("out/b.DXF", read("out/b.DXF").substr(0, 100) + std::string(100, '\0'));
  EXPECT_TRUE(contains(resumed(), "\n2 drawings converted\n")) << "a power cut leaves such files";
  write("WORDS.LIST", "");
  touch("WORDS.LIST");
  EXPECT_TRUE(contains(resumed(), "\n2 drawings converted\n"));
}

#if !defined(_WIN32)  // pipes by name, signals and limits are these systems' own

TEST_F(BatchTest, LinksInTheOutputFolderLeadToNoOtherFile) {
  fs::create_directories(folder() / "out/real");
  fs::create_directory_symlink("real", folder() / "out/one");
  fs::create_directory_symlink("real", folder() / "out/two");
  fs::create_directory_symlink("../sub", folder() / "out/three");
  fs::create_symlink("../a.dxf", folder() / "out/link.DXF");
  for (const char* name : {"in/one/p.dxf", "in/two/p.dxf", "in/three/p.dxf", "in/link.dxf"})
    write(name, good_);
  const ProgramRun run = convert("out", {"--recursive", "in"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.err,
      "in/link.dxf: out/link.DXF is a link to another file, which would be overwritten; please remove it\n"
      "in/three/p.dxf: out/three/p.DXF is not in the folder of --out: a link leads out of it\n"
      "in/two/p.dxf: in/one/p.dxf has the same target, out/two/p.DXF; please convert this one into "
      "another folder\n");
  EXPECT_EQ(read("a.dxf"), good_);
  EXPECT_EQ(filesIn("sub"), std::vector<std::string>{"d.dxf"});
}

// A drawing that is a pipe keeps its worker waiting until somebody writes into it.
class LossTest : public BatchTest {
 protected:
  // `$kivcvt` starts a conversion of all drawings by one worker, `$worker` is its process.
  ProgramRun shell(const std::string& lines) const {
    const std::string setUp =
        "kivcvt='" KIVCVT_PROGRAM
        " convert --spec rules.cvt --out out --jobs 1 --log logs a.dxf pipe.dxf c.dxf'\n"
        "start() { $kivcvt \"$@\" >said & parent=$!; until grep -q a.DXF said; do sleep 0.02; done\n"
        "  read worker </proc/$parent/task/$parent/children; worker=${worker% }; }\n";
    return test_support::runProgram("/bin/sh",
                                    {"-c", "rm -rf out; mkfifo pipe.dxf; >said; " + setUp + lines +
                                               "; status=$?; cat said; exit $status"},
                                    folder());
  }
  void expectNothingHalfWritten(const std::vector<std::string>& outputs) const {
    EXPECT_EQ(filesIn("out"), outputs);
    EXPECT_EQ(filesIn("logs").size(), 1u);
    for (const std::string& output : outputs) {
      EXPECT_EQ(read("out/" + output).size(), good_.size()) << output;
    }
    fs::remove_all(folder() / "logs");
  }
  // Once the drawing is one, what was lost is made up for.
  void expectCompletedByResume(const char* says) const {
    fs::remove(folder() / "pipe.dxf");
    write("pipe.dxf", good_);
    const ProgramRun run = convert("out", {"--resume", "a.dxf", "pipe.dxf", "c.dxf"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.ends_with(says)) << run.out;
    fs::remove(folder() / "pipe.dxf");
  }
};

TEST_F(LossTest, AWorkerThatIsKilledOrHangsLosesOneDrawing) {
  const struct {
    const char* lines;
    const char* reason;
  } cases[] = {
      {"start; kill -KILL $worker; wait $parent",
       "the process that converted it was ended by signal 9 (SIGKILL)"},
      {"start --timeout 1; wait $parent", "it took longer than 1 s and was given up"},
      {"start --timeout 1; kill -STOP $worker; wait $parent", "it took longer than 1 s and was given up"},
  };
  for (const auto& [lines, reason] : cases) {
    const ProgramRun run = shell(lines);
    EXPECT_EQ(run.status, 1) << lines;
    EXPECT_EQ(run.err, std::string("pipe.dxf: not converted: ") + reason + "\n");
    EXPECT_EQ(run.out,
              "a.dxf -> out/a.DXF\nc.dxf -> out/c.DXF\n" + greenTexts(2) + "2 of 3 drawings converted\n");
    expectNothingHalfWritten({"a.DXF", "c.DXF"});
    expectCompletedByResume("\n1 drawing converted, 2 skipped\n");
  }
}

TEST_F(LossTest, AnInterruptedBatchTellsWhatIsDoneAndEndsAsTheSignalSays) {
  for (const char* signal : {"INT", "TERM", "HUP"}) {
    // A shell has its background jobs ignore the first of these.
    const ProgramRun run = shell(
        std::string("kivcvt=\"env --default-signal=INT $kivcvt\"; start --report r.json; kill -") + signal +
        " $parent; wait $parent 2>&-; kill -l $? >>said; [ -e /proc/$worker ] && echo lives >>said");
    EXPECT_EQ(run.out,
              "a.dxf -> out/a.DXF\n" + greenTexts(1) + "1 of 2 drawings converted\n" + signal + "\n");
    EXPECT_EQ(run.err,
              "pipe.dxf: not converted: the batch was interrupted\n"
              "kivcvt: interrupted; drawings that were not begun: 1\n");
    const auto report = nlohmann::json::parse(read("r.json"));
    EXPECT_EQ(report.at("interrupted"), true);
    EXPECT_EQ(report.at("notBegun"), 1);
    EXPECT_EQ(report.at("drawings").size(), 2u);
    EXPECT_EQ(report.at("drawings").at(1).at("outcome"), "not converted");
    expectNothingHalfWritten({"a.DXF"});
    expectCompletedByResume("\n2 drawings converted, 1 skipped\n");
  }
}

// What changed is found by reading the drawing once more, for which the pipe waits.
TEST_F(LossTest, ADrawingThatIsLostWhenItIsSavedIsToldAsSaved) {
  const ProgramRun run = shell("start --timeout 1 --report r.json; cat a.dxf >pipe.dxf; wait $parent");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.err,
      "pipe.dxf: saved, but its problems and changes are not known: it took longer than 1 s and was given "
      "up\n");
  EXPECT_TRUE(run.out.ends_with("pipe.dxf -> out/pipe.DXF\nc.dxf -> out/c.DXF\n" + greenTexts(2) +
                                "3 drawings converted, 1 with problems\n"))
      << run.out;
  expectNothingHalfWritten({"a.DXF", "c.DXF", "pipe.DXF"});
  expectCompletedByResume("\n1 drawing converted, 2 skipped\n");
}

// The pipe's drawing is under way meanwhile.
TEST_F(LossTest, RulesThatChangeDuringABatchEndIt) {
  const std::pair<const char*, const char*> cases[] = {{"sed 's/= 3/= 4/'", "rules.cvt"},
                                                       {"cat", "ROOMS.LIST"}};
  writeSpecification("rules.cvt",
                     "[文字]\n[文字一致のリスト] = ROOMS.LIST\n{\n[色] = 3\n}\n---End---\n[EOF]\n");
  writeSpecification("ROOMS.LIST", "*** MOJILIST ***\n居間\n");
  for (const auto& [change, file] : cases) {
    const ProgramRun run = shell("start; " + std::string(change) + " <" + file +
                                 " >new; echo >>new; mv new " + file + "; cat a.dxf >pipe.dxf; wait $parent");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(std::regex_match(run.err, std::regex("pipe\\.dxf: the CVT file .+ is not known\n"
                                                     "c\\.dxf: not converted: the CVT file .+ begun\n")))
        << run.err;
    EXPECT_TRUE(run.out.ends_with("\n2 of 3 drawings converted, 1 with problems\n")) << run.out;
    expectNothingHalfWritten({"a.DXF", "pipe.DXF"});
    expectCompletedByResume("\n3 drawings converted\n");
    fs::remove_all(folder() / "out");
  }
}

// The worker stands still and does not end when it is asked to.
TEST_F(LossTest, ASecondInterruptAndAKilledProgramLeaveNoWorker) {
  const std::string untilGone =
      "wait $parent; s=$?; while grep -qs '^State:.[RSDT]' /proc/$worker/status; do sleep 0.02; done; "
      "kill -l $s >>said";
  const std::pair<const char*, const char*> cases[] = {
      {"kill -STOP $worker; kill -TERM $parent; sleep 0.3; kill -TERM $parent; ", "TERM"},
      {"kill -KILL $parent; ", "KILL"},
  };
  for (const auto& [lines, signal] : cases) {
    const ProgramRun run = shell("start; " + std::string(lines) + untilGone);
    EXPECT_EQ(run.out, std::string("a.dxf -> out/a.DXF\n") + signal + "\n");
    expectNothingHalfWritten({"a.DXF"});
    expectCompletedByResume("\n2 drawings converted, 1 skipped\n");
  }
}

TEST_F(LossTest, AnOutputFolderThatVanishesIsNamedForEachDrawing) {
  const ProgramRun run =
      shell("start; rm -r out; cat a.dxf >pipe.dxf; wait $parent; s=$?; mkdir out; (exit $s)");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(std::regex_match(run.err, std::regex("pipe\\.dxf: not saved: out/pipe\\.DXF: .+\n"
                                                   "c\\.dxf: not saved: out/c\\.DXF: .+\n")))
      << run.err;
  EXPECT_TRUE(contains(run.out, "\n1 of 3 drawings converted\n")) << run.out;
  expectCompletedByResume("\n3 drawings converted\n");
}

// The limit of a file's size stands for a disk that is full.
TEST_F(LossTest, ADrawingThatTheDiskCannotHoldIsNamedAndLeavesTheOldOne) {
  std::string entities;
  for (int i = 0; i < 4000; ++i) entities += kLine;
  write("b.dxf", drawing(entities));
  write("out/b.DXF", "older");
  const std::string call = KIVCVT_PROGRAM " convert --spec rules.cvt --out out a.dxf b.dxf c.dxf";
  const ProgramRun run = test_support::runProgram("/bin/sh", {"-c", "ulimit -f 64; " + call}, folder());
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(std::regex_match(run.err, std::regex("b\\.dxf: not saved: out/b\\.DXF: .+\n"))) << run.err;
  EXPECT_TRUE(contains(run.out, "\n2 of 3 drawings converted\n")) << run.out;
  EXPECT_EQ(filesIn("out"), (std::vector<std::string>{"a.DXF", "b.DXF", "c.DXF"}));
  EXPECT_EQ(read("out/b.DXF"), "older");

  fs::create_directories(folder() / "pictures");
  const ProgramRun picture = test_support::runProgram(
      "/bin/sh", {"-c", "ulimit -f 64; " KIVCVT_PROGRAM " picture b.dxf --out pictures/b.svg"}, folder());
  EXPECT_EQ(picture.status, 1);
  EXPECT_TRUE(picture.err.starts_with("pictures/b.svg: ")) << picture.err;
  EXPECT_EQ(filesIn("pictures"), std::vector<std::string>{});
}

// It is opened for writing when the worker has opened it for reading.
TEST_F(LossTest, ADrawingThatIsReplacedWhileItIsReadIsNamedAndConvertedAgain) {
  write("new.dxf", drawing(text("0", "二階") + kLine));
  const ProgramRun run =
      shell("start; exec 3>pipe.dxf; mv new.dxf pipe.dxf; cat a.dxf >&3; exec 3>&-; wait $parent");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.starts_with("pipe.dxf: the drawing was replaced while it was converted")) << run.err;
  expectNothingHalfWritten({"a.DXF", "c.DXF", "pipe.DXF"});
  const ProgramRun again = convert("out", {"--resume", "a.dxf", "pipe.dxf", "c.dxf"});
  EXPECT_EQ(again.out,
            "pipe.dxf -> out/pipe.DXF\n" + greenTexts(1) + notToldAgain + "1 drawing converted, 2 skipped\n")
      << again.err;
  EXPECT_TRUE(contains(read("out/pipe.DXF"), base::encode(L"二階", base::kJapanese).bytes));
}

#endif

}  // namespace
}  // namespace kivcli::testing
