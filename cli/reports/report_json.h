#pragma once
// Reports and differences as JSON, and reports back from it.

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "cli/reports/drawing_report.h"

namespace kivcli {

using Json = nlohmann::ordered_json;

// For whoever reads a report: every text is a string. Of a drawing whose name has bytes that are no text,
// "drawingBytes" has the name in Base64.
Json toJson(const DrawingReport& report);
Json toJson(const cad::DrawingDifferences& differences);

// So that the report comes back from it, all but the log's entries and the numbers of records; pictures as
// Base64.
Json exactJson(const DrawingReport& report);
// Throws std::exception for what is none of exactJson().
DrawingReport reportFromJson(const Json& json);

// A string; of a text that UTF-8 cannot hold, as the name of a file may be, the numbers of its characters.
Json textJson(const std::wstring& text);
std::wstring textOf(const Json& json);  // throws std::exception for what is none of textJson()

// UTF-8, in which U+FFFD stands for what is no character.
std::string readable(const std::wstring& text);

std::string base64(std::string_view bytes);
std::string base64Bytes(std::string_view text);  // throws std::exception for what is no Base64

}  // namespace kivcli
