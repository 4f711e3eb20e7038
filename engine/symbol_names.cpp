#include "engine/symbol_names.h"

#include "base/fold.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

namespace kiv {

const SymbolNames::Names& SymbolNames::of(AcDbObjectId id) {
  const auto known = names_.find(id.asOldId());
  if (known != names_.end()) return known->second;
  AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
  AcString name;
  // Not kept: what does not open now may open later.
  static const Names nothing;
  if (record.openStatus() != Acad::eOk || record->getName(name) != Acad::eOk) return nothing;
  return names_.try_emplace(id.asOldId(), Names{name.constPtr(), base::upper(name.constPtr())}).first->second;
}

}  // namespace kiv
