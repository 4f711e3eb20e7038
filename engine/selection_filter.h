#pragma once
// The host's selection filter for a pass and a setting's conditions.

#include <span>

#include "engine/buffer_chain.h"
#include "engine/compiled_setting.h"

namespace kiv {

// The pass's entity types, and inside "<and" with them every item, an inverted one inside "<NOT".
void buildSelectionFilter(Pass pass, std::span<const FilterItem> items, BufferChain& filter);

}  // namespace kiv
