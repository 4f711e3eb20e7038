#include "engine/entity_results.h"

#include <map>
#include <numeric>

#include "base/numbers.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "engine/dimension_variables.h"
#include "engine/entity_properties.h"
#include "engine/host_access.h"
#include "engine/pattern_rename.h"
#include "engine/problems.h"
#include "spec/item_kinds.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

using Status = Acad::ErrorStatus;
using Writer = Status (*)(AcDbEntity&, EntityClass, const PreparedResult&);

AcDbText& asText(AcDbEntity& entity) { return static_cast<AcDbText&>(entity); }
AcDbMText& asMText(AcDbEntity& entity) { return static_cast<AcDbMText&>(entity); }
AcDbDimension& asDimension(AcDbEntity& entity) { return static_cast<AcDbDimension&>(entity); }

Status writeLinetype(AcDbEntity& entity, EntityClass, const PreparedResult& result) {
  return result.id.isNull() ? Acad::eKeyNotFound : entity.setLinetype(result.id);
}

Status writeColor(AcDbEntity& entity, EntityClass, const PreparedResult& result) {
  if (result.integer < kColorByBlock || result.integer > kColorByLayer) return Acad::eInvalidInput;
  return entity.setColorIndex(static_cast<Adesk::UInt16>(result.integer));
}

Status writeTextStyle(AcDbEntity& entity, EntityClass entityClass, const PreparedResult& result) {
  if (entityClass != EntityClass::kText && entityClass != EntityClass::kMText) return Acad::eOk;
  if (result.id.isNull()) return Acad::eKeyNotFound;
  return entityClass == EntityClass::kText ? asText(entity).setTextStyle(result.id)
                                           : asMText(entity).setTextStyle(result.id);
}

Status writeTextHeight(AcDbEntity& entity, EntityClass entityClass, const PreparedResult& result) {
  switch (entityClass) {
    case EntityClass::kText:
      return asText(entity).setHeight(result.height.applyTo(asText(entity).height()));
    case EntityClass::kMText:
      return asMText(entity).setTextHeight(result.height.applyTo(asMText(entity).textHeight()));
    case EntityClass::kDimension: {
      AcDbDimension& dimension = asDimension(entity);
      const Status status = dimension.setDimtxt(result.height.applyTo(dimension.dimtxt()));
      if (status == Acad::eOk) dimension.recomputeDimBlock(true);
      return status;
    }
    default:
      return Acad::eOk;
  }
}

Status writeTextAngle(AcDbEntity& entity, EntityClass entityClass, const PreparedResult& result) {
  switch (entityClass) {
    case EntityClass::kMText:
      return asMText(entity).setRotation(result.number);
    case EntityClass::kText:
      return asText(entity).setRotation(result.number);
    case EntityClass::kDimension:
      return asDimension(entity).setTextRotation(result.number);
    default:
      return Acad::eOk;
  }
}

Status writeWidthFactor(AcDbEntity& entity, EntityClass entityClass, const PreparedResult& result) {
  return entityClass == EntityClass::kText ? asText(entity).setWidthFactor(result.number) : Acad::eOk;
}

Status writeVariable(AcDbEntity& entity, EntityClass entityClass, const PreparedResult& result) {
  if (entityClass != EntityClass::kDimension) return Acad::eOk;
  const Status status = setDimensionVariable(entity, result.item->variable, result.variable);
  if (status == Acad::eOk) asDimension(entity).recomputeDimBlock(true);
  return status;
}

Status writeLineweight(AcDbEntity& entity, EntityClass, const PreparedResult& result) {
  return entity.setLineWeight(static_cast<AcDb::LineWeight>(result.integer));
}

Status writeTransparency(AcDbEntity& entity, EntityClass, const PreparedResult& result) {
  return entity.setTransparency(result.transparency);
}

Status writeLinetypeScale(AcDbEntity& entity, EntityClass, const PreparedResult& result) {
  return entity.setLinetypeScale(result.number);
}

// Of a layer setLayer() takes care. A kind that has no row here is refused, and the run says so.
struct WriterOfKind {
  int kind;
  Writer write;
};
constexpr WriterOfKind kWriters[] = {
    {kLinetypeKind, writeLinetype},
    {kColorKind, writeColor},
    {kFontKind, writeTextStyle},
    {kTextHeightKind, writeTextHeight},
    {kTextAngleKind, writeTextAngle},
    {kWidthFactorKind, writeWidthFactor},
    {kVariableKind, writeVariable},
    {kLineweightKind, writeLineweight},
    {kTransparencyKind, writeTransparency},
    {kLinetypeScaleKind, writeLinetypeScale},
};

