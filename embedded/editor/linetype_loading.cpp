#include "acdb.h"
#include "base/files.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/output.h"
#include "embedded/objects/database_access.h"
#include "embedded/support/linetype_file.h"

namespace {

using cad::support::LinetypeLoading;

Acad::ErrorStatus statusOf(LinetypeLoading result) {
  switch (result) {
    case LinetypeLoading::kLoaded:
      return Acad::eOk;
    case LinetypeLoading::kNoFile:
      return Acad::eFileNotFound;
    case LinetypeLoading::kNotInFile:
      return Acad::eUndefinedLineType;
    case LinetypeLoading::kInDrawing:
      return Acad::eDuplicateRecordName;
    case LinetypeLoading::kNoTextStyle:
      return Acad::eKeyNotFound;
    case LinetypeLoading::kNotInThisVersion:
      return Acad::eNotApplicable;
    case LinetypeLoading::kBadDefinition:
      break;
  }
  return Acad::eInvalidInput;
}

// The caller tells what the status says; it does not say where a definition is wrong or which style it lacks.
bool isToldInPart(LinetypeLoading result) {
  return result == LinetypeLoading::kBadDefinition || result == LinetypeLoading::kNoTextStyle;
}

// A shape file that is not where its path says is looked for by its name.
std::filesystem::path findShapeFile(std::wstring_view name) {
  const std::filesystem::path found = cad::findFile(name);
  return found.empty() ? cad::findFile(base::pathText(base::pathFromText(name).filename())) : found;
}

}  // namespace

Acad::ErrorStatus acdbLoadLineTypeFile(const ACHAR* name, const ACHAR* file, AcDbDatabase* database) {
  if (name == nullptr || file == nullptr || *name == 0) return Acad::eInvalidInput;
  if (database == nullptr) return Acad::eNoDatabase;
  if (cad::needsLock(*database)) return Acad::eLockViolation;
  const std::filesystem::path found = cad::findFile(file);
  if (found.empty()) return Acad::eFileNotFound;
  const auto loaded = cad::support::loadLinetypes(cad::drawingOf(*database), name, found, findShapeFile);
  if (isToldInPart(loaded.result)) cad::remark(loaded.failure);
  for (const base::Failure& each : loaded.remarks) cad::remark(each);
  return statusOf(loaded.result);
}
