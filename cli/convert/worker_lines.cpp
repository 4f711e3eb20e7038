#include "cli/convert/worker_lines.h"

#include "base/files.h"
#include "cli/reports/report_json.h"

namespace kivcli {
namespace {

template <class Read>
auto parsed(std::string_view line, Read read) -> std::optional<decltype(read(Json()))> {
  try {
    return read(Json::parse(line));
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

std::string lineOf(const DrawingReport& report) {
  Json line = exactJson(report);
  line["logEntries"] = base64(report.logEntries);
  return line.dump();
}

std::optional<DrawingReport> reportOf(std::string_view line) {
  return parsed(line, [](const Json& value) {
    DrawingReport report = reportFromJson(value);
    report.logEntries = base64Bytes(value.at("logEntries").get_ref<const std::string&>());
    return report;
  });
}

std::string lineOf(const PlannedDrawing& drawing) {
  return Json{
      {"given", textJson(drawing.given)},           {"target", textJson(base::pathText(drawing.target))},
      {"format", static_cast<int>(drawing.format)}, {"keepsUnknownFormat", drawing.keepsUnknownFormat},
      {"refusal", textJson(drawing.refusal)},       {"pictureBytes", drawing.pictureBytes}}
      .dump();
}

std::optional<PlannedDrawing> plannedOf(std::string_view line) {
  return parsed(line, [](const Json& value) {
    PlannedDrawing drawing;
    drawing.given = textOf(value.at("given"));
    drawing.target = base::pathFromText(textOf(value.at("target")));
    drawing.format = base::saveFormat(value.at("format").get<int>()).value();
    drawing.keepsUnknownFormat = value.at("keepsUnknownFormat");
    drawing.refusal = textOf(value.at("refusal"));
    drawing.pictureBytes = value.at("pictureBytes");
    return drawing;
  });
}

}  // namespace kivcli
