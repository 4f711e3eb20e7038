#pragma once
// The suite's sibling modules: small libraries beside this module, loaded when first needed.

#include <memory>

#include "base/dynamic_library.h"

namespace kiv {

// Looks beside this module first, ignoring case, then where the system looks. Null when there is none.
std::unique_ptr<base::DynamicLibrary> loadSibling(const wchar_t* fileName);

}  // namespace kiv
