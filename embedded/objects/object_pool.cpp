#include "embedded/objects/object_pool.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <unordered_map>

#include "base/codepage.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "dbtable.h"

namespace cad {
namespace {

// An entity or object of a type that has no class here; its class is named as its type.
class OtherEntity final : public AcDbEntity {
 public:
  explicit OtherEntity(AcRxClass* type) : type_(type) {}
  AcRxClass* isA() const override { return type_; }

 private:
  AcRxClass* type_;
};

class OtherObject final : public AcDbObject {
 public:
  explicit OtherObject(AcRxClass* type) : type_(type) {}
  AcRxClass* isA() const override { return type_; }

 private:
  AcRxClass* type_;
};

template <class ObjectClass>
AcDbObject* makeObject(AcRxClass*) {
  return new ObjectClass;
}
template <class ObjectClass>
AcDbObject* makeOther(AcRxClass* type) {
  return new ObjectClass(type);
}

template <class ObjectClass>
ObjectPool* poolOf() {
  constexpr bool kHasFollowers =
      std::is_same_v<ObjectClass, AcDbDimension> || std::is_same_v<ObjectClass, AcDbLeader>;
  static auto* pool = new ObjectPool{&makeObject<ObjectClass>, nullptr, {}, kHasFollowers};
  return pool;
}

struct NameHash : std::hash<std::string_view> {
  using is_transparent = void;
};
using PoolsByName = std::unordered_map<std::string, ObjectPool*, NameHash, std::equal_to<>>;

PoolsByName knownEntities() {
  return {{"TEXT", poolOf<AcDbText>()},
          {"MTEXT", poolOf<AcDbMText>()},
          {"ATTDEF", poolOf<AcDbAttributeDefinition>()},
          {"ATTRIB", poolOf<AcDbAttribute>()},
          {"DIMENSION", poolOf<AcDbDimension>()},
          {"ARC_DIMENSION", poolOf<AcDbDimension>()},
          {"LARGE_RADIAL_DIMENSION", poolOf<AcDbDimension>()},
          {"LEADER", poolOf<AcDbLeader>()},
          {"HATCH", poolOf<AcDbHatch>()},
          {"INSERT", poolOf<AcDbBlockReference>()},
          {"ACAD_TABLE", poolOf<AcDbTable>()},
          {"ARC", poolOf<AcDbArc>()},
          {"CIRCLE", poolOf<AcDbCircle>()},
          {"ELLIPSE", poolOf<AcDbEllipse>()},
          {"LINE", poolOf<AcDbLine>()},
          {"LWPOLYLINE", poolOf<AcDbPolyline>()},
          {"POLYLINE", poolOf<AcDb2dPolyline>()},
          {"RAY", poolOf<AcDbRay>()},
          {"SPLINE", poolOf<AcDbSpline>()},
          {"XLINE", poolOf<AcDbXline>()},
          {"3DFACE", poolOf<AcDbFace>()},
          {"POINT", poolOf<AcDbPoint>()},
          {"SEQEND", poolOf<AcDbSequenceEnd>()},
          {"SOLID", poolOf<AcDbSolid>()},
          {"TRACE", poolOf<AcDbTrace>()},
          {"VERTEX", poolOf<AcDbVertex>()},
          {"VIEWPORT", poolOf<AcDbViewport>()}};
}

template <class ObjectClass>
ObjectPool& otherPool(PoolsByName& pools, std::string_view typeName, const AcRxClass* parent) {
  if (const auto found = pools.find(typeName); found != pools.end()) return *found->second;
  const std::wstring name = base::fromUtf8(typeName);
  // Lives as long as the process, like every class.
  auto* type = new AcRxClass(name.c_str(), name.c_str(), parent);
  auto* pool = new ObjectPool{&makeOther<ObjectClass>, type, {}, false};
  pools.emplace(typeName, pool);
  return *pool;
}

}  // namespace

// The pools are never destroyed: a module may close its objects while the process ends.
ObjectPool& entityPool(std::string_view typeName) {
  static auto& pools = *new PoolsByName(knownEntities());
  return otherPool<OtherEntity>(pools, typeName, AcDbEntity::desc());
}

ObjectPool& tablePool(Table table) {
  switch (table) {
    case Table::kLayer:
      return *poolOf<AcDbLayerTable>();
    case Table::kLinetype:
      return *poolOf<AcDbLinetypeTable>();
    case Table::kTextStyle:
      return *poolOf<AcDbTextStyleTable>();
    case Table::kDimStyle:
      return *poolOf<AcDbDimStyleTable>();
    case Table::kAppId:
      return *poolOf<AcDbRegAppTable>();
    default:
      return *poolOf<AcDbBlockTable>();
  }
}

ObjectPool& recordPool(const Drawing& drawing, RecordId record) {
  const Record& stored = drawing.record(record);
  if (stored.kind == RecordKind::kEntity || stored.kind == RecordKind::kSubEntity)
    return entityPool(drawing.typeName(record));
  switch (stored.table) {
    case Table::kLayer:
      return *poolOf<AcDbLayerTableRecord>();
    case Table::kLinetype:
      return *poolOf<AcDbLinetypeTableRecord>();
    case Table::kTextStyle:
      return *poolOf<AcDbTextStyleTableRecord>();
    case Table::kDimStyle:
      return *poolOf<AcDbDimStyleTableRecord>();
    case Table::kAppId:
      return *poolOf<AcDbRegAppTableRecord>();
    case Table::kBlock:
      return *poolOf<AcDbBlockTableRecord>();
    default: {
      static auto& pools = *new PoolsByName;
      return otherPool<OtherObject>(pools, drawing.typeName(record), AcDbObject::desc());
    }
  }
}

}  // namespace cad
