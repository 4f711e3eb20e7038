#pragma once
// Which entities are block references to a person.

#include <cwchar>

#include "dbents.h"

namespace kiv {

// What a selection of INSERT finds. A table is derived from the block reference and is none: the block that
// it refers to is the host's own drawing of it.
inline bool isInsertClass(const AcRxClass& type) {
  const ACHAR* name = type.dxfName();
  return type.isDerivedFrom(AcDbBlockReference::desc()) && name != nullptr &&
         std::wcscmp(name, L"INSERT") == 0;
}

}  // namespace kiv
