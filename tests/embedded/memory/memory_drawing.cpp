#include "tests/embedded/memory/memory_drawing.h"

#include <utility>

#include "embedded/drawing/stored_text.h"
#include "tests/embedded/memory/memory_storage.h"

namespace cad::memory {
namespace {

class Copy {
 public:
  explicit Copy(const Drawing& source)
      : source_(source), storage_(std::make_unique<MemoryStorage>(source.facts())) {}

  std::unique_ptr<Drawing> make() {
    loaded_.names.setCodePage(source_.facts().codePage);
    loaded_.modelSpace = source_.modelSpace();
    loaded_.paperSpace = source_.paperSpace();
    for (RecordId id = 0; id < source_.recordCount(); ++id) names_.push_back(nameOf(id));
    for (RecordId id = 0; id < source_.recordCount(); ++id) addRecord(id);
    addHeader();
    return std::make_unique<Drawing>(std::move(storage_), std::move(loaded_));
  }

 private:
  std::string stored(std::wstring_view text) const { return encodeStored(text, source_.facts().codePage); }

  std::string nameOf(RecordId id) const {
    const Record& record = source_.record(id);
    const bool named = record.kind == RecordKind::kTableRecord || record.kind == RecordKind::kBlockBegin;
    const NameId name = named ? source_.recordName(id) : kNoName;
    return name == kNoName ? std::string() : std::string(source_.names().stored(name));
  }

  StoredValue valueOf(RecordId id, Property property) const {
    if (propertyInfo(property).names != Table::kNone) {
      const RecordId named = source_.reference(id, property);
      return named == kNoRecord ? StoredValue() : Reference{named};
    }
    switch (propertyInfo(property).type) {
      case PropertyType::kInteger:
        if (const auto value = source_.integer(id, property)) return *value;
        return {};
      case PropertyType::kReal:
        if (const auto value = source_.real(id, property)) return *value;
        return {};
      default:
        if (const auto value = source_.text(id, property)) return stored(*value);
        return {};
    }
  }

  void addRecord(RecordId id) {
    Record record = source_.record(id);
    Object object;
    const bool implied = record.implied();
    object.type = implied ? typeOf(record.table) : source_.typeName(id);
    object.handle = source_.handle(id).value_or(0);
    for (const PropertyInfo& info : allProperties()) {
      StoredValue value = valueOf(id, info.property);
      if (!std::holds_alternative<std::monostate>(value)) object.values[info.property] = std::move(value);
    }
    if (!names_[id].empty()) object.values[Property::kName] = names_[id];
    for (const DimVariableInfo& variable : kDimVariables) {
      if (implied) break;
      if (const auto value = source_.dimVariable(id, variable))
        object.dimValues[variable.row] = kept(tableOf(variable.type), *value);
    }
    if (record.table == Table::kLinetype) object.dashes = source_.dashes(id);
    object.geometry = source_.geometry(id);
    if (record.kind == RecordKind::kEntity) object.trueColor = source_.looks(id).trueColor;
    if (record.kind == RecordKind::kBlockBegin)
      object.geometry.shape = PointGeometry{implied ? Point{} : source_.basePoint(id)};
    const bool isDrawn = record.signature != 0;
    record.signature = 0;
    if (isDrawn) {
      const auto name = [&](RecordId named) { return loaded_.names.intern(std::string_view(names_[named])); };
      record.signature = loaded_.signatures.intern(signatureOf(object, loaded_.names, name));
    }
    if (record.kind == RecordKind::kFrame || record.kind == RecordKind::kTable)
      record.kind = RecordKind::kOther;
    keep(record, std::move(object));
  }

  DimValue kept(Table table, const Variable& value) const {
    if (const auto* text = std::get_if<std::wstring>(&value)) {
      if (table == Table::kNone) return *text;
      return Reference{text->empty() ? kNoRecord : source_.find(table, std::wstring_view(*text))};
    }
    if (const auto* real = std::get_if<double>(&value)) return *real;
    return std::get<std::int64_t>(value);
  }

  void addHeader() {
    Object header;
    for (const HeaderRow& row : headerRows()) {
      if (const auto value = source_.headerVariable(row.name))
        header.variables[std::string(row.name)] = kept(row.table, *value);
    }
    storage_->setHeader(static_cast<RecordId>(loaded_.records.size()));
    Record record;
    keep(record, std::move(header));
  }

  void keep(Record& record, Object object) {
    record.edits = kNoEdit;
    record.flags &= Record::kLayoutSpace;
    record.length = 0;
    record.offset = storage_->keep(std::move(object));
    loaded_.records.push_back(record);
  }

  const Drawing& source_;
  std::unique_ptr<MemoryStorage> storage_;
  LoadedRecords loaded_;
  std::vector<std::string> names_;  // of tables' records, as stored
};

}  // namespace

std::unique_ptr<Drawing> copyOf(const Drawing& drawing) { return Copy(drawing).make(); }

}  // namespace cad::memory
