#include "embedded/objects/database_state.h"

#include <algorithm>
#include <cwchar>

#include "dbid.h"
#include "embedded/objects/database_access.h"
#include "embedded/objects/object_access.h"

namespace cad {
namespace {

constexpr std::int64_t kMostSerials = 1 << 16;

// Databases by their number. Numbers are given out in a circle, so that an id of a closed drawing does
// not soon name an object of another one.
std::vector<DatabaseState*>& registry() {
  static std::vector<DatabaseState*> states(1, nullptr);
  return states;
}

std::int64_t takeSerial() {
  static std::int64_t last = 0;
  auto& states = registry();
  do {
    last = last + 1 < kMostSerials ? last + 1 : 1;
    if (last == static_cast<std::int64_t>(states.size())) states.push_back(nullptr);
  } while (states[static_cast<std::size_t>(last)]);
  return last;
}

}  // namespace

DatabaseState::DatabaseState(Drawing& source, AcDbDatabase& owner)
    : drawing(source), database(owner), serial(takeSerial()), followers(source, dimStyles) {
  registry()[static_cast<std::size_t>(serial)] = this;
}

DatabaseState::~DatabaseState() {
  registry()[static_cast<std::size_t>(serial)] = nullptr;
  const auto orphan = [](AcDbObject* object) {
    if (object) ObjectAccess::orphan(*object);
  };
  std::for_each(openRecords.begin(), openRecords.end(), orphan);
  std::for_each(openTables.begin(), openTables.end(), orphan);
}

AcDbObjectId DatabaseState::id(RecordId number) const {
  AcDbObjectId id;
  if (number != kNoRecord) id.setFromOldId(serial << 32 | (std::int64_t{number} + 1));
  return id;
}

AcDbObject*& DatabaseState::slot(RecordId number) {
  if (isTable(number)) return openTables[number - kFirstTable];
  if (number >= openRecords.size()) openRecords.resize(drawing.recordCount());
  return openRecords[number];
}

DatabaseState::Named DatabaseState::find(Table table, std::wstring_view name) {
  FoundName& newest = newestNames[static_cast<std::size_t>(table)];
  // Asked by its spelling the drawing answers from its own index, so a renamed record is not found here.
  if (newest.spelling != kNoName && newest.name == name)
    return {drawing.find(table, newest.spelling), newest.spelling};
  const RecordId found = drawing.find(table, name);
  if (found == kNoRecord) return {};
  newest = {std::wstring(name), drawing.name(found, Property::kName)};
  return {found, newest.spelling};
}

DatabaseState* stateOf(AcDbObjectId id, RecordId& number) {
  const std::int64_t value = id.asOldId();
  const auto serial = static_cast<std::uint64_t>(value) >> 32;
  auto& states = registry();
  number = static_cast<RecordId>(value) - 1;
  return serial < states.size() ? states[static_cast<std::size_t>(serial)] : nullptr;
}

std::unique_ptr<AcDbDatabase> DatabaseAccess::make(Drawing& drawing) {
  std::unique_ptr<AcDbDatabase> database(new AcDbDatabase);
  database->state_ = std::make_unique<DatabaseState>(drawing, *database);
  return database;
}

std::unique_ptr<AcDbDatabase> makeDatabase(Drawing& drawing) { return DatabaseAccess::make(drawing); }

void requireLock(AcDbDatabase& database, std::function<bool()> isUnlocked) {
  DatabaseAccess::state(database).isUnlocked = std::move(isUnlocked);
}

void tellRemarks(AcDbDatabase& database, std::function<void(const base::Failure&)> remark) {
  DatabaseAccess::state(database).followers.remark = std::move(remark);
}

void searchFonts(AcDbDatabase& database, std::function<std::filesystem::path(std::wstring_view file)> find) {
  DatabaseAccess::state(database).followers.findFont = std::move(find);
}

bool needsLock(const AcDbDatabase& database) { return DatabaseAccess::state(database).needsLock(); }

Drawing& drawingOf(const AcDbDatabase& database) { return DatabaseAccess::state(database).drawing; }

AcDbDatabase* databaseOf(const Drawing& drawing) {
  for (DatabaseState* state : registry())
    if (state && &state->drawing == &drawing) return &state->database;
  return nullptr;
}

AcDbObjectId idOf(const AcDbDatabase& database, RecordId record) {
  return DatabaseAccess::state(database).id(record);
}

RecordId recordOf(AcDbObjectId id) {
  RecordId number = kNoRecord;
  const DatabaseState* state = stateOf(id, number);
  return state && state->isRecord(number) ? number : kNoRecord;
}

std::size_t openObjectCount(const AcDbDatabase& database) {
  return DatabaseAccess::state(database).openCount;
}

}  // namespace cad

// --- Object ids and handles --------------------------------------------------------------------------------

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
