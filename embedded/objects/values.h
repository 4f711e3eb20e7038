#pragma once
// Typed properties of an open object, or of one that is in no database yet, with the interface's statuses.

#include <string>

#include "dbmain.h"
#include "embedded/drawing/drawing.h"

namespace cad {

double readReal(const AcDbObject& object, Property property);  // the property's default when absent
std::int64_t readInteger(const AcDbObject& object, Property property);
std::wstring readText(const AcDbObject& object, Property property);
std::wstring readName(const AcDbObject& object, Property property);
AcDbObjectId readId(const AcDbObject& object, Property property, Table table);
// As readText, kept in the object until the next call.
const ACHAR* readKeptText(const AcDbObject& object, Property property);
const ACHAR* readKeptName(const AcDbObject& object, Property property);

Acad::ErrorStatus writeReal(AcDbObject& object, Property property, double value);
Acad::ErrorStatus writeInteger(AcDbObject& object, Property property, std::int64_t value);
Acad::ErrorStatus writeText(AcDbObject& object, Property property, const ACHAR* value);
Acad::ErrorStatus writeId(AcDbObject& object, Property property, Table table, AcDbObjectId value);

// eNotInDatabase, eNotOpenForWrite.
Acad::ErrorStatus checkWritable(const AcDbObject& object);
// Of a setter of the drawing that failed: eFilerError when the object is damaged, else `otherwise`.
Acad::ErrorStatus refusal(const Drawing& drawing, RecordId record, Acad::ErrorStatus otherwise);
// What a setter of the drawing came to: eNotApplicable when the record or the drawing's version cannot hold
// the property, else refusal() with eInvalidInput.
Acad::ErrorStatus outcome(const Drawing& drawing, RecordId record, Property property,
                          const base::Status& status);

// The record that an id names in the object's own drawing: eNullObjectId, eInvalidKey, eWrongDatabase,
// eWrongObjectType.
Acad::ErrorStatus checkedRecord(const AcDbObject& object, AcDbObjectId id, Table table, RecordId& record);

ACHAR* newText(const std::wstring& text);  // for acutDelString
std::int64_t storedTransparency(const AcCmTransparency& transparency);
AcCmTransparency transparencyFromStored(std::int64_t value);

}  // namespace cad
