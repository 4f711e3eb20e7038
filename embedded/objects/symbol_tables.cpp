// Symbol tables, their iterators, and what their records have in common.

#include "dbsymtb.h"

#include "embedded/drawing/names.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/values.h"

using cad::DatabaseState;
using cad::Drawing;
using cad::NameId;
using cad::ObjectAccess;
using cad::Property;
using cad::RecordId;
using cad::Table;

namespace {

Table tableOf(const AcDbSymbolTable& table) {
  return static_cast<Table>(ObjectAccess::record(table) - DatabaseState::kFirstTable);
}

Table kindOf(const AcDbSymbolTableRecord& record) {
  if (AcDbLayerTableRecord::cast(&record)) return Table::kLayer;
  if (AcDbLinetypeTableRecord::cast(&record)) return Table::kLinetype;
  if (AcDbTextStyleTableRecord::cast(&record)) return Table::kTextStyle;
  if (AcDbDimStyleTableRecord::cast(&record)) return Table::kDimStyle;
  if (AcDbRegAppTableRecord::cast(&record)) return Table::kAppId;
  return AcDbBlockTableRecord::cast(&record) ? Table::kBlock : Table::kNone;
}

Acad::ErrorStatus writeDetached(AcDbSymbolTableRecord& record, Property property,
                                const cad::Variable& value) {
  using cad::PropertyType;
  const bool isId = cad::propertyInfo(property).type == PropertyType::kName;
  if (isId && std::holds_alternative<std::int64_t>(value)) {
    const auto id = AcDbObjectId().setFromOldId(std::get<std::int64_t>(value));
    return cad::writeId(record, property, Table::kLinetype, id);
  }
  if (const auto* integer = std::get_if<std::int64_t>(&value))
    return cad::writeInteger(record, property, *integer);
  if (const auto* real = std::get_if<double>(&value)) return cad::writeReal(record, property, *real);
  return cad::writeText(record, property, std::get<std::wstring>(value).c_str());
}

const std::vector<RecordId>* recordsBehind(AcDbObjectId table) {
  RecordId number = cad::kNoRecord;
  const DatabaseState* state = cad::stateOf(table, number);
  if (!state || !DatabaseState::isTable(number)) return nullptr;
  return &state->drawing.tableRecords(static_cast<Table>(number - DatabaseState::kFirstTable));
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTable::getIdAt(const ACHAR* name, AcDbObjectId& id, bool) const {
  id.setNull();
  DatabaseState* state = ObjectAccess::state(*this);
  if (!state) return Acad::eNoDatabase;
  if (!name) return Acad::eInvalidInput;
  id = state->id(state->find(tableOf(*this), name).record);
  return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const {
  return getIdAt(name, id, getErased);
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                         AcDb::OpenMode mode, bool openErased) const {
  AcDbObjectId id;
  record = nullptr;
  const Acad::ErrorStatus status = getIdAt(name, id, openErased);
  return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
  AcDbObjectId id;
  return getIdAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
  RecordId record = cad::kNoRecord;
  return cad::checkedRecord(*this, id, tableOf(*this), record) == Acad::eOk;
}

void AcDbSymbolTable::bind(AcDbSymbolTableIterator& iterator, bool atBeginning, bool skipDeleted) const {
  ObjectAccess::bind(iterator, objectId());
  iterator.start(atBeginning, skipDeleted);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
  iterator = new AcDbSymbolTableIterator;
  bind(*iterator, atBeginning, skipDeleted);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
  AcDbObjectId id;
  return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
  id.setNull();
  if (!record) return Acad::eNullObjectPointer;
  if (!record->isNewObject()) return Acad::eAlreadyInDb;
  if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
  if (kindOf(*record) != tableOf(*this)) return Acad::eWrongObjectType;
  const cad::DetachedValues values = ObjectAccess::detach(*record);
  if (values.name.empty()) return Acad::eInvalidInput;
  DatabaseState& state = *ObjectAccess::state(*this);
  if (state.drawing.find(tableOf(*this), values.name) != cad::kNoRecord) return Acad::eDuplicateRecordName;
  const auto added = state.drawing.addTableRecord(tableOf(*this), values.name);
  if (!added) return Acad::eInvalidInput;

  ObjectAccess::adopt(*record, state, added.value());
  id = record->objectId();
  // A property that this drawing cannot hold is left out, as if it had never been set.
  for (const auto& [property, value] : values.values)
    static_cast<void>(writeDetached(*record, property, value));
  return Acad::eOk;
}

AcDbSymbolTableIterator::~AcDbSymbolTableIterator() { ObjectAccess::countIterator(table_, -1); }

void AcDbSymbolTableIterator::start(bool atBeginning, bool) {
  const auto* records = recordsBehind(table_);
  position_ = atBeginning || !records ? 0 : static_cast<std::ptrdiff_t>(records->size()) - 1;
}

bool AcDbSymbolTableIterator::done() const {
  const auto* records = recordsBehind(table_);
  return !records || position_ < 0 || position_ >= static_cast<std::ptrdiff_t>(records->size());
}

void AcDbSymbolTableIterator::step(bool forward, bool) { position_ += forward ? 1 : -1; }

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
  id.setNull();
  if (done()) return Acad::eInvalidIndex;
  RecordId number = cad::kNoRecord;
  id = cad::stateOf(table_, number)->id((*recordsBehind(table_))[static_cast<std::size_t>(position_)]);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErased) const {
  AcDbObjectId id;
  record = nullptr;
  const Acad::ErrorStatus status = getRecordId(id);
  return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
  name = L"";
  const Drawing* drawing = ObjectAccess::drawing(*this);
  if (!drawing) {
    if (const cad::DetachedValues* detached = ObjectAccess::detached(*this)) name = detached->name.c_str();
    return Acad::eOk;
  }
  const NameId id = drawing->name(ObjectAccess::record(*this), cad::Property::kName);
  if (id == cad::kNoName) return Acad::eInvalidKey;
  name = drawing->names().text(id).c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(AcString& name) const {
  const ACHAR* text = nullptr;
  const Acad::ErrorStatus status = getName(text);
  name = text;
  return status;
}

ACHAR* AcDbSymbolTableRecord::getName() const {
  const ACHAR* text = nullptr;
  getName(text);
  return cad::newText(text);
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
  if (!name || !cad::isRecordName(name)) return Acad::eInvalidInput;
  if (isNewObject()) {
    ObjectAccess::detach(*this).name = name;
    return Acad::eOk;
  }
  const Acad::ErrorStatus status = cad::checkWritable(*this);
  if (status != Acad::eOk) return status;
  if (isDependent()) return Acad::eXRefDependent;
  Drawing& drawing = *ObjectAccess::drawing(*this);
  const RecordId record = ObjectAccess::record(*this);
  const bool isLayerZero = drawing.find(Table::kLayer, L"0") == record;
  if (kindOf(*this) != Table::kLayer || isLayerZero) return Acad::eNotApplicable;
  const RecordId holder = drawing.find(Table::kLayer, name);
  if (holder != cad::kNoRecord && holder != record) return Acad::eDuplicateRecordName;
  return drawing.renameLayer(record, name).ok() ? Acad::eOk : Acad::eInvalidInput;
}

bool AcDbSymbolTableRecord::isDependent() const {
  const ACHAR* name = nullptr;
  getName(name);
  return std::wstring_view(name).find(L'|') != std::wstring_view::npos ||
         (cad::readInteger(*this, Property::kStandardFlags) & cad::RecordFlag::kDependent) != 0;
}
