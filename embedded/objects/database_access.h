#pragma once
// Between the host's own code and the classes that modules see: databases and drawings, ids and records.

#include <filesystem>
#include <functional>
#include <memory>

#include "dbmain.h"
#include "embedded/drawing/drawing.h"

namespace cad {

// A database over a drawing, which must outlive it. Objects that are still open when the database goes
// belong to no database from then on; their close() is still allowed.
std::unique_ptr<AcDbDatabase> makeDatabase(Drawing& drawing);

// Nothing of the database opens for writing while `isUnlocked` says so. A database without a document needs
// no lock.
void requireLock(AcDbDatabase& database, std::function<bool()> isUnlocked);
// Where it goes what could not follow a change of an object (the picture of a dimension of a kind that is not
// drawn).
void tellRemarks(AcDbDatabase& database, std::function<void(const base::Failure&)> remark);
// Where the files of fonts lie, by which the texts of dimensions are measured; without it by averages.
void searchFonts(AcDbDatabase& database, std::function<std::filesystem::path(std::wstring_view file)> find);
bool needsLock(const AcDbDatabase& database);  // it is not to be written now

Drawing& drawingOf(const AcDbDatabase& database);
AcDbDatabase* databaseOf(const Drawing& drawing);  // null when none was made

AcDbObjectId idOf(const AcDbDatabase& database, RecordId record);  // null for kNoRecord
RecordId recordOf(AcDbObjectId id);  // kNoRecord unless it names a record of an open database
std::size_t openObjectCount(const AcDbDatabase& database);

}  // namespace cad