Status writeByKind(AcDbEntity& entity, EntityClass entityClass, const PreparedResult& result) {
  for (const WriterOfKind& row : kWriters) {
    if (row.kind == result.item->kind) return row.write(entity, entityClass, result);
  }
  return Acad::eNotThatKindOfClass;
}

void countRefusal(RefusalCounts& counts, Status status) {
  ++counts[static_cast<std::size_t>(refusalOf(status))];
}

void reportCounts(ProblemSink& sink, const std::wstring& kind, const std::wstring& value,
                  const RefusalCounts& counts) {
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i] > 0) sink.addNote({kind, value, static_cast<RefusalReason>(i), counts[i]});
  }
}

}  // namespace

EntityResults::EntityResults(const CompiledSetting& setting, AcDbDatabase& database, SymbolNames& names)
    : setting_(setting), database_(database), names_(names) {
  results_.reserve(setting.results.size());
  for (const ResultItem& item : setting.results) results_.push_back(prepare(item));
}

PreparedResult EntityResults::prepare(const ResultItem& item) const {
  PreparedResult result;
  result.item = &item;
  switch (item.kind) {
    case kLinetypeKind:
      result.id = findInTable(database_.linetypeTableId(), item.value);
      break;
    case kColorKind:
      result.integer = colorNumberOfFileText(item.value);
      break;
    case kFontKind:
      result.id = findInTable(database_.textStyleTableId(), item.value);
      break;
    case kTextHeightKind:
      result.height = heightValue(item.value);
      break;
    case kTextAngleKind:
      result.number = radians(base::leadingReal(item.value));
      break;
    case kLineweightKind:
      result.integer = lineWeightResult(item.value);
      break;
    case kTransparencyKind:
      result.transparency = hostTransparency(transparencyValue(item.value));
      break;
    case kVariableKind:
      result.variable = dimensionValue(item.variable, item.value);
      break;
    default:
      result.number = base::leadingReal(item.value);
  }
  return result;
}

void EntityResults::apply(AcDbEntity& entity, EntityClass entityClass, const KivRunObserver* observer) {
  for (std::size_t i = 0; i < results_.size(); ++i) {
    if (observer != nullptr) observer->resultBegins(observer->context, static_cast<int>(i));
    const Status status = write(entity, entityClass, results_[i]);
    if (observer != nullptr)
      observer->resultEnds(observer->context, static_cast<int>(i), status != Acad::eOk ? 1 : 0);
  }
}

Status EntityResults::write(AcDbEntity& entity, EntityClass entityClass, PreparedResult& result) const {
  if (result.item->kind == kLayerKind) return setLayer(entity, result);
  const Status status = writeByKind(entity, entityClass, result);
  if (status != Acad::eOk) countRefusal(result.refused, status);
  return status;
}

int EntityResults::refusedTransparencies() const {
  int count = 0;
  for (const PreparedResult& result : results_) {
    if (result.item->kind != kTransparencyKind) continue;
    count = std::accumulate(result.refused.begin(), result.refused.end(), count);
  }
  return count;
}

Status EntityResults::setLayer(AcDbEntity& entity, PreparedResult& result) const {
  const AcDbObjectId from = entity.layerId();
  const auto [entry, isNew] = result.layers.try_emplace(from.asOldId());
  TargetLayer& target = entry->second;
  if (isNew) {
    target.name = renamedLayer(names_.of(from).name, result.item->value);
    target.id = findInTable(database_.layerTableId(), target.name);
  }
  const Status status = target.id.isNull() ? Acad::eKeyNotFound : entity.setLayer(target.id);
  if (status != Acad::eOk) countRefusal(target.refused, status);
  return status;
}

std::wstring EntityResults::renamedLayer(const std::wstring& from, const std::wstring& to) const {
  for (const auto& condition : setting_.conditions.layers) {
    if (auto name = renameByPattern(from, condition.value, to)) return *std::move(name);
  }
  return to;
}

void EntityResults::reportRefusals(ProblemSink& sink) const {
  for (const PreparedResult& result : results_) {
    reportCounts(sink, result.item->key, result.item->value, result.refused);
    // By name: the order of ids is another one after other drawings.
    std::multimap<std::wstring_view, const TargetLayer*> byName;
    for (const auto& [from, target] : result.layers) byName.emplace(target.name, &target);
    for (const auto& [name, target] : byName) {
      reportCounts(sink, result.item->key, target->name, target->refused);
    }
  }
}

}  // namespace kiv
