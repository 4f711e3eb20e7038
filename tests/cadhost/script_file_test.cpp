#include "cadhost/script_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace cadhost {
namespace {

const std::wstring kText = L"OPEN\n\x56F3\x9762.dxf\n";

TEST(ScriptFile, TheEncodingIsFound) {
  EXPECT_EQ(decodeScript("OPEN\n\xE5\x9B\xB3\xE9\x9D\xA2.dxf\n"), kText);
  EXPECT_EQ(decodeScript("\xEF\xBB\xBFOPEN\n\xE5\x9B\xB3\xE9\x9D\xA2.dxf\n"), kText);
  EXPECT_EQ(decodeScript("OPEN\n\x90\x7D\x96\xCA.dxf\n"), kText);
  const char wide[] = "\xFF\xFEO\0P\0\xF3\x56\n";
  EXPECT_EQ(decodeScript(std::string_view(wide, sizeof wide)), L"OP\x56F3\n");
}

TEST(ScriptFile, TheLastLineIsEnteredToo) {
  const auto path = std::filesystem::path(testing::TempDir()) / "cadhost_script_test.scr";
  std::ofstream(path, std::ios::binary) << "UNDO 1";
  const auto read = readScript(path);
  std::filesystem::remove(path);
  ASSERT_TRUE(read.ok());
  EXPECT_EQ(read.value(), L"UNDO 1\n");
}

TEST(ScriptFile, AMissingFileIsNamed) {
  const auto read = readScript("no such folder/script.scr");
  ASSERT_FALSE(read.ok());
  EXPECT_NE(read.failure().text().find(L"script.scr"), std::wstring::npos);
}

}  // namespace
}  // namespace cadhost
