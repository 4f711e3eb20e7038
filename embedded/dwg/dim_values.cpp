// Dimension variables: overrides of dimensions and leaders, values of dimension styles.

#include <algorithm>
#include <cmath>

#include "base/fold.h"
#include "embedded/drawing/color_codes.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/application_data.h"
#include "embedded/dwg/dim_fields.h"
#include "embedded/dwg/dim_lists.h"
#include "embedded/support/arrow_blocks.h"

namespace cad::dwg {
namespace {

bool isStyle(const Record& record) { return record.table == Table::kDimStyle; }

std::wstring nameBehind(const Drawing& drawing, const DwgStorage& storage, Handle handle) {
  const RecordId id = handle == 0 ? kNoRecord : storage.recordOf(handle);
  const NameId name = id == kNoRecord ? kNoName : drawing.recordName(id);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

// The arrow's block in its own spelling; what names no block stays as it is.
std::wstring arrowName(const Drawing& drawing, std::wstring text) {
  RecordId block = drawing.find(Table::kBlock, std::wstring_view(text));
  if (block == kNoRecord) block = support::arrowBlockOfFile(drawing, text);
  const NameId name = block == kNoRecord ? kNoName : drawing.recordName(block);
  return name == kNoName ? text : drawing.names().text(name);
}

std::optional<Variable> styleValue(const Drawing& drawing, const DwgStorage& storage, const Fields& style,
                                   const DimVariableInfo& info) {
  const Field* field = style.find(info.name);
  if (isColorVariable(info)) {
    if (field == nullptr && style.count(info.name) == 0) return std::nullopt;
    return std::int64_t{style.color(info.name).number};
  }
  if (field == nullptr) return std::nullopt;
  if (isNamedByText(storage.version(), info)) return arrowName(drawing, storage.text(field->value));
  if (info.isName()) return nameBehind(drawing, storage, style.handle(info.name).value_or(0));
  if (info.type == DimType::kText) return storage.text(field->value);
  if (info.type == DimType::kReal) return style.real(info.name);
  return style.integer(info.name);
}

std::optional<Variable> overrideValue(const Drawing& drawing, const DwgStorage& storage,
                                      const DimVariableInfo& info, const ExtendedValue& value) {
  if (std::holds_alternative<HandleReference>(value.value))
    return info.isName() ? std::optional<Variable>(nameBehind(drawing, storage, handleOf(value)))
                         : std::nullopt;
  const bool isText =
      std::holds_alternative<std::string>(value.value) || std::holds_alternative<std::u16string>(value.value);
  if (isText) {
    if (!info.isName() && info.type != DimType::kText) return std::nullopt;
    std::wstring text = storage.text(value.value);
    return info.type == DimType::kArrow ? arrowName(drawing, std::move(text)) : std::move(text);
  }
  if (const auto* real = std::get_if<double>(&value.value))
    return info.type == DimType::kReal ? std::optional<Variable>(*real) : std::nullopt;
  if (const auto* integer = std::get_if<std::int64_t>(&value.value))
    return info.isInteger() ? std::optional<Variable>(*integer) : std::nullopt;
  return std::nullopt;
}

// Some variables that have fields since 2007 stood before in extended data of their own.
struct OlderPlace {
  std::string_view variable;
  const wchar_t* application;
  int number;
};
constexpr OlderPlace kOlderPlaces[] = {{"DIMLTYPE", L"ACAD_DSTYLE_DIM_LINETYPE", 380},
                                       {"DIMLTEX1", L"ACAD_DSTYLE_DIM_EXT1_LINETYPE", 381},
                                       {"DIMLTEX2", L"ACAD_DSTYLE_DIM_EXT2_LINETYPE", 382},
                                       {"DIMTFILL", L"ACAD_DSTYLE_DIMTEXT_FILL", 376},
                                       {"DIMTFILLCLR", L"ACAD_DSTYLE_DIMTEXT_FILL", 377}};

// A colour as the host has it in memory: 8 bytes before the colour itself, whose fourth byte tells its kind.
std::optional<Variable> colorNumberIn(std::string_view chunk) {
  constexpr std::size_t kNumber = 8, kKind = 11;
  const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(chunk[at]); };
  if (chunk.size() <= kKind || ColorCode{byteAt(kKind)} != ColorCode::kNumber) return std::nullopt;
  return std::int64_t{byteAt(kNumber) | byteAt(kNumber + 1) << 8};
}

std::optional<Variable> olderValue(const Drawing& drawing, const DwgStorage& storage, const Record& record,
                                   const DimVariableInfo& info) {
  const auto* place = std::ranges::find(kOlderPlaces, info.name, &OlderPlace::variable);
  if (place == std::end(kOlderPlaces)) return std::nullopt;
  const auto values = readableValues(storage, record, place->application);
  for (std::size_t i = 0; values && i + 1 < values->size(); ++i) {
    if ((*values)[i].code != 1070 || integerOf((*values)[i]) != place->number) continue;
    const ExtendedValue& value = (*values)[i + 1];
    if (value.code == 1004) return colorNumberIn(std::get<std::string>(value.value));
    return overrideValue(drawing, storage, info, value);
  }
  return std::nullopt;
}

// What a record itself says of the variables.
class OwnVariables {
 public:
  OwnVariables(const Drawing& drawing, const DwgStorage& storage, const Record& record)
      : drawing_(drawing), storage_(storage), record_(record) {
    if (isStyle(record)) return;
    if (base::Result<DimList> list = readDimList(storage, record); list.ok()) list_ = std::move(list.value());
  }

  bool none() const { return !isStyle(record_) && !list_.hasData; }

  std::optional<Variable> value(const DimVariableInfo& info) const {
    std::optional<Variable> value;
    if (isStyle(record_)) {
      value = styleValue(drawing_, storage_, storage_.fields(record_), info);
    } else if (const DimPair* pair = list_.find(info)) {
      value = overrideValue(drawing_, storage_, info, pair->value);
    }
    if (value || info.existsIn(storage_.version())) return value;
    return olderValue(drawing_, storage_, record_, info);
  }

 private:
  const Drawing& drawing_;
  const DwgStorage& storage_;
  const Record& record_;
  DimList list_;
};

}  // namespace

bool takesDimOverrides(std::string_view type) {
  constexpr std::string_view kTypes[] = {"DIMENSION", "LEADER", "TOLERANCE", "ARC_DIMENSION",
                                         "LARGE_RADIAL_DIMENSION"};
  return std::ranges::find(kTypes, type) != std::end(kTypes);
}

std::optional<Variable> DwgStorage::dimVariable(const Drawing& drawing, RecordId id,
                                                const DimVariableInfo& info) const {
  if (info.isOfHeaderOnly()) return std::nullopt;
  const Record& record = drawing.record(id);
  if (!isStyle(record) && !takesDimOverrides(typeName(record))) return std::nullopt;
  return OwnVariables(drawing, *this, record).value(info);
}

std::vector<DimValue> DwgStorage::dimVariables(const Drawing& drawing, const Record& record) const {
  std::vector<DimValue> values;
  if (!isStyle(record) && !takesDimOverrides(typeName(record))) return values;
  const OwnVariables own(drawing, *this, record);
  if (own.none()) return values;
  for (const DimVariableInfo& info : kDimVariables) {
    if (info.isOfHeaderOnly()) continue;
    if (std::optional<Variable> value = own.value(info)) values.push_back({&info, *std::move(value)});
  }
  return values;
}

}  // namespace cad::dwg
