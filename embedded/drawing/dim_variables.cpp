#include "embedded/drawing/dim_variables.h"

#include "embedded/drawing/drawing.h"

namespace cad {

Variable defaultValue(const DimVariableInfo& info) {
  if (info.isInteger()) return static_cast<std::int64_t>(info.defaultValue);
  if (info.type == DimType::kReal) return info.defaultValue;
  return std::wstring(info.type == DimType::kTextStyle ? L"Standard" : L"");
}

Variable inheritedDimVariable(const Drawing& drawing, RecordId record, const DimVariableInfo& info) {
  if (drawing.record(record).table == Table::kDimStyle) return defaultValue(info);
  const RecordId style = drawing.reference(record, Property::kDimStyle);
  if (style == kNoRecord) return defaultValue(info);
  return drawing.dimVariable(style, info).value_or(defaultValue(info));
}

DimVariables::DimVariables(const Drawing& drawing, RecordId record) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (record == kNoRecord) {
      set(info, defaultValue(info));
      continue;
    }
    std::optional<Variable> own = drawing.dimVariable(record, info);
    set(info, own ? *std::move(own) : inheritedDimVariable(drawing, record, info));
  }
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
