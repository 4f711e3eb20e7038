#include "engine/symbol_names.h"

#include "base/fold.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

namespace kiv {

const SymbolNames::Names& SymbolNames::of(AcDbObjectId id) {
  const auto [entry, isNew] = names_.try_emplace(id.asOldId());
  if (isNew && !id.isNull()) {
    AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
    AcString name;
    if (record.openStatus() == Acad::eOk && record->getName(name) == Acad::eOk) {
      entry->second.name = name.constPtr();
      entry->second.folded = base::upper(entry->second.name);
    }
  }
  return entry->second;
}

}  // namespace kiv
