#pragma once
// Stages that work on the layers themselves.

#include <vector>

#include "engine/run_state.h"

namespace kiv {

// Makes the layers of the list that the drawing does not have; an existing one is left as it is.
void createLayers(RunState& run);

// Tests every layer, as it is when the stage begins, against each setting and writes the results.
void applyLayerSettings(RunState& run);

// Layers that are unlocked for the length of a run.
class LockedLayers {
 public:
  void unlockAll(AcDbDatabase& database);
  void lockAgain();  // those that unlockAll() has unlocked

 private:
  std::vector<AcDbObjectId> layers_;
};

}  // namespace kiv
