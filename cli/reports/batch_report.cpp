#include "cli/reports/batch_report.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/files.h"
#include "base/fold.h"
#include "cli/language/language.h"
#include "cli/reports/change_text.h"
#include "cli/reports/report_json.h"
#include "cli/reports/report_page.h"

namespace kivcli {
namespace {

// A page of this size opens in some seconds.
constexpr std::size_t kMostPictureBytes = 48'000'000;
// Of one picture: what shows a crowded drawing at its full width, and what still shows something of it.
constexpr std::size_t kMostShare = 60'000, kLeastShare = 6'000;

Json toJson(const SettingTotals& totals) {
  return {{"section", totals.section}, {"number", totals.number},    {"title", readable(totals.title)},
          {"hits", totals.hits},       {"changed", totals.changed},  {"locked", totals.locked},
          {"refused", totals.refused}, {"drawings", totals.drawings}};
}

Json totalsOf(const std::vector<DrawingReport>& drawings) {
  std::array<std::size_t, 3> byOutcome{};
  ChangeCounts counts;
  for (const DrawingReport& report : drawings) {
    ++byOutcome[static_cast<std::size_t>(report.outcome)];
    counts.entities += report.counts.entities, counts.records += report.counts.records;
    counts.others += report.counts.others;
  }
  return {{"drawings", drawings.size()},        {"converted", byOutcome[0]},
          {"withProblems", byOutcome[1]},       {"notConverted", byOutcome[2]},
          {"changedEntities", counts.entities}, {"changedRecords", counts.records},
          {"changedOthers", counts.others}};
}

Json listOf(const std::vector<std::wstring>& texts) {
  Json list = Json::array();
  for (const std::wstring& text : texts) list.push_back(readable(text));
  return list;
}

// Short names, for there may be thousands.
Json rowOf(const DrawingReport& report, const SettingSums& settings) {
  Json row = {{"n", readable(report.given)},
              {"o", readable(report.saved)},
              {"s", static_cast<int>(report.outcome)},
              {"e", report.counts.entities},
              {"r", report.counts.records + report.counts.others},
              {"p", Json::array()},
              {"f", Json::array()}};
  for (const std::wstring& message : report.messages) {
    const std::wstring place = report.given + L": ";
    row["p"].push_back(readable(message.starts_with(place) ? message.substr(place.size()) : message));
  }
  for (const SettingFacts& facts : report.settings) {
    if (facts.hits > 0) row["f"].push_back({settings.placeOf(facts), facts.hits, facts.changed});
  }
  if (!report.pictures.remarks.empty()) row["m"] = listOf(report.pictures.remarks);
  if (!report.pictures.before.empty()) row["b"] = base64(report.pictures.before);
  if (!report.pictures.after.empty()) row["a"] = base64(report.pictures.after);
  return row;
}

Json words() {
  const std::pair<const char*, const wchar_t*> kWords[] = {
      {"converted", L"converted"},
      {"withProblems", L"with problems"},
      {"notConverted", L"not converted"},
      {"drawings", L"Drawings"},
      {"settings", L"Settings"},
      {"setting", L"setting"},
      {"hits", L"hits"},
      {"changed", L"changed"},
      {"refused", L"refusals"},
      {"locked", L"locked"},
      {"inDrawings", L"in drawings"},
      {"drawing", L"drawing"},
      {"status", L"status"},
      {"entities", L"entities changed"},
      {"records", L"other changes"},
      {"problems", L"problems"},
      {"badDrawings", L"Drawings with problems"},
      {"more", L"and %1 drawings more"},
      {"filter", L"filter by name"},
      {"all", L"all"},
      {"before", L"before"},
      {"after", L"after"},
      {"noPicture", L"no picture"},
      {"shown", L"%1 of %2 shown"},
      {"nothing", L"no setting met anything"},
  };
  Json json;
  const std::wstring place = L"%";  // filled in by the page
  for (const auto& [name, english] : kWords)
    json[name] = readable(tr(english, {place + std::to_wstring(1), place + std::to_wstring(2)}));
  return json;
}

}  // namespace

bool isPageName(const std::wstring& file) {
  return base::endsWithFolded(file, L".html") || base::endsWithFolded(file, L".htm");
}
bool isReportName(const std::wstring& file) {
  return isPageName(file) || base::endsWithFolded(file, L".json");
}

BatchReport::BatchReport(std::wstring specification, std::wstring begun, bool isDryRun)
    : specification_(std::move(specification)), begun_(std::move(begun)), isDryRun_(isDryRun) {}

std::size_t BatchReport::pictureShare(std::size_t drawings) {
  return std::clamp(kMostPictureBytes / 2 / std::max<std::size_t>(drawings, 1), kLeastShare, kMostShare);
}

void BatchReport::add(DrawingReport report) {
  if (report.outcome == Outcome::kNotConverted) report.settings.clear();
  settings_.add(report.settings);
  const std::size_t bytes = report.pictures.before.size() + report.pictures.after.size();
  if (takesPictures() && pictureBytes_ + bytes > kMostPictureBytes) firstWithout_ = report.given;
  if (takesPictures()) {
    pictureBytes_ += bytes;
  } else {
    report.pictures = {};
  }
  drawings_.push_back(std::move(report));
}

std::string BatchReport::json() const {
  Json json = {{"specification", readable(specification_)},
               {"specificationProblems", listOf(specificationProblems_)},
               {"options", listOf(options_)},
               {"begun", readable(begun_)},
               {"dryRun", isDryRun_},
               {"interrupted", notBegun_.has_value()},
               {"notBegun", notBegun_.value_or(0)},
               {"skipped", skipped_},
               {"totals", totalsOf(drawings_)}};
  json["settings"] = Json::array(), json["drawings"] = Json::array();
  for (const SettingTotals& totals : settings_.all()) json["settings"].push_back(toJson(totals));
  for (const DrawingReport& report : drawings_) json["drawings"].push_back(kivcli::toJson(report));
  return json.dump(1) + "\n";
}

std::string BatchReport::html() const {
  Json data = {{"words", words()}, {"totals", totalsOf(drawings_)}};
  data["settings"] = Json::array(), data["rows"] = Json::array();
  for (const SettingTotals& totals : settings_.all()) data["settings"].push_back(toJson(totals));
  for (const DrawingReport& report : drawings_) data["rows"].push_back(rowOf(report, settings_));
  PageHead head;
  head.language = usersLanguage() == Language::kJapanese ? "ja" : "en";
  head.title = readable(isDryRun_ ? tr(L"Dry run: what would change") : tr(L"Report of a conversion"));
  std::wstring options;
  for (const std::wstring& option : options_) options += (options.empty() ? L"" : L"  ") + option;
  head.facts = {{readable(tr(L"specification")), readable(specification_)},
                {readable(tr(L"options")), readable(options)},
                {readable(tr(L"begun")), readable(begun_)}};
  for (const std::wstring& line : specificationProblems_) head.remarks.push_back(readable(line));
  if (notBegun_) {
    head.remarks.push_back(readable(
        tr(L"The batch was interrupted: drawings that were not begun: %1", {std::to_wstring(*notBegun_)})));
  }
  if (skipped_ > 0)
    head.remarks.push_back(readable(tr(L"Drawings skipped: %1", {std::to_wstring(skipped_)})));
  if (!takesPictures()) {
    head.remarks.push_back(
        readable(tr(L"The page has room for %1 MB of pictures: from %2 on drawings have none.",
                    {std::to_wstring(kMostPictureBytes / 1'000'000), firstWithout_})));
  }
  return reportPage(head, data.dump());
}

base::Status BatchReport::write(const std::wstring& file) const {
  return base::writeFileAtomically(base::pathFromText(file), isPageName(file) ? html() : json());
}

}  // namespace kivcli
