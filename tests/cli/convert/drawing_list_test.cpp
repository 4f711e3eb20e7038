// Names of drawings in lists, and which of them an earlier run has done.

#include "cli/convert/drawing_list.h"

#include <chrono>

#include "base/files.h"
#include "cli/convert/resume.h"
#include "tests/cli/program_runner.h"

namespace kivcli::testing {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::wstring>;

TEST(NamesInList, AreReadAlikeHoweverTheListWasWritten) {
  const Names names = {L"壁 1.dxf", L"b.dxf"};
  const std::string wide(
      "\xFF\xFE\xC1\x58 \0"
      "1\0.\0d\0x\0f\0\r\0\n\0b\0.\0d\0x\0f\0\r\0\n\0",
      34);
  EXPECT_EQ(namesInList("壁 1.dxf\nb.dxf"), names);
  EXPECT_EQ(namesInList("\xEF\xBB\xBF壁 1.dxf\r\n\r\n \t\r\nb.dxf\r\n"), names);
  EXPECT_EQ(namesInList(std::string("壁 1.dxf\0b.dxf\0", 16)), names);
  EXPECT_EQ(namesInList(wide), names);
  EXPECT_EQ(namesInList(std::string("a\nb\0 \0", 6)), (Names{L"a\nb", L" "}));
  for (const char* empty : {"", "\n", "\r\n \r\n", "\xEF\xBB\xBF", "\xFF\xFE"})
    EXPECT_TRUE(namesInList(empty).empty()) << empty;
}

class EarlierRunTest : public ProgramTest {
 protected:
  // Seconds after one moment.
  void touch(const char* name, int seconds) const {
    write(name, "x");
    fs::last_write_time(folder() / name, start_ + std::chrono::seconds(seconds));
  }
  bool isDone(const std::wstring& refusal = {}) const {
    return EarlierRun(folder() / "rules.cvt")
        .hasDone(
            {base::pathText(folder() / "a.dxf"), folder() / "out/a.DXF", base::SaveFormat::kDxf, refusal});
  }

  const fs::file_time_type start_ = fs::file_time_type::clock::now() - std::chrono::hours(1);
};

TEST_F(EarlierRunTest, ADrawingIsDoneWhenItsTargetIsNewerThanAllThatItIsMadeOf) {
  touch("a.dxf", 10);
  touch("rules.cvt", 10);
  touch("rooms.LIST", 10);
  EXPECT_FALSE(isDone()) << "there is no target";
  fs::create_directories(folder() / "out");
  touch("out/a.DXF", 11);
  EXPECT_TRUE(isDone());
  EXPECT_FALSE(isDone(L"refused"));
  for (const char* name : {"a.dxf", "rules.cvt", "rooms.LIST"}) {
    for (const int seconds : {11, 12}) {  // in the same moment, later
      touch(name, seconds);
      EXPECT_FALSE(isDone()) << name;
    }
    touch(name, 10);
  }
  touch("notes.txt", 20);
  EXPECT_TRUE(isDone());
  fs::remove(folder() / "a.dxf");
  EXPECT_FALSE(isDone()) << "it is to be named as missing";
}

}  // namespace
}  // namespace kivcli::testing
