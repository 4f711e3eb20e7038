#include "engine/dimension_value.h"

#include "engine/host_arrows.h"
#include "spec/color_text.h"
#include "spec/leading_number.h"
#include "spec/value_forms.h"

namespace kiv {

std::optional<DimensionValue> dimensionValue(const DimensionVariable& variable, std::wstring_view text) {
  if (variable.type == DimensionVariable::Type::kInteger) return static_cast<double>(leadingInteger(text));
  if (variable.type == DimensionVariable::Type::kReal) return leadingReal(text);
  if (!isArrowVariable(variable.name)) return std::wstring(text);
  const auto block = blockNameOfDisplayForm(text);
  if (!block) return std::nullopt;
  return block->empty() ? L"." : hostArrowName(*block);
}

}  // namespace kiv
