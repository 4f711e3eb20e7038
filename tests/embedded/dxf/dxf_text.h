#pragma once
// Small drawings for tests, written as a person reads them.

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "base/files.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/loader.h"
#include "tests/support/temp_path.h"

namespace cad::dxf {

// "0 SECTION|2 ENTITIES" as groups: code line, value line. A value may hold blanks.
inline std::string groups(std::string_view compact, std::string_view lineEnd = "\n") {
  std::string out;
  while (!compact.empty()) {
    const std::size_t bar = compact.find('|');
    const std::string_view group = compact.substr(0, bar);
    const std::size_t blank = group.find(' ');
    std::string code(group.substr(0, blank));
    while (code.size() < 3) code.insert(0, 1, ' ');
    out += code;
    out += lineEnd;
    if (blank != std::string_view::npos) out += group.substr(blank + 1);
    out += lineEnd;
    compact = bar == std::string_view::npos ? std::string_view() : compact.substr(bar + 1);
  }
  return out;
}

inline std::string drawingText(std::string_view version, std::string_view entities,
                               std::string_view tables = {}, std::string_view codePage = "ANSI_932") {
  std::string text = "0 SECTION|2 HEADER|9 $ACADVER|1 ";
  text += version;
  text += "|9 $DWGCODEPAGE|3 ";
  text += codePage;
  text += "|9 $CLAYER|8 WALL|9 $HANDSEED|5 400|0 ENDSEC";
  if (!tables.empty()) text.append("|0 SECTION|2 TABLES|").append(tables).append("|0 ENDSEC");
  text += "|0 SECTION|2 ENTITIES|";
  text += entities;
  text += "|0 ENDSEC|0 EOF";
  return groups(text);
}

inline std::unique_ptr<Drawing> read(std::string bytes) {
  auto result = loadBytes(std::move(bytes));
  return result ? std::move(result.value()) : nullptr;
}

inline DxfStorage& storageOf(Drawing& drawing) { return static_cast<DxfStorage&>(drawing.storage()); }

// The bytes that saving gives.
inline std::string saved(Drawing& drawing) {
  const auto path = test_support::tempPath("kiv_dxf_test");
  std::string bytes = "not saved";
  if (drawing.save(path).ok()) {
    if (auto content = base::readFile(path)) bytes = content.value();
  }
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  return bytes;
}

// The first entity of model space with this type.
inline RecordId entity(const Drawing& drawing, std::string_view type) {
  for (const RecordId id : drawing.entitiesOf(drawing.modelSpace())) {
    if (drawing.typeName(id) == type) return id;
  }
  return kNoRecord;
}

// `text` with its first `from` replaced; `text` unchanged when there is none, so that a test fails.
inline std::string replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

}  // namespace cad::dxf
