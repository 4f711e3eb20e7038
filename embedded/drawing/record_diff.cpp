#include "embedded/drawing/record_diff.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/geometry_diff.h"
#include "embedded/drawing/value_texts.h"

namespace cad {
namespace {

bool isEntity(const Record& record) {
  return record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
}

bool sameReal(const Drawing& before, RecordId one, const Drawing& after, RecordId other, Property property) {
  const std::optional<double> left = before.real(one, property), right = after.real(other, property);
  return left && right && nearlyEqual(*left, *right);
}

using Variables = std::array<std::optional<Variable>, kDimVariables.size()>;

Variables ownVariables(const Drawing& drawing, RecordId id) {
  Variables all;
  for (DimValue& value : drawing.dimVariables(drawing.record(id)))
    all[value.variable->row] = std::move(value.value);
  return all;
}

// Formats differ in whether a style says what is usual.
void fillDefaults(Variables& variables) {
  for (const DimVariableInfo& variable : kDimVariables)
    if (!variables[variable.row]) variables[variable.row] = defaultValue(variable);
}

// Files of older versions have the mark of a line's end in two characters.
std::wstring withLineEnds(std::wstring text) {
  for (std::size_t at = 0; (at = text.find(L"^J", at)) != text.npos; ++at) text.replace(at, 2, L"\n");
  return text;
}

std::wstring shown(const std::optional<Variable>& value) {
  return value ? variableText(*value) : std::wstring();
}

std::wstring trueColorText(const EntityLooks& looks) {
  if (!looks.trueColor) return {};
  constexpr wchar_t kDigits[] = L"0123456789abcdef";
  std::wstring text = L"#";
  for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[(*looks.trueColor >> shift) & 0xF];
  return text;
}

// What only one side holds; both are sorted.
std::wstring onlyIn(const std::vector<std::wstring>& own, const std::vector<std::wstring>& others) {
  constexpr std::size_t kMost = 3, kLongest = 60;
  std::vector<std::wstring> left;
  std::ranges::set_difference(own, others, std::back_inserter(left));
  std::wstring text;
  for (std::size_t i = 0; i < left.size() && i <= kMost; ++i) {
    if (i > 0) text += L"; ";
    if (i == kMost || left[i].size() > kLongest)
      left[i] = left[i].substr(0, i == kMost ? 0 : kLongest) + L"...";
    text += left[i];
  }
  return text;
}

// What a version cannot hold is as it usually is.
bool isLeftOut(const Drawing& drawing, RecordId id, const std::wstring& text, const Drawing& other,
               RecordId others, const std::wstring& othersText, Property property) {
  return text.empty() && !drawing.canHold(id, property) && othersText == defaultText(other, others, property);
}

RecordId pictureOf(const Drawing& drawing, RecordId dimension) {
  const NameId block = drawing.name(dimension, Property::kDimBlock);
  return block == kNoName ? kNoRecord : drawing.find(Table::kBlock, block);
}

std::vector<RecordId> contentOf(const Drawing& drawing, RecordId block) {
  std::vector<RecordId> content;
  if (block == kNoRecord) return content;
  std::ranges::copy_if(drawing.entitiesOf(block), std::back_inserter(content),
                       [&](RecordId id) { return !drawing.record(id).erased(); });
  return content;
}

}  // namespace

bool RecordComparison::holdSame(RecordId one, RecordId other) const {
  const Record& left = before_.record(one);
  const Record& right = after_.record(other);
  if (left.implied() || right.implied()) return left.implied() && right.implied();
  return before_.storage().holdsSame(left, after_.storage(), right);
}

std::vector<ValueChange> RecordComparison::changes(RecordId one, RecordId other) const {
  std::vector<ValueChange> changes;
  if (holdSame(one, other)) return changes;
  addProperties(one, other, changes);
  if (isEntity(before_.record(one))) addLooks(one, other, changes);
  addVariables(one, other, changes);
  addGeometry(one, other, changes);
  addOtherData(one, other, changes);
  return changes;
}

void RecordComparison::addProperties(RecordId one, RecordId other, std::vector<ValueChange>& changes) const {
  // What only entities name could have anything.
  const bool isOneImplied = before_.record(one).implied() != after_.record(other).implied();
  for (const PropertyInfo& info : allProperties()) {
    std::wstring left = propertyText(before_, one, info.property);
    std::wstring right = propertyText(after_, other, info.property);
    if (left == right || (isOneImplied && (left.empty() || right.empty()))) continue;
    if (isLeftOut(before_, one, left, after_, other, right, info.property) ||
        isLeftOut(after_, other, right, before_, one, left, info.property))
      continue;
    if (info.type == PropertyType::kText && withLineEnds(left) == withLineEnds(right)) continue;
    // Names are equal in any case, but for what a record itself is called.
    if (info.names != Table::kNone && base::equalFolded(left, right)) continue;
    if (info.type == PropertyType::kReal && sameReal(before_, one, after_, other, info.property)) continue;
    changes.push_back({info.name, info.property, std::move(left), std::move(right)});
  }
}

void RecordComparison::addLooks(RecordId one, RecordId other, std::vector<ValueChange>& changes) const {
  std::wstring left = trueColorText(before_.looks(one)), right = trueColorText(after_.looks(other));
  if (left != right) changes.push_back({"true colour", Property::kCount, std::move(left), std::move(right)});
}

void RecordComparison::addVariables(RecordId one, RecordId other, std::vector<ValueChange>& changes) const {
  const Record& record = before_.record(one);
  if (record.implied() || after_.record(other).implied()) return;
  Variables left = ownVariables(before_, one), right = ownVariables(after_, other);
  if (before_.format() != after_.format() && record.table == Table::kDimStyle)
    fillDefaults(left), fillDefaults(right);
  for (const DimVariableInfo& variable : kDimVariables) {
    const auto &was = left[variable.row], &is = right[variable.row];
    const bool isSame =
        variable.isName() ? base::equalFolded(shown(was), shown(is)) : shown(was) == shown(is);
    if (was == is || (was.has_value() == is.has_value() && isSame)) continue;
    changes.push_back({std::string(variable.name), Property::kCount, shown(was), shown(is)});
  }
}

void RecordComparison::addGeometry(RecordId one, RecordId other, std::vector<ValueChange>& changes) const {
  const Record& record = before_.record(one);
  std::pair<std::wstring, std::wstring> change;
  const char* name = "geometry";
  if (isEntity(record)) {
    change = geometryChange(before_, one, after_, other);
  } else if (record.kind == RecordKind::kBlockBegin) {
    change = {pointText(before_.basePoint(one)), pointText(after_.basePoint(other))};
  } else if (record.table == Table::kLinetype && record.kind == RecordKind::kTableRecord) {
    name = "pattern";
    change = {patternText(before_, one), patternText(after_, other)};
  }
  if (change.first == change.second) return;
  changes.push_back({name, Property::kCount, std::move(change.first), std::move(change.second)});
}

void RecordComparison::addOtherData(RecordId one, RecordId other, std::vector<ValueChange>& changes) const {
  if (before_.format() != after_.format()) return;
  const Record &was = before_.record(one), &is = after_.record(other);
  if (was.implied() || is.implied()) return;
  const OtherParts parts{.handles = byHandle_,
                         .geometry = std::ranges::none_of(
                             changes, [](const ValueChange& change) { return change.name == "geometry"; })};
  std::vector<std::wstring> left = before_.storage().otherData(was, parts);
  std::vector<std::wstring> right = after_.storage().otherData(is, parts);
  std::ranges::sort(left), std::ranges::sort(right);
  if (left == right) return;
  changes.push_back({"other data", Property::kCount, onlyIn(left, right), onlyIn(right, left)});
}

bool RecordComparison::showSame(RecordId one, RecordId other) const {
  const std::vector<RecordId> left = contentOf(before_, pictureOf(before_, one));
  const std::vector<RecordId> right = contentOf(after_, pictureOf(after_, other));
  const RecordComparison free(before_, after_, false);
  return std::ranges::equal(left, right, [&](RecordId was, RecordId is) {
    return before_.typeName(was) == after_.typeName(is) && free.changes(was, is).empty();
  });
}

}  // namespace cad
