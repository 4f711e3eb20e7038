#pragma once
// Objects that are open as long as a variable lives.

#include "dbmain.h"
#include "dbsymtb.h"

// Opens on construction and closes on destruction. object() and -> are valid only while openStatus() is eOk.
template <class ObjectClass>
class AcDbObjectPointer {
 public:
  AcDbObjectPointer() = default;
  explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
    open(id, mode, openErased);
  }
  ~AcDbObjectPointer() { close(); }
  AcDbObjectPointer(const AcDbObjectPointer&) = delete;
  AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;

  // Closes what was open before.
  Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
    close();
    return status_ = acdbOpenObject(object_, id, mode, openErased);
  }
  // Takes over an object that the caller has opened.
  Acad::ErrorStatus acquire(ObjectClass*& opened) {
    close();
    object_ = opened;
    opened = nullptr;
    return status_ = object_ ? Acad::eOk : Acad::eNullObjectPointer;
  }
  // Hands the open object to the caller, who closes it.
  ObjectClass* release() {
    ObjectClass* object = object_;
    object_ = nullptr;
    status_ = Acad::eNullObjectPointer;
    return object;
  }
  Acad::ErrorStatus close() {
    if (!object_) return Acad::eNullObjectPointer;
    ObjectClass* object = release();
    if (!object->isNewObject()) return object->close();
    delete object;
    return Acad::eOk;
  }
  // A new object in no database; deleted on close unless it was added to one.
  Acad::ErrorStatus create() {
    close();
    object_ = new ObjectClass;
    return status_ = Acad::eOk;
  }

  Acad::ErrorStatus openStatus() const { return status_; }
  ObjectClass* object() { return object_; }
  ObjectClass* operator->() { return object_; }
  operator ObjectClass*() { return object_; }  // NOLINT
  // A constant pointer is one to read by.
  const ObjectClass* object() const { return object_; }
  const ObjectClass* operator->() const { return object_; }
  operator const ObjectClass*() const { return object_; }  // NOLINT

 protected:
  Acad::ErrorStatus fail(Acad::ErrorStatus status) { return status_ = status; }

 private:
  ObjectClass* object_ = nullptr;
  Acad::ErrorStatus status_ = Acad::eNullObjectPointer;
};

using AcDbEntityPointer = AcDbObjectPointer<AcDbEntity>;

template <class TableClass>
class AcDbSymbolTablePointer : public AcDbObjectPointer<TableClass> {
 public:
  AcDbSymbolTablePointer() = default;
  explicit AcDbSymbolTablePointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead)
      : AcDbObjectPointer<TableClass>(id, mode) {}
  explicit AcDbSymbolTablePointer(AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead) {
    open(database, mode);
  }
  using AcDbObjectPointer<TableClass>::open;
  Acad::ErrorStatus open(AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead) {
    TableClass* table = nullptr;
    const Acad::ErrorStatus status = database ? database->getSymbolTable(table, mode) : Acad::eNoDatabase;
    this->acquire(table);
    return status == Acad::eOk ? status : this->fail(status);
  }
};

template <class RecordClass>
class AcDbSymbolTableRecordPointer : public AcDbObjectPointer<RecordClass> {
 public:
  AcDbSymbolTableRecordPointer() = default;
  explicit AcDbSymbolTableRecordPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false)
      : AcDbObjectPointer<RecordClass>(id, mode, openErased) {}
  AcDbSymbolTableRecordPointer(const ACHAR* name, AcDbDatabase* database,
                               AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
    open(name, database, mode, openErased);
  }
  using AcDbObjectPointer<RecordClass>::open;
  // eKeyNotFound: no record of that name.
  Acad::ErrorStatus open(const ACHAR* name, AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead,
                         bool openErased = false) {
    AcDbObjectId id;
    AcDbSymbolTablePointer<typename RecordClass::TableClass> table(database);
    const Acad::ErrorStatus status = table.object() ? table->getAt(name, id) : table.openStatus();
    table.close();
    const Acad::ErrorStatus opened = AcDbObjectPointer<RecordClass>::open(id, mode, openErased);
    return status == Acad::eOk ? opened : this->fail(status);
  }
};

using AcDbLayerTablePointer = AcDbSymbolTablePointer<AcDbLayerTable>;
using AcDbLayerTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbLayerTableRecord>;
using AcDbBlockTablePointer = AcDbSymbolTablePointer<AcDbBlockTable>;
using AcDbBlockTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbBlockTableRecord>;
using AcDbTextStyleTablePointer = AcDbSymbolTablePointer<AcDbTextStyleTable>;
using AcDbTextStyleTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbTextStyleTableRecord>;
using AcDbLinetypeTablePointer = AcDbSymbolTablePointer<AcDbLinetypeTable>;
using AcDbLinetypeTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbLinetypeTableRecord>;
using AcDbDimStyleTablePointer = AcDbSymbolTablePointer<AcDbDimStyleTable>;
using AcDbDimStyleTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbDimStyleTableRecord>;
