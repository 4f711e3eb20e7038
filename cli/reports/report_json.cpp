#include "cli/reports/report_json.h"

#include <algorithm>
#include <array>

#include "base/codepage.h"

namespace kivcli {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string bytesOf(std::string_view text) {
  std::string bytes;
  std::uint32_t bits = 0;
  int count = 0;
  for (const char c : text) {
    const std::size_t digit = kDigits.find(c);
    if (digit == std::string_view::npos) break;
    bits = bits << 6 | static_cast<std::uint32_t>(digit);
    count += 6;
    if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8) & 0xFF);
  }
  return bytes;
}

// Names of files may hold bytes that are no UTF-8, as lone surrogates: JSON has them as numbers.
Json text(const std::wstring& value) {
  const bool isPlain =
      std::ranges::none_of(value, [](wchar_t c) { return sizeof(wchar_t) > 2 && c >= 0xD800 && c < 0xE000; });
  if (isPlain) return base::toUtf8(value);
  Json codes = Json::array();
  for (const wchar_t c : value) codes.push_back(static_cast<std::uint32_t>(c));
  return codes;
}

std::wstring textOf(const Json& json) {
  if (json.is_string()) return base::fromUtf8(json.get_ref<const std::string&>());
  std::wstring value;
  for (const Json& code : json) value += static_cast<wchar_t>(code.get<std::uint32_t>());
  return value;
}

constexpr std::array<const char*, 3> kFates = {"changed", "added", "removed"};
constexpr std::array<const char*, 3> kOutcomes = {"converted", "with problems", "not converted"};

template <class Names>
std::size_t numberOf(const Names& names, const Json& json) {
  const auto found = std::ranges::find(names, json.get_ref<const std::string&>());
  return found == names.end() ? 0 : static_cast<std::size_t>(found - names.begin());
}

Json toJson(const cad::ValueChange& change) {
  return {{"property", change.name}, {"before", text(change.before)}, {"after", text(change.after)}};
}

cad::ValueChange changeOf(const Json& json) {
  cad::ValueChange change;
  change.name = json.at("property").get<std::string>();
  change.before = textOf(json.at("before")), change.after = textOf(json.at("after"));
  for (const cad::PropertyInfo& info : cad::allProperties())
    if (change.name == info.name) change.property = info.property;
  return change;
}

Json toJson(const cad::RecordDifference& difference) {
  Json json = {{"fate", kFates[static_cast<std::size_t>(difference.fate)]},
               {"handle", text(difference.handle)},
               {"type", difference.type}};
  for (const auto& [name, value] :
       {std::pair{"name", &difference.name}, {"layer", &difference.layer}, {"block", &difference.block}})
    if (!value->empty()) json[name] = text(*value);
  json["changes"] = Json::array();
  for (const cad::ValueChange& change : difference.changes) json["changes"].push_back(toJson(change));
  return json;
}

cad::RecordDifference differenceOf(const Json& json) {
  cad::RecordDifference difference;
  difference.fate = static_cast<cad::RecordFate>(numberOf(kFates, json.at("fate")));
  difference.handle = textOf(json.at("handle"));
  difference.type = json.at("type").get<std::string>();
  if (json.contains("name")) difference.name = textOf(json["name"]);
  if (json.contains("layer")) difference.layer = textOf(json["layer"]);
  if (json.contains("block")) difference.block = textOf(json["block"]);
  for (const Json& change : json.at("changes")) difference.changes.push_back(changeOf(change));
  return difference;
}

template <class Items>
Json listOf(const Items& items) {
  Json list = Json::array();
  for (const auto& item : items) list.push_back(toJson(item));
  return list;
}

cad::DrawingDifferences differencesOf(const Json& json) {
  cad::DrawingDifferences differences;
  differences.pairedByOrder = json.at("pairedByOrder").get<bool>();
  for (const Json& item : json.at("entities")) differences.entities.push_back(differenceOf(item));
  for (const Json& item : json.at("records")) differences.records.push_back(differenceOf(item));
  for (const Json& item : json.at("objects")) differences.objects.push_back(differenceOf(item));
  for (const Json& item : json.at("variables")) differences.variables.push_back(changeOf(item));
  return differences;
}

