#include "engine/entity_class.h"

#include <cwchar>

#include "dbdim.h"
#include "dbents.h"
#include "dblead.h"
#include "dbmtext.h"

namespace kiv {
namespace {

// What a selection of INSERT finds, so that an entity comes into a run by the block walk or by its pass, and
// never by both or neither. A table is derived from the block reference and is no INSERT: the block that it
// refers to is the host's own drawing of it.
bool isInsert(const AcRxClass& type) {
  const ACHAR* name = type.dxfName();
  return type.isDerivedFrom(AcDbBlockReference::desc()) && name != nullptr &&
         std::wcscmp(name, L"INSERT") == 0;
}

EntityClass classify(const AcRxClass& type) {
  if (type.isDerivedFrom(AcDbText::desc())) return EntityClass::kText;
  if (type.isDerivedFrom(AcDbMText::desc())) return EntityClass::kMText;
  if (type.isDerivedFrom(AcDbDimension::desc())) return EntityClass::kDimension;
  if (type.isDerivedFrom(AcDbLeader::desc())) return EntityClass::kLeader;
  if (isInsert(type)) return EntityClass::kBlockReference;
  return EntityClass::kPlain;
}

}  // namespace

EntityClass EntityClasses::of(const AcDbEntity& entity) {
  const AcRxClass* type = entity.isA();
  for (const auto& [knownType, entityClass] : known_) {
    if (knownType == type) return entityClass;
  }
  known_.emplace_back(type, classify(*type));
  return known_.back().second;
}

}  // namespace kiv
