#include "base/files.h"
#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/wildcard.h"
#include "embedded/support/linetype_file.h"

namespace cad::support {
namespace {

base::Status add(Drawing& drawing, const LinetypeDefinition& definition) {
  const auto refused = [&](std::wstring reason) { return base::Failure{definition.name, std::move(reason)}; };
  if (!definition.refusal.empty()) return refused(L"The linetype cannot be loaded: " + definition.refusal);
  if (drawing.find(Table::kLinetype, std::wstring_view(definition.name)) != kNoRecord)
    return refused(L"The drawing has a linetype of this name");
  const base::Result<RecordId> record = drawing.addTableRecord(Table::kLinetype, definition.name);
  if (!record) return record.failure();
  if (const base::Status status =
          drawing.setText(record.value(), Property::kDescription, definition.description);
      !status)
    return status;
  return drawing.setDashes(record.value(), definition.dashes);
}

}  // namespace

base::Status loadLinetypes(Drawing& drawing, std::wstring_view wildcardName,
                           const std::filesystem::path& file) {
  const base::Result<std::string> bytes = base::readFile(file);
  if (!bytes) return bytes.failure();
  const std::vector<LinetypeDefinition> definitions = parseLinetypes(bytes.value());
  Drawing::ChangeScope scope(drawing);
  const auto finish = [&](base::Status status) {
    if (!status) scope.rollBack();
    return status;
  };
  for (const LinetypeDefinition& definition : definitions)
    if (base::equalFolded(definition.name, wildcardName)) return finish(add(drawing, definition));
  const Wildcard pattern(wildcardName, true);
  base::Status first = base::Failure{base::pathText(file),
                                     L"The file has no linetype \"" + std::wstring(wildcardName) + L"\""};
  bool any = false, refused = false;
  for (const LinetypeDefinition& definition : definitions) {
    if (!pattern.matches(definition.name)) continue;
    const base::Status status = add(drawing, definition);
    any |= status.ok();
    if (!status && !refused) first = status;
    refused |= !status;
  }
  return any ? base::Status() : finish(first);
}

}  // namespace cad::support
