#include "engine/entity_properties.h"

#include <cmath>
#include <numbers>

#include "dbdim.h"
#include "dbents.h"
#include "dblead.h"
#include "dbmtext.h"
#include "siblings/common/insert_class.h"

namespace kiv {
namespace {

double degrees(double inRadians) { return inRadians * 180.0 / std::numbers::pi; }

const AcDbText& asText(const AcDbEntity& entity) { return static_cast<const AcDbText&>(entity); }
const AcDbMText& asMText(const AcDbEntity& entity) { return static_cast<const AcDbMText&>(entity); }
const AcDbDimension& asDimension(const AcDbEntity& entity) {
  return static_cast<const AcDbDimension&>(entity);
}
const AcDbLeader& asLeader(const AcDbEntity& entity) { return static_cast<const AcDbLeader&>(entity); }

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

double radians(double inDegrees) { return inDegrees * std::numbers::pi / 180.0; }

AcDbObjectId textStyleOf(const AcDbEntity& entity, EntityClass entityClass) {
  switch (entityClass) {
    case EntityClass::kText:
      return asText(entity).textStyle();
    case EntityClass::kMText:
      return asMText(entity).textStyle();
    case EntityClass::kDimension:
      return asDimension(entity).dimtxsty();
    case EntityClass::kLeader:
      return asLeader(entity).dimtxsty();
    default:
      return AcDbObjectId::kNull;
  }
}

std::optional<double> textHeightOf(const AcDbEntity& entity, EntityClass entityClass) {
  switch (entityClass) {
    case EntityClass::kText:
      return asText(entity).height();
    case EntityClass::kMText:
      return asMText(entity).textHeight();
    case EntityClass::kDimension:
      return asDimension(entity).dimtxt();
    case EntityClass::kLeader:
      return asLeader(entity).dimtxt();
    default:
      return std::nullopt;
  }
}

std::optional<double> textAngleOf(const AcDbEntity& entity, EntityClass entityClass) {
  switch (entityClass) {
    case EntityClass::kText:
      return degrees(asText(entity).rotation());
    case EntityClass::kMText:
      return degrees(asMText(entity).rotation());
    case EntityClass::kDimension:
      return degrees(asDimension(entity).textRotation());
    default:
      return std::nullopt;
  }
}

std::optional<double> widthFactorOf(const AcDbEntity& entity, EntityClass entityClass) {
  if (entityClass != EntityClass::kText) return std::nullopt;
  return asText(entity).widthFactor();
}

std::optional<std::wstring> textOf(const AcDbEntity& entity, EntityClass entityClass) {
  AcString text;
  Acad::ErrorStatus status = Acad::eNotApplicable;
  if (entityClass == EntityClass::kText) status = asText(entity).textString(text);
  if (entityClass == EntityClass::kMText) status = asMText(entity).text(text);
  if (entityClass == EntityClass::kDimension) status = asDimension(entity).dimensionText(text);
  if (status != Acad::eOk) return std::nullopt;
  return std::wstring(text.constPtr());
}

Transparency transparencyOf(const AcCmTransparency& transparency) {
  if (transparency.isByLayer()) return {Transparency::Method::kByLayer, 0};
  if (transparency.isByBlock()) return {Transparency::Method::kByBlock, 0};
  const double opacity = transparency.alphaPercent();
  return {Transparency::Method::kPercent, static_cast<int>(std::lround((1.0 - opacity) * 100.0))};
}

AcCmTransparency hostTransparency(const Transparency& transparency) {
  AcCmTransparency made;
  switch (transparency.method) {
    case Transparency::Method::kByLayer:
      made.setMethod(AcCmTransparency::kByLayer);
      break;
    case Transparency::Method::kByBlock:
      made.setMethod(AcCmTransparency::kByBlock);
      break;
    case Transparency::Method::kPercent:
      made.setAlphaPercent((100 - transparency.percent) / 100.0);
      break;
  }
  return made;
}

}  // namespace kiv
