#include "engine/table_lookup.h"

#include "dbobjptr.h"
#include "dbsymtb.h"

namespace kiv {

AcDbObjectId findInTable(AcDbObjectId table, const std::wstring& name) {
  AcDbObjectPointer<AcDbSymbolTable> opened(table, AcDb::kForRead);
  AcDbObjectId id;
  if (opened.openStatus() != Acad::eOk || opened->getIdAt(name.c_str(), id) != Acad::eOk) {
    return AcDbObjectId::kNull;
  }
  return id;
}

}  // namespace kiv
