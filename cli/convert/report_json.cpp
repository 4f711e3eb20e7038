#include "cli/convert/report_json.h"

#include "base/files.h"
#include "base/utf8.h"
#include "cli/reports/report_json.h"

namespace kivcli {
namespace {

using json = Json;

// A name may have bytes that are no UTF-8, which JSON does not take: each byte is a character of its own.
std::string jsonOf(std::string_view bytes) {
  std::wstring text;
  for (const char byte : bytes) text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
  return base::utf8::encode(text).bytes;
}

std::string bytesOf(const json& value) {
  std::string bytes;
  for (const wchar_t c : base::utf8::decode(value.get<std::string>()).text) bytes += static_cast<char>(c);
  return bytes;
}

std::string jsonOf(const std::wstring& text) { return jsonOf(base::utf8::encodeName(text)); }
std::wstring textOf(const json& value) { return base::utf8::decodeName(bytesOf(value)); }

template <class Read>
auto parsed(std::string_view line, Read read) -> std::optional<decltype(read(json()))> {
  try {
    return read(json::parse(line));
  } catch (const json::exception&) {
    return std::nullopt;
  }
}

}  // namespace

std::string lineOf(const DrawingReport& report) {
  Json line = toJson(report);
  line["logEntries"] = jsonOf(report.logEntries);
  return line.dump();
}

std::optional<DrawingReport> reportOf(std::string_view line) {
  return parsed(line, [](const json& value) {
    DrawingReport report = reportFromJson(value);
    report.logEntries = bytesOf(value.at("logEntries"));
    return report;
  });
}

std::string lineOf(const PlannedDrawing& drawing) {
  return json{{"given", jsonOf(drawing.given)},
              {"target", jsonOf(base::pathText(drawing.target))},
              {"format", static_cast<int>(drawing.format)},
              {"refusal", jsonOf(drawing.refusal)}}
      .dump();
}

std::optional<PlannedDrawing> plannedOf(std::string_view line) {
  return parsed(line, [](const json& value) {
    PlannedDrawing drawing;
    drawing.given = textOf(value.at("given"));
    drawing.target = base::pathFromText(textOf(value.at("target")));
    drawing.format = static_cast<SaveFormat>(value.at("format").get<int>());
    drawing.refusal = textOf(value.at("refusal"));
    return drawing;
  });
}

}  // namespace kivcli
