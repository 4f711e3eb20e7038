// Dimension variables: overrides of dimensions and leaders, values of dimension styles.

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/fold.h"
#include "embedded/drawing/color_codes.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/variable_numbers.h"
#include "embedded/dxf/dim_overrides.h"
#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"
#include "embedded/support/arrow_blocks.h"

namespace cad::dxf {
namespace {

bool isStyle(const Record& record) { return record.table == Table::kDimStyle; }

bool takesOverrides(std::string_view type) {
  constexpr std::string_view kTypes[] = {"DIMENSION", "LEADER", "TOLERANCE", "ARC_DIMENSION",
                                         "LARGE_RADIAL_DIMENSION"};
  return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

// Arrow blocks were named by text before 2000; text styles have been named by handle ever since they
// could be named at all.
bool namedByHandle(const DimVariableInfo& info, Version version) {
  if (!info.isName()) return false;
  return info.groups.old == 0 || version >= Version::kR2000;
}

int numberIn(const DimVariableInfo& info, Version version) {
  const bool isOld = info.groups.old != 0 && version < Version::kR2000;
  return isOld ? info.groups.old : info.groups.number;
}

std::wstring nameOf(const Drawing& drawing, RecordId id) {
  const NameId name = id == kNoRecord ? kNoName : drawing.name(id, Property::kName);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

std::wstring nameBehind(const Drawing& drawing, Handle handle) {
  return nameOf(drawing, handle == 0 ? kNoRecord : drawing.findHandle(handle));
}

// The arrow's block in its own spelling; what names no block stays as it is.
std::wstring arrowName(const Drawing& drawing, const DxfStorage& storage, std::string_view stored) {
  RecordId block = drawing.findStored(Table::kBlock, stored);
  if (block != kNoRecord) return nameOf(drawing, block);
  std::wstring text = storage.decode(stored);
  block = support::arrowBlockOfFile(drawing, text);
  return block != kNoRecord ? nameOf(drawing, block) : text;
}

std::optional<Variable> readValue(const Drawing& drawing, const DxfStorage& storage,
                                  const DimVariableInfo& info, const Group& group) {
  const ValueType type = valueType(group.code);
  if (info.isName() && type == ValueType::kHandle && namedByHandle(info, storage.facts().version)) {
    const std::optional<Handle> handle = handleValue(group);
    if (!handle) return std::nullopt;
    return nameBehind(drawing, *handle);
  }
  // A name group of an old dimension style has the code of a handle (5) elsewhere.
  if (info.isName() || info.type == DimType::kText) {
    if (type != ValueType::kText && type != ValueType::kHandle) return std::nullopt;
    if (info.type == DimType::kArrow) return arrowName(drawing, storage, group.value);
    return storage.decode(group.value);
  }
  if (info.type == DimType::kReal) {
    const std::optional<double> value = realValue(group, storage.dialect());
    return value ? std::optional<Variable>(*value) : std::nullopt;
  }
  const std::optional<std::int64_t> value = integerValue(group, storage.dialect());
  return value ? std::optional<Variable>(*value) : std::nullopt;
}

base::Failure badValue(const DimVariableInfo& info) {
  return failure(std::wstring(info.name.begin(), info.name.end()), L"The value does not fit the variable");
}

// The handle that stands for a name; the record enters the file when it was only implied.
base::Result<Handle> handleOfName(Drawing& drawing, const DimVariableInfo& info, std::wstring_view name) {
  if (name.empty() || name == L".") return Handle{0};
  RecordId id = drawing.find(tableOf(info.type), name);
  if (id == kNoRecord) return failure(name, L"The drawing has no record of this name");
  if (info.type == DimType::kArrow) id = drawing.find(Table::kBlockRecord, name);
  if (id == kNoRecord) return failure(name, L"The block has no table entry");
  if (const base::Status status = drawing.materialise(id); !status.ok()) return status.failure();
  const std::optional<Handle> handle = drawing.handle(id);
  if (!handle) return failure(name, L"The record has no handle");
  return *handle;
}

// Writes the value as a group of `code`, or by its type as extended data when `code` is 0.
base::Status writeValue(Drawing& drawing, RecordBuilder& builder, const DimVariableInfo& info,
                        const Variable& value, int code) {
  if (info.type == DimType::kReal) {
    const std::optional<double> real = asReal(value);
    if (!real) return badValue(info);
    builder.real(code != 0 ? code : 1040, *real);
    return {};
  }
  if (info.isInteger()) {
    const std::optional<std::int64_t> integer = asInteger(value);
    if (!integer) return badValue(info);
    builder.integer(code != 0 ? code : 1070, *integer);
    return {};
  }
  const auto* text = std::get_if<std::wstring>(&value);
  if (text == nullptr) return badValue(info);
  if (namedByHandle(info, builder.target().facts().version)) {
    const base::Result<Handle> handle = handleOfName(drawing, info, *text);
    if (!handle.ok()) return handle.failure();
    builder.handle(code != 0 ? code : 1005, handle.value());
    return {};
  }
  if (!info.isName() || text->empty() || *text == L".") {
    builder.text(code != 0 ? code : 1000, info.isName() ? std::wstring_view() : std::wstring_view(*text));
    return {};
  }
  const RecordId named = drawing.find(tableOf(info.type), std::wstring_view(*text));
  if (named == kNoRecord) return failure(*text, L"The drawing has no record of this name");
  builder.text(code != 0 ? code : 1000, blockName(drawing, named));
  return {};
}

// The group of a variable in a dimension style. Codes below 100 mean other things before the style's own
// subclass; 70 is the style's flags first and DIMTFILLCLR when it comes again.
const Group* findInStyle(const RecordGroups& groups, const DimVariableInfo& info, Version version) {
  const int code = numberIn(info, version);
  std::size_t first = 0;
  for (std::size_t i = 0; i < groups.plainCount(); ++i)
    if (groups.all()[i].code == 100) first = i;
  int awaited = info.groups.number == 70 ? 2 : 1;
  for (std::size_t i = first; i < groups.plainCount(); ++i)
    if (groups.all()[i].code == code && --awaited == 0) return &groups.all()[i];
  return nullptr;
}

// Some variables that have groups since 2007 stood before, since they came up, in extended data of their own.
struct OlderPlace {
  std::string_view variable, application;
  int number;
};
constexpr OlderPlace kOlderPlaces[] = {{"DIMLTYPE", "ACAD_DSTYLE_DIM_LINETYPE", 380},
                                       {"DIMLTEX1", "ACAD_DSTYLE_DIM_EXT1_LINETYPE", 381},
                                       {"DIMLTEX2", "ACAD_DSTYLE_DIM_EXT2_LINETYPE", 382},
                                       {"DIMTFILL", "ACAD_DSTYLE_DIMTEXT_FILL", 376},
                                       {"DIMTFILLCLR", "ACAD_DSTYLE_DIMTEXT_FILL", 377}};

// A colour as the host has it in memory: 8 bytes before the colour itself, whose fourth byte tells its kind.
std::optional<Variable> colorNumberIn(std::string_view chunk, bool binary) {
  const auto byteAt = [&](std::size_t at) -> std::uint32_t {
    if (binary) return at < chunk.size() ? static_cast<unsigned char>(chunk[at]) : 0;
    unsigned value = 0;
    if (2 * at + 2 <= chunk.size())
      std::from_chars(chunk.data() + 2 * at, chunk.data() + 2 * at + 2, value, 16);
    return value;
  };
  if (ColorCode{static_cast<std::uint8_t>(byteAt(11))} != ColorCode::kNumber) return std::nullopt;
  return std::int64_t{byteAt(8) | byteAt(9) << 8};
}

std::optional<Variable> olderValue(const Drawing& drawing, const DxfStorage& storage,
                                   const RecordGroups& groups, const DimVariableInfo& info) {
  const auto* place = std::ranges::find(kOlderPlaces, info.name, &OlderPlace::variable);
  if (place == std::end(kOlderPlaces)) return std::nullopt;
  bool here = false;
  for (std::size_t i = groups.plainCount(); i + 1 < groups.all().size(); ++i) {
    const Group& group = groups.all()[i];
    if (group.code == 1001) here = equalNoCase(trimmed(group.value), place->application);
    if (!here || group.code != 1070 || integerValue(group, storage.dialect()) != place->number) continue;
    const Group& value = groups.all()[i + 1];
    const bool binary = storage.dialect().binary;  // there blanks are data
    if (value.code == 1004) return colorNumberIn(binary ? value.value : trimmed(value.value), binary);
    if (!info.isName()) return readValue(drawing, storage, info, value);
    const std::optional<Handle> handle = handleValue(value);
    return handle ? std::optional<Variable>(nameBehind(drawing, *handle)) : std::nullopt;
  }
  return std::nullopt;
}

const DimOverride* findPair(const DimOverrides& overrides, const DimVariableInfo& info) {
  const auto& groups = info.groups;
  for (const DimOverride& pair : overrides.pairs)
    if (pair.number == groups.number || (groups.old != 0 && pair.number == groups.old)) return &pair;
  return nullptr;
}

// What a record itself says of the variables.
class OwnVariables {
 public:
  OwnVariables(const Drawing& drawing, const DxfStorage& storage, const Record& record)
      : drawing_(drawing), storage_(storage), isStyle_(isStyle(record)), groups_(storage, record) {
    hasData_ = groups_.plainCount() != groups_.all().size();
    if (!isStyle_ && hasData_) overrides_ = readDimOverrides(groups_, storage);
  }

  bool none() const { return !isStyle_ && !hasData_; }

  std::optional<Variable> value(const DimVariableInfo& info) const {
    if (const Group* group = find(info)) return readValue(drawing_, storage_, info, *group);
    const bool mayBeOlder = hasData_ && !info.existsIn(storage_.facts().version);
    return mayBeOlder ? olderValue(drawing_, storage_, groups_, info) : std::nullopt;
  }

 private:
  const Group* find(const DimVariableInfo& info) const {
    if (isStyle_) return findInStyle(groups_, info, storage_.facts().version);
    const DimOverride* pair = findPair(overrides_, info);
    return pair != nullptr ? pair->value : nullptr;
  }

  const Drawing& drawing_;
  const DxfStorage& storage_;
  bool isStyle_, hasData_ = false;
  RecordGroups groups_;
  DimOverrides overrides_;
};

struct Change {
  std::uint32_t begin = 0, end = 0;
  std::string bytes;
  bool none() const { return begin == end && bytes.empty(); }
};

void apply(Drawing& drawing, DxfStorage& storage, RecordId id, const Change& change) {
  const Record& record = drawing.record(id);
  drawing.setUnselectedEdits(id, storage.withGroupsFor(record, change.begin, change.end, change.bytes));
}

bool sameValue(const DimVariableInfo& info, const std::optional<Variable>& present, const Variable& value) {
  if (!present) return false;
  const auto* a = std::get_if<std::wstring>(&*present);
  const auto* b = std::get_if<std::wstring>(&value);
  if (a != nullptr && b != nullptr) return info.isName() ? base::equalFolded(*a, *b) : *a == *b;
  return asReal(*present) && asReal(*present) == asReal(value);
}

base::Result<Change> styleChange(Drawing& drawing, DxfStorage& storage, RecordId id,
                                 const DimVariableInfo& info, const Variable& value) {
  const Version version = storage.facts().version;
  RecordBuilder builder(storage);
  const base::Status status = writeValue(drawing, builder, info, value, numberIn(info, version));
  if (!status.ok()) return status.failure();
  const RecordGroups groups(storage, drawing.record(id));
  if (const Group* group = findInStyle(groups, info, version))
    return sameValue(info, readValue(drawing, storage, info, *group), value)
               ? Change{}
               : Change{group->begin, group->end, builder.take()};
  return Change{groups.plainEnd(), groups.plainEnd(), builder.take()};
}

base::Result<Change> overrideChange(Drawing& drawing, DxfStorage& storage, RecordId id,
                                    const DimVariableInfo& info, const Variable& value) {
  RecordBuilder pair(storage);
  pair.integer(1070, numberIn(info, storage.facts().version));
  const base::Status status = writeValue(drawing, pair, info, value, 0);
  if (!status.ok()) return status.failure();
  const RecordGroups groups(storage, drawing.record(id));
  const DimOverrides overrides = readDimOverrides(groups, storage);
  if (const DimOverride* old = findPair(overrides, info)) {
    const bool isThere = old->value && sameValue(info, readValue(drawing, storage, info, *old->value), value);
    return isThere ? Change{} : Change{old->begin, old->end, pair.take()};
  }
  if (overrides.hasList) return Change{overrides.listClose, overrides.listClose, pair.take()};
  RecordBuilder list(storage);
  if (!overrides.hasApp) list.stored(1001, "ACAD");
  list.stored(1000, "DSTYLE").stored(1002, "{").raw(pair.bytes()).stored(1002, "}");
  const auto end = static_cast<std::uint32_t>(groups.bytes().size());
  const std::uint32_t place = overrides.hasApp ? overrides.newList : end;
  return Change{place, place, list.take()};
}

std::wstring variableName(const DimVariableInfo& info) { return {info.name.begin(), info.name.end()}; }

}  // namespace

std::optional<Variable> DxfStorage::dimVariable(const Drawing& drawing, RecordId id,
                                                const DimVariableInfo& info) const {
  if (info.isOfHeaderOnly()) return std::nullopt;
  const Record& record = drawing.record(id);
  if (!isStyle(record) && !takesOverrides(typeName(record))) return std::nullopt;
  return OwnVariables(drawing, *this, record).value(info);
}

std::vector<DimValue> DxfStorage::dimVariables(const Drawing& drawing, const Record& record) const {
  std::vector<DimValue> values;
  if (!isStyle(record) && !takesOverrides(typeName(record))) return values;
  const OwnVariables own(drawing, *this, record);
  if (own.none()) return values;
  for (const DimVariableInfo& info : kDimVariables) {
    if (info.isOfHeaderOnly()) continue;
    if (std::optional<Variable> value = own.value(info)) values.push_back({&info, *std::move(value)});
  }
  return values;
}

base::Status DxfStorage::setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& info,
                                        const Variable& value) {
  if (info.isOfHeaderOnly())
    return failure(variableName(info), L"This variable belongs to the drawing as a whole");
  if (!info.existsIn(facts_.version))
    return failure(variableName(info), L"The drawing's version does not have this variable");
  const bool style = isStyle(drawing.record(id));
  if (!style && !takesOverrides(typeName(drawing.record(id))))
    return failure(variableName(info), L"This object has no dimension variables");

  Drawing::ChangeScope scope(drawing);
  base::Status status = drawing.materialise(id);
  if (status.ok() && !style) status = requireApplication(drawing, L"ACAD");
  if (status.ok()) {
    const base::Result<Change> change = style ? styleChange(drawing, *this, id, info, value)
                                              : overrideChange(drawing, *this, id, info, value);
    if (change.ok() && !change.value().none()) {
      apply(drawing, *this, id, change.value());
      return {};
    }
    if (change.ok()) {
      scope.rollBack();  // the value is there already, and needs nothing
      return {};
    }
    status = change.failure();
  }
  scope.rollBack();
  return status;
}

base::Status DxfStorage::removeDimOverride(Drawing& drawing, RecordId id, const DimVariableInfo& info) {
  if (info.isOfHeaderOnly() || isStyle(drawing.record(id))) return failure({}, L"This is no override");
  Change change;
  {
    const RecordGroups groups(*this, drawing.record(id));
    const DimOverrides overrides = readDimOverrides(groups, *this);
    const DimOverride* pair = findPair(overrides, info);
    if (pair == nullptr) return {};
    change = {pair->begin, pair->end, {}};
    if (overrides.pairs.size() == 1) {
      change = {overrides.listBegin, overrides.listEnd, {}};
      if (overrides.listAlone) change = {overrides.appBegin, overrides.appEnd, {}};
    }
  }
  apply(drawing, *this, id, change);
  return {};
}

}  // namespace cad::dxf