Json textsJson(const std::vector<std::wstring>& texts) {
  Json list = Json::array();
  for (const std::wstring& item : texts) list.push_back(text(item));
  return list;
}

SettingFacts settingOf(const Json& json) {
  SettingFacts facts;
  facts.section = json.at("section"), facts.number = json.at("number");
  facts.isEntry = json.at("isEntry"), facts.looked = json.at("looked"), facts.hits = json.at("hits");
  facts.locked = json.at("locked"), facts.changed = json.at("changed");
  for (const Json& item : json.at("conditions"))
    facts.conditions.push_back({textOf(item.at("text")), item.at("passing"), item.at("left")});
  for (const Json& item : json.at("results"))
    facts.results.push_back({textOf(item.at("text")), item.at("changed"), item.at("refused")});
  return facts;
}

}  // namespace

std::string base64(std::string_view bytes) {
  std::string text;
  std::uint32_t bits = 0;
  int count = 0;
  for (const char c : bytes) {
    bits = bits << 8 | static_cast<unsigned char>(c);
    for (count += 8; count >= 6; count -= 6) text += kDigits[bits >> (count - 6) & 0x3F];
  }
  if (count > 0) text += kDigits[bits << (6 - count) & 0x3F];
  text.append((4 - text.size() % 4) % 4, '=');
  return text;
}

Json toJson(const cad::DrawingDifferences& differences) {
  return {{"pairedByOrder", differences.pairedByOrder},
          {"entities", listOf(differences.entities)},
          {"records", listOf(differences.records)},
          {"objects", listOf(differences.objects)},
          {"variables", listOf(differences.variables)}};
}

Json toJson(const SettingFacts& facts) {
  Json json = {{"section", facts.section}, {"number", facts.number}, {"isEntry", facts.isEntry},
               {"looked", facts.looked},   {"hits", facts.hits},     {"locked", facts.locked},
               {"changed", facts.changed}};
  json["conditions"] = Json::array(), json["results"] = Json::array();
  for (const ConditionFacts& condition : facts.conditions) {
    json["conditions"].push_back(
        {{"text", text(condition.text)}, {"passing", condition.passing}, {"left", condition.left}});
  }
  for (const ResultFacts& result : facts.results) {
    json["results"].push_back(
        {{"text", text(result.text)}, {"changed", result.changed}, {"refused", result.refused}});
  }
  return json;
}

Json toJson(const DrawingReport& report) {
  Json json = {{"drawing", text(report.given)},
               {"saved", text(report.saved)},
               {"outcome", kOutcomes[static_cast<std::size_t>(report.outcome)]},
               {"dryRun", report.isDryRun},
               {"messages", textsJson(report.messages)},
               {"changed",
                {{"entities", report.counts.entities},
                 {"records", report.counts.records},
                 {"others", report.counts.others}}},
               {"settings", listOf(report.settings)},
               {"logFailure", text(report.logFailure)}};
  if (!report.changes.empty()) json["differences"] = toJson(report.changes);
  if (!report.pictures.before.empty()) json["pictureBefore"] = base64(report.pictures.before);
  if (!report.pictures.after.empty()) json["pictureAfter"] = base64(report.pictures.after);
  return json;
}

DrawingReport reportFromJson(const Json& json) {
  DrawingReport report;
  report.given = textOf(json.at("drawing")), report.saved = textOf(json.at("saved"));
  report.outcome = static_cast<Outcome>(numberOf(kOutcomes, json.at("outcome")));
  for (const Json& message : json.at("messages")) report.messages.push_back(textOf(message));
  report.isDryRun = json.at("dryRun");
  for (const Json& item : json.at("settings")) report.settings.push_back(settingOf(item));
  const Json& counts = json.at("changed");
  report.counts = {counts.at("entities"), counts.at("records"), counts.at("others")};
  if (json.contains("differences")) report.changes = differencesOf(json["differences"]);
  if (json.contains("pictureBefore"))
    report.pictures.before = bytesOf(json["pictureBefore"].get<std::string>());
  if (json.contains("pictureAfter")) report.pictures.after = bytesOf(json["pictureAfter"].get<std::string>());
  report.logFailure = textOf(json.at("logFailure"));
  return report;
}

}  // namespace kivcli
