#include "acdb.h"
#include "base/files.h"
#include "embedded/drawing/wildcard.h"
#include "embedded/editor/file_search.h"
#include "embedded/objects/database_access.h"
#include "embedded/support/linetype_file.h"

namespace {

bool hasWildcard(std::wstring_view name) { return name.find_first_of(L"#@.*?~[,`") != name.npos; }

// Why a load came to nothing, for a caller that knows only numbers.
Acad::ErrorStatus reasonOf(std::wstring_view name, const std::filesystem::path& file) {
  const base::Result<std::string> bytes = base::readFile(file);
  if (!bytes) return Acad::eFileNotFound;
  const cad::Wildcard pattern(name, true);
  bool duplicate = false;
  for (const cad::support::LinetypeDefinition& each : cad::support::parseLinetypes(bytes.value())) {
    if (!pattern.matches(each.name)) continue;
    if (!each.refusal.empty() && !hasWildcard(name)) return Acad::eInvalidInput;
    duplicate = true;
  }
  return duplicate ? Acad::eDuplicateRecordName : Acad::eUndefinedLineType;
}

}  // namespace

Acad::ErrorStatus acdbLoadLineTypeFile(const ACHAR* name, const ACHAR* file, AcDbDatabase* database) {
  if (name == nullptr || file == nullptr || *name == 0) return Acad::eInvalidInput;
  if (database == nullptr) return Acad::eNoDatabase;
  const std::filesystem::path found = cad::findFile(file);
  if (found.empty()) return Acad::eFileNotFound;
  const base::Status loaded = cad::support::loadLinetypes(cad::drawingOf(*database), name, found);
  return loaded ? Acad::eOk : reasonOf(name, found);
}
