// Which release a file's beginning tells, and what is no drawing.
#include "siblings/KivFile/drawing_probe.h"

#include "embedded/dxf/file_facts.h"
#include "platform/module_loader.h"
#include "siblings/common/file_interface.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

using namespace std::string_literals;

// "0 SECTION|2 HEADER" as groups with this line end.
std::string groups(std::string_view text, std::string_view lineEnd = "\r\n") {
  std::string lines;
  bool inCode = true;
  for (const char each : std::string(text) + "|") {
    const bool ends = each == '|' || (inCode && each == ' ');
    lines += ends ? lineEnd : std::string_view(&each, 1);
    inCode = each == '|' || (inCode && !ends);
  }
  return lines;
}

std::string binary(std::string_view groups) {
  return std::string(cad::dxf::kBinarySentinel) + std::string(groups);
}

constexpr char kHeader[] = "0 SECTION|2 HEADER|9 $CLAYER|8 0|9 $ACADVER|1 AC1027|0 ENDSEC|0 EOF";

using DrawingProbe = test_support::TempFolder;

TEST_F(DrawingProbe, TellsTheReleaseByTheBeginning) {
  std::string manyRemarks;
  for (int i = 0; i < 20; ++i) manyRemarks += groups("999 " + std::string(2000, 'x'));
  const struct {
    std::string bytes;
    const wchar_t* release;
  } kFiles[] = {
      {"AC1002", L"R2.5"},
      {"AC1006"s + std::string(20, '\0'), L"R10"},
      {"AC1009"s + std::string(20, '\0'), L"R12"},
      {"AC1015\0\0"s, L"2000"},
      {"AC1032\0\0"s, L"2018"},
      {"AC1016\0\0"s, L"2000"},
      {"AC1099\0\0"s, L"2018より後"},
      {"AC2.10\0\0"s, L"-"},
      {"AC10", L"-"},
      {groups(kHeader), L"2013"},
      {groups(kHeader, "\n"), L"2013"},
      {groups(kHeader, "\r"), L"2013"},
      {"\xEF\xBB\xBF" + groups(kHeader), L"2013"},
      {groups("999 made by|999 hand") + groups(kHeader), L"2013"},
      {manyRemarks + groups(kHeader), L"2013"},
      {groups("0  section|2  header|9  $ACADVER|1  AC1015 |0 ENDSEC|0 EOF"), L"2000"},
      // The value of another variable, and of another section, is no version.
      {groups("0 SECTION|2 HEADER|9 $MENU|1 AC1032|0 ENDSEC|0 EOF"), L"R12"},
      {groups("0 SECTION|2 ENTITIES|0 TEXT|9 $ACADVER|1 AC1032|0 ENDSEC|0 EOF"), L"R12"},
      {groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC2000|0 ENDSEC"), L"2018より後"},
      {groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1099|0 ENDSEC"), L"2018より後"},
      {groups("0 EOF"), L"R12"},
      {binary("\0\0SECTION\0\2\0HEADER\0\x09\0$ACADVER\0\1\0AC1018\0\0\0ENDSEC\0"s), L"2004"},
      {binary("\0SECTION\0\2HEADER\0\x09$ACADVER\0\1AC1009\0\0ENDSEC\0"s), L"R12"},
      {"", L"-"},
      {"\xEF\xBB\xBF", L"-"},
      {"A letter, no drawing.\r\n", L"-"},
      {groups("0 LINE|8 0"), L"-"},
      {"\xFF\xFE\x30\0\r\0\n\0"s, L"-"},
      {std::string(3 << 20, '\0'), L"-"},
  };
  for (const auto& [bytes, release] : kFiles)
    EXPECT_EQ(releaseText(probeDrawing(make("a.dwg", bytes))), release) << bytes.substr(0, 200);

  // A header that goes on behind what is read first, at whatever place it is cut.
  std::string layers;
  for (int i = 0; i < 1000; ++i) layers += "9 $CLAYER|8 0|";
  for (int cut = 0; cut < 40; ++cut) {
    const std::string padding(static_cast<std::size_t>(cut), 'x');
    const auto file = make("b.dxf", groups("999 " + padding + "|0 SECTION|2 HEADER|" + layers +
                                           "9 $ACADVER|1 AC1027|0 ENDSEC|0 EOF"));
    ASSERT_EQ(releaseText(probeDrawing(file)), L"2013") << cut;
  }
}

TEST_F(DrawingProbe, WhatCannotBeReadIsNoDrawing) {
  EXPECT_EQ(probeDrawing(folder_), kNoDrawing);
  EXPECT_EQ(probeDrawing(folder_ / "missing.dwg"), kNoDrawing);
  const auto module = loadSibling(L"KivFile.arx");
  ASSERT_NE(module, nullptr);
  const auto version = module->function<GetDrawingFileVersion*>("dll_kiv_GetAcadFileVer");
  ASSERT_NE(version, nullptr);
  EXPECT_LT(version(nullptr), 1);
  EXPECT_LT(version(base::pathText(folder_).c_str()), 1);
  const auto older = make(base::pathFromText(L"図面 1.dwg"), "AC1014");
  const auto newer = make(base::pathFromText(L"図面 2.dxf"), groups(kHeader));
  EXPECT_GE(version(base::pathText(older).c_str()), 1);
  EXPECT_GT(version(base::pathText(newer).c_str()), version(base::pathText(older).c_str()));
}

}  // namespace
}  // namespace kiv
