#pragma once
// The block references of the current space and the entities of their definitions: work records that no
// selection gives. Collected once per run.

#include <vector>

#include "engine/setting_tests.h"

namespace kiv {

enum class BlockScope { kReferences = 0, kDefinitions = 1, kBoth = 2 };

struct WorkRecord {
  AcDbObjectId id;
  RecordSummary summary;  // kept up to date by whoever writes to the entity
};

// References as they stand, the entities of their definitions, or both. A definition counts once, however
// many references lead to it and however deep; references inside definitions are expanded and are no
// records themselves.
std::vector<WorkRecord> collectBlockRecords(AcDbDatabase& database, BlockScope scope);

}  // namespace kiv
