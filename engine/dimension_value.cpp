#include "engine/dimension_value.h"

#include "base/fold.h"
#include "spec/color_text.h"
#include "spec/leading_number.h"
#include "spec/value_forms.h"

namespace kiv {

std::wstring hostArrowName(std::wstring_view name) {
  return std::wstring(base::equalFolded(name, L"_ARCHTIC") ? L"_ARCHTICK" : name);
}

std::optional<DimensionValue> dimensionValue(int row, std::wstring_view text) {
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (variable.isInteger()) return static_cast<double>(leadingInteger(text));
  if (variable.isReal()) return leadingReal(text);
  if (!variable.isArrow()) return std::wstring(text);
  const auto block = blockNameOfDisplayForm(text);
  if (!block) return std::nullopt;
  return block->empty() ? L"." : hostArrowName(*block);
}

}  // namespace kiv
