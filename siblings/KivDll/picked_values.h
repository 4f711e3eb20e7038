#pragma once
// The values of an entity for one item.

#include <string>
#include <vector>

#include "dbmain.h"
#include "siblings/KivDll/interface.h"

namespace kiv {

// In the forms that PickItem tells; empty when the entity has no such value.
std::vector<std::wstring> pickedValues(const AcDbEntity& entity, PickItem item);

}  // namespace kiv
