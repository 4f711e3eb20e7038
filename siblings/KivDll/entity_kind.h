#pragma once
// Which entities a pick admits.

#include <string>

#include "dbmain.h"
#include "siblings/KivDll/interface.h"

namespace kiv {

// `mask`: bits kPick...; what counts as a text depends on the item.
bool isAdmitted(const AcDbEntity& entity, PickItem item, std::uint32_t mask);

// What to tell a person who picked something that the mask does not admit.
std::wstring wrongKindMessage(PickItem item, std::uint32_t mask);

}  // namespace kiv
