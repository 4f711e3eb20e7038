// Unlocking of layers for the length of a run.

#include <memory>

#include "dbobjptr.h"
#include "engine/layer_properties.h"
#include "engine/layer_stages.h"

namespace kiv {
namespace {

std::vector<AcDbObjectId> lockedLayersOf(AcDbDatabase& database) {
  std::vector<AcDbObjectId> found;
  AcDbLayerTablePointer table(&database, AcDb::kForRead);
  AcDbLayerTableIterator* made = nullptr;
  if (table.openStatus() != Acad::eOk || table->newIterator(made) != Acad::eOk) return found;
  const std::unique_ptr<AcDbLayerTableIterator> records(made);
  for (; !records->done(); records->step()) {
    AcDbObjectId id;
    records->getRecordId(id);
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() == Acad::eOk && layer->isLocked()) found.push_back(id);
  }
  return found;
}

}  // namespace

void LockedLayers::unlockAll(AcDbDatabase& database) {
  layers_ = lockedLayersOf(database);
  for (const AcDbObjectId id : layers_) {
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    if (layer.openStatus() != Acad::eOk) continue;
    layer->setIsLocked(false);
    switchOffAndOn(*layer.object());
  }
}

void LockedLayers::lockAgain() {
  for (const AcDbObjectId id : layers_) {
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    if (layer.openStatus() == Acad::eOk) layer->setIsLocked(true);
  }
  layers_.clear();
}

}  // namespace kiv
