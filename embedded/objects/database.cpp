// The database: its tables and its current settings.

#include "acdb.h"
#include "base/files.h"
#include "dbsymtb.h"
#include "embedded/drawing/current_space.h"
#include "embedded/objects/object_access.h"

using cad::DatabaseState;
using cad::Table;

namespace {

cad::RecordId namedByHeader(const DatabaseState& state, std::string_view variable, Table table) {
  const auto value = state.drawing.headerVariable(variable);
  const auto* name = value ? std::get_if<std::wstring>(&*value) : nullptr;
  return name ? state.drawing.find(table, *name) : cad::kNoRecord;
}

AcDbObjectId tableId(const DatabaseState& state, Table table) {
  return state.id(DatabaseState::tableNumber(table));
}

}  // namespace

AcDbDatabase::AcDbDatabase() = default;
AcDbDatabase::~AcDbDatabase() = default;

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& path) const {
  state_->pathText = base::pathText(state_->drawing.path());
  path = state_->pathText.c_str();
  return Acad::eOk;
}

AcDbObjectId AcDbDatabase::blockTableId() const { return tableId(*state_, Table::kBlock); }
AcDbObjectId AcDbDatabase::dimStyleTableId() const { return tableId(*state_, Table::kDimStyle); }
AcDbObjectId AcDbDatabase::layerTableId() const { return tableId(*state_, Table::kLayer); }
AcDbObjectId AcDbDatabase::linetypeTableId() const { return tableId(*state_, Table::kLinetype); }
AcDbObjectId AcDbDatabase::regAppTableId() const { return tableId(*state_, Table::kAppId); }
AcDbObjectId AcDbDatabase::textStyleTableId() const { return tableId(*state_, Table::kTextStyle); }

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, blockTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, dimStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, layerTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, linetypeTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, regAppTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, textStyleTableId(), mode);
}

AcDbObjectId AcDbDatabase::clayer() const {
  return state_->id(namedByHeader(*state_, "CLAYER", Table::kLayer));
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
  AcDbLayerTableRecord* record = nullptr;
  const Acad::ErrorStatus status = acdbOpenObject(record, layer, AcDb::kForRead);
  if (status != Acad::eOk) return status;
  AcString name;
  record->getName(name);
  const bool own = record->database() == this;
  const bool frozen = record->isFrozen();
  record->close();
  if (!own) return Acad::eWrongDatabase;
  if (frozen) return Acad::eInvalidLayer;
  const bool set = state_->drawing.setHeaderVariable("CLAYER", std::wstring(name.kACharPtr())).ok();
  return set ? Acad::eOk : Acad::eInvalidInput;
}

AcDbObjectId AcDbDatabase::textstyle() const {
  return state_->id(namedByHeader(*state_, "TEXTSTYLE", Table::kTextStyle));
}

AcDbObjectId AcDbDatabase::dimstyle() const {
  return state_->id(namedByHeader(*state_, "DIMSTYLE", Table::kDimStyle));
}

bool AcDbDatabase::tilemode() const { return isModelCurrent(state_->drawing); }

AcDbObjectId AcDbDatabase::currentSpaceId() const { return state_->id(currentSpace(state_->drawing)); }

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle) const {
  id.setNull();
  if (handle.isNull()) return Acad::eNullHandle;
  id = state_->id(state_->drawing.findHandle(handle));
  return id.isNull() ? Acad::eUnknownHandle : Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(const ACHAR* linetype, const ACHAR* file) {
  return acdbLoadLineTypeFile(linetype, file, this);
}
