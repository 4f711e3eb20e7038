#pragma once
// Picking an entity in the drawing for the value of one item; done by a sibling module.

#include <string>
#include <vector>

#include "siblings/KivDll/interface.h"

namespace kiv {

struct EntityPick {
  PickItem item;
  std::uint32_t mask;
  std::wstring variable;  // of PickItem::kDimension
};

// When the sibling module or its function is missing, the command line says so and the pick fails. Empty:
// nothing was picked.
std::vector<std::wstring> pickEntity(const std::wstring& prompt, const EntityPick& wanted);

}  // namespace kiv
