// Setting properties and variables.

#include <cmath>

#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/stored_text.h"

namespace cad {
namespace {

std::wstring wide(std::string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

base::Status Drawing::checkValue(Property property, double value) const {
  const PropertyInfo& info = propertyInfo(property);
  const bool color = property == Property::kLayerColor && value == 0;
  if (std::isfinite(value) && value >= info.least && value <= info.most && !color) return {};
  return base::Failure{{}, L"The " + wide(info.name) + L" is out of its limits"};
}

base::Status Drawing::setReal(RecordId id, Property property, double value) {
  if (const base::Status status = checkValue(property, value); !status) return status;
  if (real(id, property) == value) return {};
  return setStored(id, property, value);
}

base::Status Drawing::setInteger(RecordId id, Property property, std::int64_t value) {
  if (const base::Status status = checkValue(property, static_cast<double>(value)); !status) return status;
  return setStored(id, property, value);
}

base::Status Drawing::setText(RecordId id, Property property, std::wstring_view value) {
  if (const Table table = propertyInfo(property).names; table != Table::kNone) {
    const NameId present = name(id, property);
    if (present != kNoName && base::equalFolded(names_.text(present), value)) return {};
    const RecordId named = find(table, value);
    if (named != kNoRecord) return setReference(id, property, named);
    return base::Failure{std::wstring(value),
                         L"The drawing has no such " + wide(propertyInfo(property).name)};
  }
  if (const auto present = text(id, property); present && *present == value) return {};
  return setStored(id, property, encodeStored(value, facts().codePage));
}

base::Status Drawing::setReference(RecordId id, Property property, RecordId value) {
  const NameId wanted = nameForReference(value, propertyInfo(property).names), present = name(id, property);
  if (wanted == kNoName)
    return base::Failure{{}, L"This is no record for the " + wide(propertyInfo(property).name)};
  if (present == wanted) return {};
  if (present != kNoName && names_.folded(present) == names_.folded(wanted)) return {};
  return setStored(id, property, Reference{value});
}

std::optional<Variable> Drawing::dimVariable(RecordId id, const DimVariableInfo& variable) const {
  return storage_->dimVariable(*this, id, variable);
}

base::Status Drawing::setDimVariable(RecordId id, const DimVariableInfo& variable, const Variable& value) {
  return storage_->setDimVariable(*this, id, variable, value);
}

base::Status Drawing::removeDimOverride(RecordId id, const DimVariableInfo& variable) {
  return storage_->removeDimOverride(*this, id, variable);
}

std::optional<Variable> Drawing::headerVariable(std::string_view name) const {
  return storage_->headerVariable(*this, name);
}

base::Status Drawing::setHeaderVariable(std::string_view name, const Variable& value) {
  return storage_->setHeaderVariable(*this, name, value);
}

}  // namespace cad
