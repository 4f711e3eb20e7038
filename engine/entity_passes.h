#pragma once
// The four passes over the drawing's entities.

#include "engine/block_walk.h"
#include "engine/run_state.h"

namespace kiv {

// Texts, dimensions, hatches, all others, in this order; in each every setting in list order.
void runEntityPasses(RunState& run, BlockScope scope);

}  // namespace kiv
