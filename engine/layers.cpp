#include "engine/layers.h"

#include <memory>

#include "acutads.h"
#include "dbobjptr.h"
#include "engine/entity_properties.h"
#include "engine/host_access.h"
#include "siblings/common/host_releases.h"
#include "spec/item_kinds.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

using Status = Acad::ErrorStatus;

// Some of a layer's setters tell nothing: whether the host took the value shows in the layer.
Status taken(bool shows) { return shows ? Acad::eOk : Acad::eInvalidInput; }

Status setColor(AcDbLayerTableRecord& layer, const std::wstring& value) {
  const int index = colorNumberOfFileText(value);
  // The host would pass over the call without a word.
  if (!isLayerColor(index)) return Acad::eInvalidInput;
  AcCmColor color;
  const Status status = color.setColorIndex(static_cast<Adesk::UInt16>(index));
  if (status != Acad::eOk) return status;
  layer.setColor(color);
  return taken(layer.color().colorIndex() == index);
}

Status setLinetype(AcDbLayerTableRecord& layer, const std::wstring& value, AcDbDatabase& database) {
  const AcDbObjectId id = findInTable(database.linetypeTableId(), value);
  return id.isNull() ? Acad::eKeyNotFound : setLayerLinetype(layer, id);
}

Status setSwitch(AcDbLayerTableRecord& layer, int kind, const std::wstring& value) {
  const auto on = onOffValue(value);
  if (!on) return Acad::eInvalidInput;
  switch (kind) {
    case kVisibilityKind:
      layer.setIsOff(!*on);
      return taken(layer.isOff() != *on);
    case kLockKind:
      layer.setIsLocked(*on);
      return taken(layer.isLocked() == *on);
    case kFreezeKind:
      return layer.setIsFrozen(*on);
    default:
      return layer.setIsPlottable(*on);
  }
}

bool matchesSwitch(bool state, const std::wstring& value) {
  const auto on = onOffValue(value);
  return on && *on == state;
}

}  // namespace

std::vector<AcDbObjectId> layersOf(AcDbDatabase& database) {
  std::vector<AcDbObjectId> layers;
  AcDbLayerTablePointer table(&database, AcDb::kForRead);
  AcDbLayerTableIterator* made = nullptr;
  if (table.openStatus() != Acad::eOk || table->newIterator(made) != Acad::eOk) return layers;
  const std::unique_ptr<AcDbLayerTableIterator> records(made);
  for (; !records->done(); records->step()) records->getRecordId(layers.emplace_back());
  return layers;
}

LayerFacts readLayer(const AcDbLayerTableRecord& layer) {
  LayerFacts facts;
  facts.id = layer.objectId();
  AcString name;
  if (layer.getName(name) == Acad::eOk) facts.name = name.constPtr();
  facts.linetype = recordName(layer.linetypeObjectId());
  facts.color = layer.color().colorIndex();
  facts.lineWeight = layer.lineWeight();
  facts.transparency = transparencyOf(layer.transparency());
  facts.on = !layer.isOff();
  facts.locked = layer.isLocked();
  facts.frozen = layer.isFrozen();
  facts.plottable = layer.isPlottable();
  return facts;
}

bool layerMatches(const LayerFacts& layer, int kind, const std::wstring& value) {
  switch (kind) {
    case kLayerKind:
      return acutWcMatchEx(layer.name.c_str(), value.c_str(), true);
    case kLinetypeKind:
      return acutWcMatchEx(layer.linetype.c_str(), value.c_str(), true);
    case kColorKind:
      return layer.color == colorNumberOfFileText(value);
    case kLineweightKind:
      return layer.lineWeight == lineWeightNumber(value);
    case kTransparencyKind:
      return layer.transparency == transparencyValue(value);
    case kVisibilityKind:
      return matchesSwitch(layer.on, value);
    case kLockKind:
      return matchesSwitch(layer.locked, value);
    case kFreezeKind:
      return matchesSwitch(layer.frozen, value);
    case kPlotKind:
      return matchesSwitch(layer.plottable, value);
    default:
      return false;
  }
}

Acad::ErrorStatus setLayerProperty(AcDbLayerTableRecord& layer, int kind, const std::wstring& value,
                                   AcDbDatabase& database) {
  switch (kind) {
    case kColorKind:
      return setColor(layer, value);
    case kLinetypeKind:
      return setLinetype(layer, value, database);
    case kLineweightKind:
      return layer.setLineWeight(static_cast<AcDb::LineWeight>(lineWeightResult(value)));
    case kTransparencyKind:
      return layer.setTransparency(hostTransparency(transparencyValue(value)));
    case kVisibilityKind:
    case kLockKind:
    case kFreezeKind:
    case kPlotKind:
      return setSwitch(layer, kind, value);
    default:
      return Acad::eNotApplicable;
  }
}

std::wstring asWritten(int kind, const std::wstring& value) {
  return kind == kColorKind ? colorFileText(colorNumberOfFileText(value)) : value;
}

void switchOffAndOn(AcDbLayerTableRecord& layer) {
  if (layer.isOff()) return;
  layer.setIsOff(true);
  layer.setIsOff(false);
}

void LockedLayers::unlockAll(AcDbDatabase& database) {
  for (const AcDbObjectId id : layersOf(database)) {
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() == Acad::eOk && layer->isLocked()) layers_.push_back(id);
  }
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
