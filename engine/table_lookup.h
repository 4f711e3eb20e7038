#pragma once
// Records of the drawing's symbol tables by name.

#include <string>

#include "dbmain.h"

namespace kiv {

// Null when the table has no record of that name.
AcDbObjectId findInTable(AcDbObjectId table, const std::wstring& name);

}  // namespace kiv
