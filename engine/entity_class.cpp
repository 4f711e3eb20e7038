#include "engine/entity_class.h"

#include "dbdim.h"
#include "dblead.h"
#include "dbmtext.h"
#include "siblings/common/insert_class.h"

namespace kiv {
namespace {

EntityClass classify(const AcRxClass& type) {
  if (type.isDerivedFrom(AcDbText::desc())) return EntityClass::kText;
  if (type.isDerivedFrom(AcDbMText::desc())) return EntityClass::kMText;
  if (type.isDerivedFrom(AcDbDimension::desc())) return EntityClass::kDimension;
  if (type.isDerivedFrom(AcDbLeader::desc())) return EntityClass::kLeader;
  // The test of selections, so that an entity comes into a run by the block walk or by its pass, and never by
  // both or neither.
  if (isInsertClass(type)) return EntityClass::kBlockReference;
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
