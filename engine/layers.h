#pragma once
// The drawing's layers: their properties as value texts of a conversion specification, and their locks.

#include <string>
#include <vector>

#include "dbsymtb.h"
#include "spec/value_forms.h"

namespace kiv {

std::vector<AcDbObjectId> layersOf(AcDbDatabase& database);  // in the order of their table

// What conditions are tested on, read once before any layer is changed.
struct LayerFacts {
  AcDbObjectId id;
  std::wstring name, linetype;
  int color = 7;  // index, also of a layer that is off
  int lineWeight = -3;
  Transparency transparency;
  bool on = true, locked = false, frozen = false, plottable = true;
};
LayerFacts readLayer(const AcDbLayerTableRecord& layer);

// Does the property of this item kind match a condition's value? `kind` is one that layers have. Names match
// as patterns, ignoring case.
bool layerMatches(const LayerFacts& layer, int kind, const std::wstring& value);

// Sets any property but the name. eKeyNotFound: no such linetype; eInvalidInput: a value that is none of
// the kind; eNotApplicable: a kind that layers do not have; and what the host refuses with.
Acad::ErrorStatus setLayerProperty(AcDbLayerTableRecord& layer, int kind, const std::wstring& value,
                                   AcDbDatabase& database);

// The value as the specification has it, for messages: the run's lists have colours as numbers.
std::wstring asWritten(int kind, const std::wstring& value);

// Views keep showing a changed layer as it was until it is switched. Does nothing to one that is off.
void switchOffAndOn(AcDbLayerTableRecord& layer);

// Layers that are unlocked for the length of a run.
class LockedLayers {
 public:
  void unlockAll(AcDbDatabase& database);
  void lockAgain();  // those that unlockAll() has unlocked

 private:
  std::vector<AcDbObjectId> layers_;
};

}  // namespace kiv
