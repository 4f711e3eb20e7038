#include "cli/reports/report_json.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/codepage.h"
#include "base/utf8.h"

namespace kivcli {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr const char* kCodes = "codes";

constexpr std::array<const char*, 3> kFates = {"changed", "added", "removed"};
constexpr std::array<const char*, 3> kOutcomes = {"converted", "with problems", "not converted"};

template <class Names>
std::size_t numberOf(const Names& names, const Json& json) {
  const auto& name = json.get_ref<const std::string&>();
  const auto found = std::ranges::find(names, name);
  if (found == names.end()) throw std::invalid_argument(name);
  return static_cast<std::size_t>(found - names.begin());
}

// Of drawings, in which it may hold anything.
Json nameJson(const std::string& name) { return textJson(base::utf8::decodeName(name)); }
std::string nameOf(const Json& json) { return base::utf8::encodeName(textOf(json)); }

Json exactJson(const cad::ValueChange& change) {
  return {{"property", nameJson(change.name)},
          {"before", textJson(change.before)},
          {"after", textJson(change.after)}};
}

cad::ValueChange changeOf(const Json& json) {
  cad::ValueChange change;
  change.name = nameOf(json.at("property"));
  change.before = textOf(json.at("before")), change.after = textOf(json.at("after"));
  for (const cad::PropertyInfo& info : cad::allProperties())
    if (change.name == info.name) change.property = info.property;
  return change;
}

Json exactJson(const cad::RecordDifference& difference) {
  Json json = {{"fate", kFates[static_cast<std::size_t>(difference.fate)]},
               {"handle", textJson(difference.handle)},
               {"type", nameJson(difference.type)}};
  for (const auto& [name, value] :
       {std::pair{"name", &difference.name}, {"layer", &difference.layer}, {"block", &difference.block}})
    if (!value->empty()) json[name] = textJson(*value);
  json["changes"] = Json::array();
  for (const cad::ValueChange& change : difference.changes) json["changes"].push_back(exactJson(change));
  return json;
}

cad::RecordDifference differenceOf(const Json& json) {
  cad::RecordDifference difference;
  difference.fate = static_cast<cad::RecordFate>(numberOf(kFates, json.at("fate")));
  difference.handle = textOf(json.at("handle"));
  difference.type = nameOf(json.at("type"));
  if (json.contains("name")) difference.name = textOf(json["name"]);
  if (json.contains("layer")) difference.layer = textOf(json["layer"]);
  if (json.contains("block")) difference.block = textOf(json["block"]);
  for (const Json& change : json.at("changes")) difference.changes.push_back(changeOf(change));
  return difference;
}

Json exactJson(const SettingFacts& facts) {
  Json json = {{"section", facts.section}, {"number", facts.number}, {"isEntry", facts.isEntry},
               {"looked", facts.looked},   {"hits", facts.hits},     {"locked", facts.locked},
               {"changed", facts.changed}};
  json["conditions"] = Json::array(), json["results"] = Json::array();
  for (const ConditionFacts& condition : facts.conditions) {
    json["conditions"].push_back(
        {{"text", textJson(condition.text)}, {"passing", condition.passing}, {"left", condition.left}});
  }
  for (const ResultFacts& result : facts.results) {
    json["results"].push_back(
        {{"text", textJson(result.text)}, {"changed", result.changed}, {"refused", result.refused}});
  }
  return json;
}

template <class Items>
Json listOf(const Items& items) {
  Json list = Json::array();
  for (const auto& item : items) list.push_back(exactJson(item));
  return list;
}

Json exactJson(const cad::DrawingDifferences& differences) {
  return {{"pairedByOrder", differences.pairedByOrder},
          {"entities", listOf(differences.entities)},
          {"records", listOf(differences.records)},
          {"objects", listOf(differences.objects)},
          {"variables", listOf(differences.variables)}};
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
  for (const std::wstring& item : texts) list.push_back(textJson(item));
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

void makeReadable(Json& json) {
  if (json.is_object() && json.contains(kCodes)) {
    json = readable(textOf(json));
  } else if (json.is_structured()) {
    for (Json& item : json) makeReadable(item);
  }
}

// Where a character beyond the basic plane is two units.
bool isPair(const std::wstring& text, std::size_t at) {
  const auto lies = [&](std::size_t i, int first) { return i < text.size() && (text[i] & ~0x3FF) == first; };
  return sizeof(wchar_t) == 2 && lies(at, 0xD800) && lies(at + 1, 0xDC00);
}

}  // namespace

std::string readable(const std::wstring& text) {
  std::wstring shown = text;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (isPair(shown, i)) {
      ++i;
    } else if (shown[i] >= 0xD800 && shown[i] <= 0xDFFF) {
      shown[i] = 0xFFFD;
    }
  }
  return base::toUtf8(shown);
}

