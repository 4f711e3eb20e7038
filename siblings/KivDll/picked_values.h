#pragma once
// The values of an entity for one item.

#include <string>
#include <string_view>
#include <vector>

#include "dbmain.h"
#include "siblings/KivDll/interface.h"

namespace kiv {

// In the forms that PickItem tells; empty when the entity has no such value. `variable` is the dimension
// variable that PickItem::kDimension asks for.
std::vector<std::wstring> pickedValues(const AcDbEntity& entity, PickItem item, std::wstring_view variable);

}  // namespace kiv
