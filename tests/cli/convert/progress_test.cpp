#include "cli/convert/progress.h"

#include <gtest/gtest.h>

#include "cli/language/language.h"
#include "cli/text_width.h"

namespace kivcli {
namespace {

TEST(Progress, TellsCountRateAndTimeLeftAtMostTenTimesASecond) {
  double now = 100;
  ProgressLine line(4000, [&] { return now; });
  EXPECT_EQ(line.next(0, 80), L"[" + std::wstring(40, L'-') + L"] 0 of 4000 drawings");
  now += 0.05;
  EXPECT_EQ(line.next(1, 80), std::nullopt);
  now += 9.95;
  EXPECT_EQ(line.next(1000, 75),
            L"[######" + std::wstring(18, L'-') + L"] 1000 of 4000 drawings, 100 per second, 0:30 left");
  now += 9990;
  EXPECT_EQ(line.next(2000, 51), L"2000 of 4000 drawings, 0.2 per second, 2:46:40 left");
  EXPECT_EQ(line.total(), L"4000 drawings in 2:46:40, 0.4 per second");
  setLanguage(Language::kJapanese);
  for (std::size_t columns = 1; columns < 100; ++columns) {
    now += 1;
    EXPECT_LE(columnsOf(line.next(2000, columns).value()), columns);
  }
  setLanguage(Language::kEnglish);
}

}  // namespace
}  // namespace kivcli
