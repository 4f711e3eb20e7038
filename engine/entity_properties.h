#pragma once
// What sort of entity an object is, and the properties that only some sorts have.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dbmain.h"
#include "spec/value_forms.h"

namespace kiv {

// As far as conditions and results differ by it.
enum class EntityClass : unsigned char {
  kPlain,
  kText,  // single-line: texts, attribute definitions, attributes
  kMText,
  kDimension,
  kLeader,
  kBlockReference,
};

// Asked once per object, so the answer is kept per class of the host.
class EntityClasses {
 public:
  EntityClass of(const AcDbEntity& entity);

 private:
  std::vector<std::pair<const AcRxClass*, EntityClass>> known_;
};

// --- An entity without the property gives nothing, and so matches no value of a condition.

AcDbObjectId textStyleOf(const AcDbEntity& entity, EntityClass entityClass);  // null: none
std::optional<double> textHeightOf(const AcDbEntity& entity, EntityClass entityClass);
std::optional<double> textAngleOf(const AcDbEntity& entity, EntityClass entityClass);  // degrees
std::optional<double> widthFactorOf(const AcDbEntity& entity, EntityClass entityClass);

// What a text search list is held against: of a multiline text what is read on the drawing, of a dimension
// the text that stands in place of the measured value.
std::optional<std::wstring> textOf(const AcDbEntity& entity, EntityClass entityClass);

Transparency transparencyOf(const AcCmTransparency& transparency);
AcCmTransparency hostTransparency(const Transparency& transparency);

double radians(double degrees);

}  // namespace kiv
