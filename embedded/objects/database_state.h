#pragma once
// What a database keeps beside its drawing: which objects are open, and which class each type opens as.

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dbmain.h"
#include "embedded/drawing/drawing.h"
#include "embedded/objects/followers.h"

namespace cad {

struct ObjectPool;

struct DatabaseState {
  DatabaseState(Drawing& source, AcDbDatabase& owner);
  ~DatabaseState();
  DatabaseState(const DatabaseState&) = delete;
  DatabaseState& operator=(const DatabaseState&) = delete;

  // Symbol tables have no record of their own; these numbers stand for them.
  static constexpr RecordId kFirstTable = 0xFFFFFF00;
  static constexpr std::size_t kTables = static_cast<std::size_t>(Table::kBlockRecord) + 1;
  static RecordId tableNumber(Table table) { return kFirstTable + static_cast<RecordId>(table); }
  static bool isTable(RecordId number) { return number >= kFirstTable && number < kFirstTable + kTables; }

  bool needsLock() const { return isUnlocked && isUnlocked(); }  // it is not to be written now
  bool isRecord(RecordId number) const { return number < drawing.recordCount(); }
  AcDbObjectId id(RecordId number) const;
  // The open object of this number, null while it is closed.
  AcDbObject*& slot(RecordId number);

  struct Named {
    RecordId record = kNoRecord;
    NameId spelling = kNoName;  // as the record has it
  };
  // As Drawing::find; a run of equal names costs one comparison each.
  Named find(Table table, std::wstring_view name);

  Drawing& drawing;
  AcDbDatabase& database;
  std::int64_t serial = 0;
  std::wstring pathText;  // behind getFilename()
  std::vector<AcDbObject*> openRecords;
  std::array<AcDbObject*, kTables> openTables{};
  std::size_t openCount = 0;
  DimStyles dimStyles;
  Followers followers;
  std::function<bool()> isUnlocked;      // of a drawing in a document: nothing there holds it for writing
  std::vector<ObjectPool*> poolsByType;  // by NameId of the entity type
  struct FoundName {
    std::wstring name;
    NameId spelling = kNoName;
  };
  std::array<FoundName, kTables> newestNames;  // found by find(), by table
};

// Null for an id whose database is not open. `number` is the record's or table's.
DatabaseState* stateOf(AcDbObjectId id, RecordId& number);

}  // namespace cad
