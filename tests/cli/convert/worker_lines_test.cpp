#include "cli/convert/worker_lines.h"

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "cli/reports/report_json.h"

namespace kivcli {
namespace {

// Of another code page than the system's.
const std::wstring kOddName = base::utf8::decodeName("caf\xE9/\xE5\xB1\x85 \xF0\x9F\x8F\xA0.dxf");

cad::RecordDifference difference(cad::RecordFate fate) {
  cad::RecordDifference difference;
  difference.fate = fate;
  difference.handle = L"2F";
  difference.type = "TEXT\x8F";
  difference.name = L"TAG", difference.layer = L"壁", difference.block = L"*Model_Space";
  difference.changes = {{"layer", cad::Property::kLayer, L"0", L""},
                        {"geometry", cad::Property::kCount, L"", L"at (0, \xDC8F)"}};
  return difference;
}

DrawingReport everything() {
  DrawingReport report;
  report.given = kOddName, report.saved = L"out/" + kOddName;
  report.outcome = Outcome::kWithProblems;
  report.messages = {kOddName + L": refused", L""};
  report.isDryRun = true;
  SettingFacts setting{2, 3, false, 40, 30, 20, 10, {{L"画層=0", 7, 6}}, {{L"色=3", 5, 4}}};
  report.settings = {setting, {10, 1, true, 0, 0, 0, 0, {}, {{L"_DOT", 1, 0}}}};
  report.counts = {11, 12, 13};
  report.changes.entities = {difference(cad::RecordFate::kChanged), difference(cad::RecordFate::kAdded)};
  report.changes.records = {difference(cad::RecordFate::kRemoved)};
  report.changes.objects = report.changes.records;
  report.changes.variables = {{"DIMTXT", cad::Property::kCount, L"2.5", L"3"}};
  report.changes.pairedByOrder = true;
  report.pictures = {std::string("\x89PNG\0\xFF", 6), "after", {L"no " + kOddName}};
  report.logFailure = L"no room for " + kOddName;
  report.logEntries = std::string("\x90\x7D\x96\xCA,\r\n\0", 8);
  return report;
}

void expectEqual(const cad::ValueChange& one, const cad::ValueChange& other) {
  EXPECT_EQ(one.name, other.name);
  EXPECT_EQ(one.property, other.property);
  EXPECT_EQ(one.before, other.before);
  EXPECT_EQ(one.after, other.after);
}

void expectEqual(const std::vector<cad::RecordDifference>& ones,
                 const std::vector<cad::RecordDifference>& others) {
  ASSERT_EQ(ones.size(), others.size());
  for (std::size_t i = 0; i < ones.size(); ++i) {
    EXPECT_EQ(
        std::tie(ones[i].fate, ones[i].handle, ones[i].type, ones[i].name, ones[i].layer, ones[i].block),
        std::tie(others[i].fate, others[i].handle, others[i].type, others[i].name, others[i].layer,
                 others[i].block));
    ASSERT_EQ(ones[i].changes.size(), others[i].changes.size());
    for (std::size_t k = 0; k < ones[i].changes.size(); ++k)
      expectEqual(ones[i].changes[k], others[i].changes[k]);
  }
}

TEST(WorkerLines, AReportComesBackWithEveryField) {
  const DrawingReport sent = everything();
  const std::string line = lineOf(sent);
  EXPECT_EQ(line.find('\n'), std::string::npos);
  const auto got = reportOf(line);
  ASSERT_TRUE(got);
  EXPECT_EQ(std::tie(got->given, got->saved, got->outcome, got->messages, got->isDryRun, got->logFailure,
                     got->logEntries, got->pictures.before, got->pictures.after, got->pictures.remarks),
            std::tie(sent.given, sent.saved, sent.outcome, sent.messages, sent.isDryRun, sent.logFailure,
                     sent.logEntries, sent.pictures.before, sent.pictures.after, sent.pictures.remarks));
  EXPECT_EQ(got->counts.all(), 36u);
  EXPECT_EQ(got->counts.records, 12u);
  expectEqual(got->changes.entities, sent.changes.entities);
  expectEqual(got->changes.records, sent.changes.records);
  expectEqual(got->changes.objects, sent.changes.objects);
  ASSERT_EQ(got->changes.variables.size(), 1u);
  expectEqual(got->changes.variables[0], sent.changes.variables[0]);
  EXPECT_TRUE(got->changes.pairedByOrder);
  // Of the settings the line itself has every number.
  EXPECT_EQ(lineOf(*got), line);
  EXPECT_EQ(got->settings.at(0).conditions.at(0).left, 6u);
  EXPECT_EQ(got->settings.at(0).results.at(0).refused, 4u);
  EXPECT_TRUE(got->settings.at(1).isEntry);
}

TEST(WorkerLines, ARequestComesBackAndWhatIsNoLineIsRefused) {
  const PlannedDrawing sent{kOddName, "out/a.DXF", SaveFormat::kDwt, L"refused: " + kOddName, 24000, true};
  const auto got = plannedOf(lineOf(sent));
  ASSERT_TRUE(got);
  EXPECT_EQ(std::tie(got->given, got->target, got->format, got->refusal, got->pictureBytes,
                     got->keepsUnknownFormat),
            std::tie(sent.given, sent.target, sent.format, sent.refusal, sent.pictureBytes,
                     sent.keepsUnknownFormat));
  EXPECT_FALSE(plannedOf("{}"));
  EXPECT_FALSE(plannedOf(
      R"({"given":"a","target":"b","format":7,"refusal":"","pictureBytes":0,"keepsUnknownFormat":false})"));

  const Json good = Json::parse(lineOf(everything()));
  const auto isRefused = [&](const char* place, const Json& value) {
    Json bad = good;
    bad.at(Json::json_pointer(place)) = value;
    return !reportOf(bad.dump());
  };
  EXPECT_FALSE(isRefused("/outcome", "converted"));
  EXPECT_TRUE(isRefused("/outcome", "lost"));
  EXPECT_TRUE(isRefused("/differences/entities/0/fate", "moved"));
  EXPECT_TRUE(isRefused("/drawing", 5));
  EXPECT_TRUE(isRefused("/pictureAfter", "@@"));
  EXPECT_FALSE(reportOf("worker: out of memory"));
}

TEST(ReportJson, WhoReadsAReportFindsStringsAndTheBytesOfANameThatIsNone) {
  const Json json = toJson(everything());
  EXPECT_EQ(json.at("drawing"), "caf\uFFFD/居 🏠.dxf");
  EXPECT_EQ(json.at("messages").at(0), "caf\uFFFD/居 🏠.dxf: refused");
  EXPECT_EQ(json.at("differences").at("entities").at(0).at("type"), "TEXT\uFFFD");
  EXPECT_EQ(base64Bytes(json.at("drawingBytes").get<std::string>()), base::utf8::encodeName(kOddName));
  DrawingReport plain;
  plain.given = L"居間 🏠.dxf";
  EXPECT_FALSE(toJson(plain).contains("drawingBytes"));
  EXPECT_EQ(toJson(plain).at("drawing"), "居間 🏠.dxf");
}

}  // namespace
}  // namespace kivcli