Json textJson(const std::wstring& text) {
  if (std::string bytes = base::toUtf8(text); base::fromUtf8(bytes) == text) return bytes;
  Json codes = Json::array();
  for (const wchar_t c : text) codes.push_back(static_cast<std::uint32_t>(c));
  return {{kCodes, std::move(codes)}};
}

std::wstring textOf(const Json& json) {
  if (json.is_string()) return base::fromUtf8(json.get_ref<const std::string&>());
  std::wstring text;
  for (const Json& code : json.at(kCodes)) text += static_cast<wchar_t>(code.get<std::uint32_t>());
  return text;
}

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

std::string base64Bytes(std::string_view text) {
  std::string bytes;
  std::uint32_t bits = 0;
  int count = 0;
  while (text.ends_with('=')) text.remove_suffix(1);
  for (const char c : text) {
    const std::size_t digit = kDigits.find(c);
    if (digit == std::string_view::npos) throw std::invalid_argument("no Base64");
    bits = bits << 6 | static_cast<std::uint32_t>(digit);
    count += 6;
    if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8) & 0xFF);
  }
  return bytes;
}

Json exactJson(const DrawingReport& report) {
  Json json = {{"drawing", textJson(report.given)},
               {"saved", textJson(report.saved)},
               {"outcome", kOutcomes[static_cast<std::size_t>(report.outcome)]},
               {"dryRun", report.isDryRun},
               {"messages", textsJson(report.messages)},
               {"changed",
                {{"entities", report.counts.entities},
                 {"records", report.counts.records},
                 {"others", report.counts.others}}},
               {"settings", listOf(report.settings)},
               {"logFailure", textJson(report.logFailure)}};
  if (!report.changes.empty()) json["differences"] = exactJson(report.changes);
  if (!report.pictures.before.empty()) json["pictureBefore"] = base64(report.pictures.before);
  if (!report.pictures.after.empty()) json["pictureAfter"] = base64(report.pictures.after);
  if (!report.pictures.remarks.empty()) json["pictureRemarks"] = textsJson(report.pictures.remarks);
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
    report.pictures.before = base64Bytes(json["pictureBefore"].get<std::string>());
  if (json.contains("pictureAfter"))
    report.pictures.after = base64Bytes(json["pictureAfter"].get<std::string>());
  if (json.contains("pictureRemarks"))
    for (const Json& remark : json["pictureRemarks"]) report.pictures.remarks.push_back(textOf(remark));
  report.logFailure = textOf(json.at("logFailure"));
  return report;
}

Json toJson(const DrawingReport& report) {
  Json json = exactJson(report);
  for (const char* own : {"dryRun", "logFailure", "pictureBefore", "pictureAfter", "pictureRemarks"})
    json.erase(own);
  if (json["drawing"].is_object()) json["drawingBytes"] = base64(base::utf8::encodeName(report.given));
  makeReadable(json);
  return json;
}

Json toJson(const cad::DrawingDifferences& differences) {
  Json json = exactJson(differences);
  makeReadable(json);
  return json;
}

}  // namespace kivcli
