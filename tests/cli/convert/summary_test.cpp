#include "cli/convert/summary.h"

#include <gtest/gtest.h>

namespace kivcli {
namespace {

SettingFacts setting(int number, std::size_t changed) {
  SettingFacts facts{
      1, number, false, 9, changed, 0, changed, {{L"画層=0", 9, changed}}, {{L"色=3", changed, 0}}};
  return facts;
}

DrawingReport report(std::wstring name, Outcome outcome, std::vector<SettingFacts> settings) {
  DrawingReport report;
  report.given = std::move(name);
  report.outcome = outcome;
  if (outcome != Outcome::kConverted) report.messages = {report.given + L": bad", report.given + L": worse"};
  report.settings = std::move(settings);
  for (const SettingFacts& facts : report.settings) report.counts.entities += facts.changed;
  return report;
}

using Lines = std::vector<std::wstring>;

TEST(Summary, TellsWhatEachSettingChangedAndTheEntriesOfAListTogether) {
  Summary summary(false, 3);
  SettingFacts entry{7, 1, true, 1, 1, 0, 1, {}, {{L"WALL", 1, 0}}}, refused = entry;
  refused.number = 2, refused.changed = 0, refused.results[0] = {L"B*D", 0, 1};
  for (const wchar_t* name : {L"a", L"b"})
    summary.add(report(name, Outcome::kConverted, {entry, refused, setting(1, 60), setting(2, 0)}));
  summary.add(report(L"c", Outcome::kWithProblems, {entry, refused, setting(1, 0), setting(2, 5)}));
  EXPECT_EQ(summary.lines({}), (Lines{L"changed by each setting:", L"    3  (refused: 3) layers to create",
                                      L"  120  texts 1: 画層=0 -> 色=3", L"    5  texts 2: 画層=0 -> 色=3",
                                      L"problems that an earlier run had with the skipped drawings are "
                                      L"not told again",
                                      L"3 drawings converted, 3 skipped, 1 with problems"}));
  summary.add(report(L"d", Outcome::kNotConverted, {setting(2, 7)}));
  EXPECT_EQ(summary.lines({})[3], L"    5  texts 2: 画層=0 -> 色=3");
  EXPECT_EQ(summary.lines(16)[2], L"  120  texts 1:…");
  EXPECT_EQ(summary.exitStatus(), 1);
}

TEST(Summary, KeepsToAScreen) {
  Summary summary(false, 0);
  std::vector<SettingFacts> settings;
  for (int i = 1; i <= 30; ++i) settings.push_back(setting(i, 1));
  for (int i = 0; i < 30; ++i)
    summary.add(
        report(L"d" + std::to_wstring(i), i < 18 ? Outcome::kConverted : Outcome::kNotConverted, settings));
  const Lines lines = summary.lines({});
  ASSERT_EQ(lines.size(), 1 + 19 + 1 + 1 + 10 + 1 + 1u);
  EXPECT_EQ(lines[20], L"  and 11 settings more; --report tells of all");
  EXPECT_EQ(lines[22], L"  d18: bad (and 1 more)");
  EXPECT_EQ(lines[32], L"  and 2 drawings more");
  EXPECT_EQ(lines[33], L"18 of 30 drawings converted");
}

TEST(Summary, OfADryRunCountsTheDrawingsThatWouldChange) {
  Summary one(true, 0);
  one.add(report(L"a", Outcome::kConverted, {setting(1, 2)}));
  EXPECT_EQ(one.lines({}), (Lines{L"a dry run, nothing was written: 1 of 1 drawings would change"}));
  one.add(report(L"b", Outcome::kWithProblems, {setting(1, 0)}));
  one.add(report(L"c", Outcome::kNotConverted, {}));
  EXPECT_EQ(
      one.lines({}),
      (Lines{L"would be changed by each setting:", L"  2  texts 1: 画層=0 -> 色=3",
             L"a dry run, nothing was written: 1 of 3 drawings would change, 1 with problems, 1 cannot be "
             L"converted"}));
}

}  // namespace
}  // namespace kivcli
