// Loading of arrow blocks.

#include <filesystem>
#include <memory>
#include <vector>

#include "acdbads.h"
#include "acedCmdNF.h"
#include "acutads.h"
#include "adscodes.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text_files.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "engine/dimension_variables.h"
#include "engine/host_access.h"
#include "engine/setting_observation.h"
#include "engine/stages.h"
#include "platform/host_variables.h"
#include "platform/paths.h"
#include "spec/arrow_catalogue.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

// The host makes an arrow's block when a variable names it; the drawing's own arrow comes back at once.
bool makeBuiltIn(const std::wstring& name, ProblemSink& problems) {
  const auto current = textVariable(L"DIMBLK");
  if (!current) return true;
  const bool isMade = setTextVariable(L"DIMBLK", hostArrowName(builtInArrow(name)));
  if (!isMade) problems.addProblem(arrowProblem(name));
  setTextVariable(L"DIMBLK", *current);
  return isMade;
}

bool hasBlock(const std::wstring& name) {
  resbuf* record = acdbTblSearch(L"BLOCK", name.c_str(), 0);
  if (record == nullptr) return false;
  acutRelRb(record);
  return true;
}

// Another one once the block has been defined anew. Null: no block, or an empty one.
AcDbObjectId firstEntityOf(AcDbDatabase& database, const std::wstring& name) {
  AcDbBlockTablePointer table(&database, AcDb::kForRead);
  AcDbObjectId id;
  if (table.openStatus() != Acad::eOk || table->getAt(name.c_str(), id) != Acad::eOk) return {};
  AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
  AcDbBlockTableRecordIterator* made = nullptr;
  if (block.openStatus() != Acad::eOk || block->newIterator(made) != Acad::eOk) return {};
  const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
  AcDbEntity* first = nullptr;
  if (entities->done() || entities->getEntity(first, AcDb::kForRead) != Acad::eOk) return {};
  const AcDbObjectId found = first->objectId();
  first->close();
  return found;
}

bool insertAtOrigin(const std::wstring& insertName) {
  const int result = acedCommandS(RTSTR, L".-INSERT", RTSTR, insertName.c_str(), RTSTR, L"S", RTREAL, 1.0,
                                  RTSTR, L"R", RTREAL, 0.0, RTSTR, L"0,0", RTNONE);
  acedCommandS(RTNONE);
  return result == RTNORM;
}

// A path that is not absolute starts beside the specification, then in a folder of the support path, then
// wherever else the host looks. Empty: nowhere.
std::wstring findArrowFile(const std::wstring& entry, const std::filesystem::path& besideSpecification) {
  const std::filesystem::path file = base::pathFromText(entry);
  std::vector<std::wstring> places = {base::pathText(besideSpecification / file)};
  for (const std::wstring& folder : supportFolders())
    places.push_back(base::pathText(base::pathFromText(folder) / file));
  places.push_back(entry);
  for (const std::wstring& place : places) {
    if (const auto found = findHostFile(place)) return *found;
  }
  return {};
}

bool loadFile(const std::wstring& entry, RunState& run) {
  std::wstring path = findArrowFile(entry, run.specificationFolder);
  if (path.empty()) path = findArrowFile(base::withSystemSeparators(entry), run.specificationFolder);
  if (path.empty()) {
    run.problems.addNote(
        {section(kArrowSection).name, entry, RefusalReason::kNoSuchFile, 1, Refuser::kDrawing});
    return false;
  }
  const std::wstring block = base::pathText(base::pathFromText(path).stem());
  const std::wstring insertName = hasBlock(block) ? block + L"=" + path : path;
  ads_name before;
  const bool hadEntities = acdbEntLast(before) == RTNORM;
  const AcDbObjectId replaced = firstEntityOf(run.database, block);
  if (!insertAtOrigin(insertName)) {
    // An attribute's question ends the command after it has defined the block.
    const AcDbObjectId first = firstEntityOf(run.database, block);
    const bool isDefined = !first.isNull() && first != replaced;
    if (!isDefined) run.problems.addProblem(arrowProblem(block));
    return isDefined;
  }
  // Only the definition is wanted.
  ads_name after;
  if (acdbEntLast(after) == RTNORM && (!hadEntities || !ads_name_equal(before, after))) acdbEntDel(after);
  return true;
}

}  // namespace

void loadArrows(RunState& run) {
  int number = 0;
  for (const std::wstring& entry : run.list(kArrowSection)) {
    ObservedEntry observed(run.observer, kArrowSection, ++number, entry);
    if (entry.empty()) continue;
    if (!(isBuiltInArrow(entry) ? makeBuiltIn(entry, run.problems) : loadFile(entry, run))) observed.refuse();
  }
}

}  // namespace kiv
