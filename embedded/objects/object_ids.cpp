// Object ids and handles.

#include <cwchar>

#include "dbid.h"
#include "embedded/objects/database_access.h"
#include "embedded/objects/database_state.h"

using cad::DatabaseState;
using cad::RecordId;

bool AcDbObjectId::isValid() const {
  RecordId number = cad::kNoRecord;
  const DatabaseState* state = cad::stateOf(*this, number);
  return !isNull() && state && (state->isRecord(number) || DatabaseState::isTable(number));
}

bool AcDbObjectId::isErased() const {
  RecordId number = cad::kNoRecord;
  const DatabaseState* state = cad::stateOf(*this, number);
  return state && state->isRecord(number) && state->drawing.record(number).erased();
}

AcDbDatabase* AcDbObjectId::database() const {
  RecordId number = cad::kNoRecord;
  const DatabaseState* state = cad::stateOf(*this, number);
  return isValid() ? &state->database : nullptr;
}

AcDbHandle AcDbObjectId::handle() const {
  RecordId number = cad::kNoRecord;
  const DatabaseState* state = cad::stateOf(*this, number);
  if (!state || !state->isRecord(number)) return AcDbHandle();
  return AcDbHandle(state->drawing.handle(number).value_or(0));
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, unsigned bufferLength) const {
  return buffer && std::swprintf(buffer, bufferLength, L"%llX", static_cast<unsigned long long>(value_)) > 0;
}
