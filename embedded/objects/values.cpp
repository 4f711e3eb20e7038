#include "embedded/objects/values.h"

#include <cmath>

#include "acutads.h"
#include "embedded/drawing/transparency.h"
#include "embedded/objects/object_access.h"

namespace cad {
namespace {

const Variable* detachedValue(const AcDbObject& object, Property property) {
  const DetachedValues* detached = ObjectAccess::detached(object);
  if (!detached) return nullptr;
  const auto found = detached->values.find(property);
  return found == detached->values.end() ? nullptr : &found->second;
}

template <class Value>
Value detachedOr(const AcDbObject& object, Property property, Value otherwise) {
  const Variable* value = detachedValue(object, property);
  return value && std::holds_alternative<Value>(*value) ? std::get<Value>(*value) : otherwise;
}

bool isAllowed(Property property, double value) {
  const PropertyInfo& info = propertyInfo(property);
  return std::isfinite(value) && value >= info.least && value <= info.most;
}

}  // namespace

double readReal(const AcDbObject& object, Property property) {
  const double otherwise = propertyInfo(property).defaultValue;
  if (const Drawing* drawing = ObjectAccess::drawing(object))
    return drawing->real(ObjectAccess::record(object), property).value_or(otherwise);
  return detachedOr(object, property, otherwise);
}

std::int64_t readInteger(const AcDbObject& object, Property property) {
  const auto otherwise = static_cast<std::int64_t>(propertyInfo(property).defaultValue);
  if (const Drawing* drawing = ObjectAccess::drawing(object))
    return drawing->integer(ObjectAccess::record(object), property).value_or(otherwise);
  return detachedOr(object, property, otherwise);
}

std::wstring readText(const AcDbObject& object, Property property) {
  if (const Drawing* drawing = ObjectAccess::drawing(object))
    return drawing->text(ObjectAccess::record(object), property).value_or(std::wstring());
  return detachedOr(object, property, std::wstring());
}

std::wstring readName(const AcDbObject& object, Property property) {
  const Drawing* drawing = ObjectAccess::drawing(object);
  if (!drawing) return detachedOr(object, property, std::wstring());
  const NameId name = drawing->name(ObjectAccess::record(object), property);
  return name == kNoName ? std::wstring() : drawing->names().text(name);
}

AcDbObjectId readId(const AcDbObject& object, Property property, Table table) {
  const DatabaseState* state = ObjectAccess::state(object);
  if (!state) return AcDbObjectId().setFromOldId(detachedOr(object, property, std::int64_t{0}));
  const NameId name = state->drawing.name(ObjectAccess::record(object), property);
  return name == kNoName ? AcDbObjectId() : state->id(state->drawing.find(table, name));
}

const ACHAR* readKeptText(const AcDbObject& object, Property property) {
  std::wstring& kept = ObjectAccess::buffer(object);
  kept = readText(object, property);
  return kept.c_str();
}

const ACHAR* readKeptName(const AcDbObject& object, Property property) {
  std::wstring& kept = ObjectAccess::buffer(object);
  kept = readName(object, property);
  return kept.c_str();
}

Acad::ErrorStatus checkWritable(const AcDbObject& object) {
  if (!ObjectAccess::state(object)) return Acad::eNotInDatabase;
  return object.isWriteEnabled() ? Acad::eOk : Acad::eNotOpenForWrite;
}

Acad::ErrorStatus refusal(const Drawing& drawing, RecordId record, Acad::ErrorStatus otherwise) {
  const bool isDamaged = drawing.facts().damage.hasWrongChecksum(drawing.handle(record).value_or(0));
  return isDamaged ? Acad::eFilerError : otherwise;
}

Acad::ErrorStatus outcome(const Drawing& drawing, RecordId record, Property property,
                          const base::Status& status) {
  if (status) return Acad::eOk;
  if (!drawing.canHold(record, property)) return Acad::eNotApplicable;
  return refusal(drawing, record, Acad::eInvalidInput);
}

Acad::ErrorStatus writeReal(AcDbObject& object, Property property, double value) {
  if (!isAllowed(property, value)) return Acad::eInvalidInput;
  if (object.isNewObject()) {
    ObjectAccess::detach(object).values[property] = value;
    return Acad::eOk;
  }
  const Acad::ErrorStatus status = checkWritable(object);
  if (status != Acad::eOk) return status;
  Drawing& drawing = *ObjectAccess::drawing(object);
  const RecordId record = ObjectAccess::record(object);
  return outcome(drawing, record, property, drawing.setReal(record, property, value));
}

Acad::ErrorStatus writeInteger(AcDbObject& object, Property property, std::int64_t value) {
  if (!isAllowed(property, static_cast<double>(value))) return Acad::eInvalidInput;
  if (object.isNewObject()) {
    ObjectAccess::detach(object).values[property] = value;
    return Acad::eOk;
  }
  const Acad::ErrorStatus status = checkWritable(object);
  if (status != Acad::eOk) return status;
  Drawing& drawing = *ObjectAccess::drawing(object);
  const RecordId record = ObjectAccess::record(object);
  return outcome(drawing, record, property, drawing.setInteger(record, property, value));
}

Acad::ErrorStatus writeText(AcDbObject& object, Property property, const ACHAR* value) {
  if (!value) return Acad::eInvalidInput;
  if (object.isNewObject()) {
    ObjectAccess::detach(object).values[property] = std::wstring(value);
    return Acad::eOk;
  }
  const Acad::ErrorStatus status = checkWritable(object);
  if (status != Acad::eOk) return status;
  Drawing& drawing = *ObjectAccess::drawing(object);
  const RecordId record = ObjectAccess::record(object);
  return outcome(drawing, record, property, drawing.setText(record, property, value));
}

Acad::ErrorStatus writeId(AcDbObject& object, Property property, Table table, AcDbObjectId value) {
  if (object.isNewObject()) {
    ObjectAccess::detach(object).values[property] = std::int64_t{value.asOldId()};
    return Acad::eOk;
  }
  Acad::ErrorStatus status = checkWritable(object);
  RecordId named = kNoRecord;
  if (status == Acad::eOk) status = checkedRecord(object, value, table, named);
  if (status != Acad::eOk) return status;
  Drawing& drawing = *ObjectAccess::drawing(object);
  const RecordId record = ObjectAccess::record(object);
  return outcome(drawing, record, property, drawing.setReference(record, property, named));
}

Acad::ErrorStatus checkedRecord(const AcDbObject& object, AcDbObjectId id, Table table, RecordId& record) {
  if (id.isNull()) return Acad::eNullObjectId;
  const DatabaseState* state = stateOf(id, record);
  if (!state) return Acad::eInvalidKey;
  if (state != ObjectAccess::state(object)) return Acad::eWrongDatabase;
  if (!state->isRecord(record)) return Acad::eWrongObjectType;
  const Record& stored = state->drawing.record(record);
  if (stored.table != table) return Acad::eWrongObjectType;
  return stored.erased() ? Acad::eWasErased : Acad::eOk;
}

ACHAR* newText(const std::wstring& text) {
  ACHAR* copy = nullptr;
  acutNewString(text.c_str(), copy);
  return copy;
}

std::int64_t storedTransparency(const AcCmTransparency& transparency) {
  if (transparency.isByBlock()) return kTransparencyByBlock;
  return transparency.isByAlpha() ? kTransparencyOwn | transparency.alpha() : 0;
}

AcCmTransparency transparencyFromStored(std::int64_t value) {
  if ((value & kTransparencyOwn) != 0) return AcCmTransparency(static_cast<Adesk::UInt8>(value & 0xFF));
  return AcCmTransparency((value & kTransparencyByBlock) != 0 ? AcCmTransparency::kByBlock
                                                              : AcCmTransparency::kByLayer);
}

}  // namespace cad
