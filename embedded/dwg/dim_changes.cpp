// Setting dimension variables: overrides of dimensions and leaders, values of dimension styles.

#include <algorithm>

#include "base/fold.h"
#include "embedded/dwg/dim_fields.h"
#include "embedded/dwg/dim_lists.h"

namespace cad::dwg {
namespace {

constexpr wchar_t kApplication[] = L"ACAD";

std::wstring variableName(const DimVariableInfo& info) { return {info.name.begin(), info.name.end()}; }

double realOf(const Variable& value) {
  const auto* integer = std::get_if<std::int64_t>(&value);
  return integer != nullptr ? static_cast<double>(*integer) : std::get<double>(value);
}

bool sameValue(const DimVariableInfo& info, const std::optional<Variable>& present, const Variable& value) {
  if (!present) return false;
  const auto* is = std::get_if<std::wstring>(&*present);
  const auto* wanted = std::get_if<std::wstring>(&value);
  if (is != nullptr && wanted != nullptr) {
    const bool none = info.isName() && *wanted == L"." && is->empty();
    return none || (info.isName() ? base::equalFolded(*is, *wanted) : *is == *wanted);
  }
  return is == nullptr && wanted == nullptr && realOf(*present) == realOf(value);
}

int numberIn(const DimVariableInfo& info, Version version) {
  const bool isOld = info.groups.old != 0 && version < Version::kR2000;
  return isOld ? info.groups.old : info.groups.number;
}

// The record's extended data with this list in place of its own.
base::Result<FieldChanges> listChanges(Drawing& drawing, const DwgStorage& storage, const Record& record,
                                       const DimList& list) {
  const base::Result<Handle> application = applicationHandle(drawing, kApplication);
  if (!application.ok()) return application.failure();
  base::Result<std::vector<ExtendedData>> data =
      withApplicationValues(storage, record, application.value(), list.values(storage));
  if (!data.ok()) return data.failure();
  FieldChanges changes;
  changes.setExtendedData(std::move(data.value()));
  return changes;
}

base::Result<FieldChanges> overrideChanges(Drawing& drawing, const DwgStorage& storage, RecordId id,
                                           const DimVariableInfo& info, const Variable& value) {
  base::Result<ExtendedValue> stored = overrideOf(drawing, storage, info, value);
  if (!stored.ok()) return stored.failure();
  base::Result<DimList> present = readDimList(storage, drawing.record(id));
  if (!present.ok()) return present.failure();
  DimList list = std::move(present.value());
  const auto isOf = [&](const DimPair& pair) {
    return pair.number == info.groups.number || (info.groups.old != 0 && pair.number == info.groups.old);
  };
  const auto pair = std::ranges::find_if(list.pairs, isOf);
  if (pair != list.pairs.end())
    pair->value = std::move(stored.value());
  else
    list.pairs.push_back({numberIn(info, storage.version()), std::move(stored.value())});
  return listChanges(drawing, storage, drawing.record(id), list);
}

}  // namespace

base::Status DwgStorage::setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& info,
                                        const Variable& value) {
  const auto refused = [&](const wchar_t* reason) { return base::Failure{variableName(info), reason}; };
  if (info.isOfHeaderOnly()) return refused(L"This variable belongs to the drawing as a whole");
  if (!info.existsIn(version())) return refused(L"The drawing's version does not have this variable");
  const bool style = drawing.record(id).table == Table::kDimStyle;
  if (!style && !takesDimOverrides(typeName(drawing.record(id))))
    return refused(L"This object has no dimension variables");
  Drawing::ChangeScope scope(drawing);
  base::Status status = drawing.materialise(id);
  if (status && sameValue(info, dimVariable(drawing, id, info), value)) {
    scope.rollBack();  // it is there already, and needs nothing
    return {};
  }
  FieldChanges changes;
  if (status && style) {
    status = setStyleField(drawing, *this, info, value, changes);
  } else if (status) {
    base::Result<FieldChanges> list = overrideChanges(drawing, *this, id, info, value);
    if (list.ok())
      changes = std::move(list.value());
    else
      status = list.failure();
  }
  if (status) status = change(drawing, id, changes);
  if (!status) scope.rollBack();
  return status;
}

base::Status DwgStorage::removeDimOverride(Drawing& drawing, RecordId id, const DimVariableInfo& info) {
  const Record& record = drawing.record(id);
  if (info.isOfHeaderOnly() || record.table == Table::kDimStyle)
    return base::Failure{{}, L"This is no override"};
  base::Result<DimList> present = readDimList(*this, record);
  if (!present.ok()) return present.failure();
  DimList list = std::move(present.value());
  const DimPair* pair = list.find(info);
  if (pair == nullptr) return {};
  list.pairs.erase(list.pairs.begin() + (pair - list.pairs.data()));
  const base::Result<FieldChanges> changes = listChanges(drawing, *this, record, list);
  if (!changes.ok()) return changes.failure();
  return change(drawing, id, changes.value());
}

}  // namespace cad::dwg
