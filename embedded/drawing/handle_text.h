#pragma once
// Handles as people read them.

#include <string>

#include "embedded/drawing/record.h"

namespace cad {

// Upper-case hexadecimal without leading zeros; "0" of none.
std::wstring handleText(Handle handle);

}  // namespace cad
