#pragma once
// The inside of the classes that modules see, for the files of this folder.

#include <map>
#include <string>

#include "dbsymtb.h"
#include "embedded/drawing/drawing.h"
#include "embedded/objects/database_state.h"

namespace cad {

// What was set on an object that is in no database yet.
struct DetachedValues {
  std::wstring name;
  std::map<Property, Variable> values;
};

struct DatabaseAccess {
  static std::unique_ptr<AcDbDatabase> make(Drawing& drawing);
  static DatabaseState& state(const AcDbDatabase& database) { return *database.state_; }
};

struct ObjectAccess {
  static DatabaseState* state(const AcDbObject& object) { return object.state_; }
  static Drawing* drawing(const AcDbObject& object) {
    return object.state_ ? &object.state_->drawing : nullptr;
  }
  static RecordId record(const AcDbObject& object) { return object.record_; }
  static std::wstring& buffer(const AcDbObject& object) { return object.buffer_; }
  static const DetachedValues* detached(const AcDbObject& object) { return object.detached_.get(); }
  static DetachedValues& detach(AcDbObject& object);

  static AcDbObject* open(DatabaseState& state, RecordId number, bool writing);
  static Acad::ErrorStatus openAgain(AcDbObject& object, bool writing);
  static void adopt(AcDbObject& object, DatabaseState& state, RecordId number);  // a new record, for writing
  static void orphan(AcDbObject& object) { object.state_ = nullptr; }
  static void beginWriting(const AcDbObject& object);
  static void endWriting(const AcDbObject& object);
  static void release(AcDbObject& object);

  static void bind(AcDbSymbolTableIterator& iterator, AcDbObjectId table) {
    iterator.table_ = table;
    countIterator(table, 1);
  }
  // A table or a block that an iterator walks stays open until the iterator has been deleted.
  static void countIterator(AcDbObjectId walked, int change);
};

}  // namespace cad
