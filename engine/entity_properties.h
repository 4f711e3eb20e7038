#pragma once
// Properties of an entity that only some sorts of entities have. An entity without the property gives
// nothing, and so matches no value of a condition.

#include <optional>
#include <string>

#include "engine/entity_class.h"
#include "spec/value_forms.h"

namespace kiv {

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
