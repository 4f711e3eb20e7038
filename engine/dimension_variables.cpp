#include "engine/dimension_variables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/fold.h"
#include "base/numbers.h"
#include "engine/host_access.h"
#include "siblings/common/dimension_variables.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

using Status = Acad::ErrorStatus;
using WriteValue = Status (*)(AcDbDimension&, const DimensionValue&);

// --- Writing, by the host's type ---------------------------------------------------------------------

double numberOf(const DimensionValue& value) { return std::get<double>(value); }
const std::wstring& textOf(const DimensionValue& value) { return std::get<std::wstring>(value); }

template <class Set>
Status writeBool(AcDbDimension&, const DimensionValue& value, Set set) {
  const double number = numberOf(value);
  return number == 0 || number == 1 ? set(number == 1) : Acad::eInvalidInput;
}
template <class Set>
Status writeInteger(AcDbDimension&, const DimensionValue& value, Set set) {
  return set(static_cast<int>(numberOf(value)));
}
template <class Set>
Status writeReal(AcDbDimension&, const DimensionValue& value, Set set) {
  return set(numberOf(value));
}
template <class Set>
Status writeText(AcDbDimension&, const DimensionValue& value, Set set) {
  return set(textOf(value).c_str());
}
// The host makes the block of a built-in arrow when it is asked for it; its own name for the arrow is without
// the underscore of the block's. That waits until the setter has not found the block, so that a dimension
// that cannot have the variable at all brings no block into the drawing.
template <class Set>
Status writeArrow(AcDbDimension& dimension, const DimensionValue& value, Set set) {
  const std::wstring& name = textOf(value);
  const Status status = set(name.c_str());
  const bool isFinal = status == Acad::eOk || status == Acad::eNotApplicable || status == Acad::eFilerError;
  if (isFinal || !name.starts_with(L'_')) return status;
  AcDbObjectId block;
  const bool isMade = AcDmUtil::getArrowId(name.c_str() + 1, block, dimension.database()) == Acad::eOk;
  return isMade ? set(block) : status;
}
template <class Set>
Status writeCharacter(AcDbDimension&, const DimensionValue& value, Set set) {
  return textOf(value).size() == 1 ? set(textOf(value).front()) : Acad::eInvalidInput;
}
template <class Set>
Status writeColor(AcDbDimension&, const DimensionValue& value, Set set) {
  const double index = numberOf(value);
  if (index < kColorByBlock || index > kColorByLayer) return Acad::eInvalidInput;
  AcCmColor color;
  const Status status = color.setColorIndex(static_cast<Adesk::UInt16>(index));
  return status == Acad::eOk ? set(color) : status;
}
template <class Set>
Status writeWeight(AcDbDimension&, const DimensionValue& value, Set set) {
  const int weight = static_cast<int>(numberOf(value));
  return base::isLineweight(weight) ? set(static_cast<AcDb::LineWeight>(weight)) : Acad::eInvalidInput;
}
template <class Set>
Status writeTextStyle(AcDbDimension& dimension, const DimensionValue& value, Set set) {
  const AcDbObjectId style = findInTable(dimension.database()->textStyleTableId(), textOf(value));
  return style.isNull() ? Acad::eKeyNotFound : set(style);
}

// --- The variables ------------------------------------------------------------------------------------

#define KIV_WRITER(NAME, TYPE, GET, SET)                                                         \
  writers[base::dimRow(#NAME).row] = [](AcDbDimension& dimension, const DimensionValue& value) { \
    return write##TYPE(dimension, value, [&](const auto& set) { return dimension.SET(set); });   \
  };
// By the row of base::kDimVariables.
constexpr auto kWriters = [] {
  std::array<WriteValue, base::kDimVariables.size()> writers{};
  KIV_DIMENSION_VARIABLES(KIV_WRITER, KIV_WRITER)
  return writers;
}();
#undef KIV_WRITER

static_assert(std::ranges::all_of(base::kDimVariables, [](const base::DimVariableInfo& info) {
  return (kWriters[info.row] != nullptr) == (info.isOffered() && !info.isOfHeaderOnly());
}));

std::uint8_t hostRow(int row) { return dimensionCatalogueRow(row).info->row; }

}  // namespace

std::wstring hostArrowName(std::wstring_view name) {
  return std::wstring(base::equalFolded(name, L"_ARCHTIC") ? L"_ARCHTICK" : name);
}

std::optional<DimensionValue> dimensionValue(int row, std::wstring_view text) {
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (variable.isInteger()) return static_cast<double>(base::leadingInteger(text));
  if (variable.isReal()) return base::leadingReal(text);
  if (!variable.isArrow()) return std::wstring(text);
  const auto block = blockNameOfDisplayForm(text);
  if (!block) return std::nullopt;
  return block->empty() ? L"." : hostArrowName(*block);
}

std::optional<DimensionValue> dimensionVariable(const AcDbEntity& entity, bool isLeader, int row,
                                                SymbolNames& names) {
  const DimensionReader& reader = kDimensionReaders[hostRow(row)];
  const auto read = isLeader ? reader.ofLeader : reader.ofDimension;
  if (read == nullptr) return std::nullopt;
  DimensionReading reading = read(entity);
  if (const auto* number = std::get_if<double>(&reading))
    return dimensionCatalogueRow(row).isInteger() ? std::trunc(*number) : *number;
  if (auto* text = std::get_if<std::wstring>(&reading)) return std::move(*text);
  const AcDbObjectId id = std::get<AcDbObjectId>(reading);
  return id.isNull() ? std::wstring(L".") : names.of(id).name;
}

Acad::ErrorStatus setDimensionVariable(AcDbEntity& dimension, int row,
                                       const std::optional<DimensionValue>& value) {
  const WriteValue write = kWriters[hostRow(row)];
  if (write == nullptr) return Acad::eNotThatKindOfClass;
  return value ? write(static_cast<AcDbDimension&>(dimension), *value) : Acad::eInvalidInput;
}

}  // namespace kiv
