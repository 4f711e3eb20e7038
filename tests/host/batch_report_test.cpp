#include "host/batch_report.h"

#include <gtest/gtest.h>

#include "embedded/editor/host.h"

namespace {

// What is printed, less the lines that name the product.
std::wstring printed(const std::optional<std::vector<kiv::BatchFile>>& files) {
  std::wstring text;
  cad::Host::instance().setOutput([&](std::wstring_view part) { text += part; });
  kiv::printBatchReport(files, L"C:\\work\\");
  cad::Host::instance().setOutput({});
  const std::wstring stars = L"\n" + std::wstring(68, L'*');
  if (text.empty()) return text;
  EXPECT_EQ(text.substr(0, 69), stars);
  const std::size_t second = text.find(stars, 69);
  EXPECT_NE(second, std::wstring::npos);
  return text.substr(second + 69);
}

const std::wstring kHead = L"\nﾌｫﾙﾀﾞ:C:\\work\\\n[ﾌｧｲﾙ名] [結果]";
const std::wstring kRule = L"\n" + std::wstring(68, L'-');

TEST(BatchReport, NamesEveryFileAndMarksTheUnreadable) {
  EXPECT_EQ(
      printed({{{L"a.dwg", 27}, {L"b%s.dwg", 0}, {L"c.dwg", 1}}}),
      kHead + kRule + L"\n[a.dwg]\n[b%s.dwg] [NG]\n[c.dwg]" + kRule + L"\n3件中1件 変換に失敗しました.");
}

TEST(BatchReport, CleanEmptyAndNoBatch) {
  EXPECT_EQ(printed({{{L"a.dwg", 27}}}), kHead + kRule + L"\n[a.dwg]" + kRule + L"\n1件変換しました.");
  EXPECT_EQ(printed({std::vector<kiv::BatchFile>()}), kHead + kRule + kRule + L"\n0件変換しました.");
  EXPECT_EQ(printed(std::nullopt), L"");
}

}  // namespace
