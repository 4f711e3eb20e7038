#pragma once
// Reports and differences as JSON, and reports back from it.

#include <nlohmann/json.hpp>
#include <string>

#include "cli/convert/drawing_report.h"

namespace kivcli {

using Json = nlohmann::ordered_json;

// Every field, pictures as Base64. A name's bytes that are no text survive.
Json toJson(const DrawingReport& report);
// Throws Json::exception for what is none of toJson().
DrawingReport reportFromJson(const Json& json);

Json toJson(const cad::DrawingDifferences& differences);
Json toJson(const SettingFacts& facts);

std::string base64(std::string_view bytes);

}  // namespace kivcli
