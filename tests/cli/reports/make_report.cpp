// make_report ROWS ja|en OUT.html: the page of a batch that never was, with all that a page may show.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/files.h"
#include "cli/language/language.h"
#include "cli/reports/batch_report.h"
#include "cli/reports/indexed_png.h"

using namespace kivcli;

namespace {

DrawingReport drawing(int number) {
  DrawingReport report;
  const std::wstring name = std::to_wstring(number);
  report.given = L"図面/棟" + std::to_wstring(number % 7) + L"/平面図-" + name + L".dxf";
  const auto count = static_cast<std::size_t>(number);
  if (number % 50 == 3) {
    report.messages = {report.given + L": 読めません </script><b>"};
    return report;
  }
  report.saved = L"out/" + name + L".DXF";
  report.outcome = number % 25 == 7 ? Outcome::kWithProblems : Outcome::kConverted;
  if (report.outcome == Outcome::kWithProblems)
    report.messages = {report.given + L": one", report.given + L": two"};
  report.counts = {count, count % 3, 0};
  for (int setting = 1; setting <= 12; ++setting) {
    const std::size_t hits = count * 7 % static_cast<std::size_t>(setting + 1);
    report.settings.push_back({1,
                               setting,
                               false,
                               90,
                               hits,
                               0,
                               hits / 2,
                               {{L"画層=壁-*", 9, hits}},
                               {{L"画層=A-壁-*", hits / 2, 0}}});
  }
  ColorImage image{120, 80, std::vector<std::uint32_t>(9600, 0xFFFFFF)};
  for (std::size_t i = 0; i < 80; ++i) image.pixels[i * 120 + (i * 3 + count) % 120] = 0xFF0000;
  report.pictures = {indexedPng(image), indexedPng(image), {}};
  return report;
}

}  // namespace

int main(int count, char** words) {
  if (count != 4) return 2;
  setLanguage(std::string(words[2]) == "ja" ? Language::kJapanese : Language::kEnglish);
  BatchReport report(L"社内標準.cvt", L"2026-11-22 18:00:00", false);
  for (int i = 1; i <= std::atoi(words[1]); ++i) report.add(drawing(i));
  report.noteSkipped(12);
  return report.write(base::pathText(words[3])) ? 0 : 1;
}
