#pragma once
// Picking an entity in the drawing for the value of one item; done by a sibling module.

#include <string>
#include <vector>

#include "siblings/KivDll/interface.h"

namespace kiv {

// When the sibling module or its function is missing, the command line says so and the pick fails. `values`
// is replaced on success and emptied on failure.
bool pickEntity(const std::wstring& prompt, PickItem item, std::uint32_t mask,
                std::vector<std::wstring>& values);

}  // namespace kiv
