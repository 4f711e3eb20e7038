#include "embedded/drawing/dim_variables.h"

#include "embedded/drawing/drawing.h"

namespace cad {

Variable defaultValue(const DimVariableInfo& info) {
  if (info.isInteger()) return static_cast<std::int64_t>(info.defaultValue);
  if (info.type == DimType::kReal) return info.defaultValue;
  return std::wstring(info.type == DimType::kTextStyle ? L"Standard" : L"");
}

DimVariables::DimVariables() {
  for (const DimVariableInfo& info : kDimVariables) set(info, defaultValue(info));
}

DimVariables DimVariables::ofStyle(const Drawing& drawing, RecordId style) {
  DimVariables values;
  if (style != kNoRecord) values.takeOwn(drawing, drawing.record(style));
  return values;
}

void DimVariables::takeOwn(const Drawing& drawing, const Record& record) {
  for (DimValue& own : drawing.dimVariables(record)) set(*own.variable, std::move(own.value));
}

std::int64_t DimVariables::integer(const DimVariableInfo& info) const {
  const auto* value = std::get_if<std::int64_t>(&values_[info.row]);
  return value ? *value : static_cast<std::int64_t>(info.defaultValue);
}

double DimVariables::real(const DimVariableInfo& info) const {
  const auto* value = std::get_if<double>(&values_[info.row]);
  return value ? *value : info.defaultValue;
}

const std::wstring& DimVariables::text(const DimVariableInfo& info) const {
  static const std::wstring kNone;
  const auto* value = std::get_if<std::wstring>(&values_[info.row]);
  return value ? *value : kNone;
}

}  // namespace cad
