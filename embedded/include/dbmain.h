#pragma once
// Databases, the objects in them, and the entity, the base of everything that is drawn.
//
// An object is opened by its id, used, and closed with close(); it belongs to its database and is never
// deleted by the caller. It may be open for reading up to 256 times at once (each open gives the same
// object and needs its own close()), for writing once. A change takes effect at once, not at close().
// A function that writes returns eNotOpenForWrite when the object is open for reading only.

#include <memory>
#include <string>

#include "AcString.h"
#include "acadstrc.h"
#include "adesk.h"
#include "dbcolor.h"
#include "dbid.h"
#include "rxclass.h"
#include "rxobject.h"

namespace cad {
struct DatabaseState;
struct DatabaseAccess;
struct DetachedValues;
struct ObjectAccess;
struct ObjectPool;
}  // namespace cad

class AcDbBlockTable;
class AcDbDimStyleTable;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbSymbolTable;
class AcDbTextStyleTable;

// A drawing, as modules see it. Documents own their databases.
class AcDbDatabase : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDatabase)
  ~AcDbDatabase() override;

  // The full path; empty when the drawing was never saved. Valid until the drawing is saved or closed.
  Acad::ErrorStatus getFilename(const ACHAR*& path) const;

  AcDbObjectId blockTableId() const;
  AcDbObjectId dimStyleTableId() const;
  AcDbObjectId layerTableId() const;
  AcDbObjectId linetypeTableId() const;
  AcDbObjectId regAppTableId() const;
  AcDbObjectId textStyleTableId() const;

  Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);
  template <class TableClass>
  Acad::ErrorStatus getBlockTable(TableClass*& table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  template <class TableClass>
  Acad::ErrorStatus getDimStyleTable(TableClass*& table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  template <class TableClass>
  Acad::ErrorStatus getLayerTable(TableClass*& table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  template <class TableClass>
  Acad::ErrorStatus getLinetypeTable(TableClass*& table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  template <class TableClass>
  Acad::ErrorStatus getRegAppTable(TableClass*& table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  template <class TableClass>
  Acad::ErrorStatus getTextStyleTable(TableClass*& table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }

  // The current layer, text style and dimension style; null when the drawing names one it does not have.
  AcDbObjectId clayer() const;
  Acad::ErrorStatus setClayer(AcDbObjectId layer);  // eInvalidLayer for a frozen one
  AcDbObjectId textstyle() const;
  AcDbObjectId dimstyle() const;
  bool tilemode() const;  // true: model space is current
  AcDbObjectId currentSpaceId() const;

  // The object that has this handle in the file; eUnknownHandle when there is none.
  Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle) const;

  // As acdbLoadLineTypeFile.
  Acad::ErrorStatus loadLineTypeFile(const ACHAR* linetype, const ACHAR* file);

 private:
  friend struct cad::DatabaseAccess;
  AcDbDatabase();
  std::unique_ptr<cad::DatabaseState> state_;
};

class AcDbObject : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject)
  ~AcDbObject() override;

  AcDbObjectId objectId() const;  // null while the object is in no database
  AcDbObjectId id() const { return objectId(); }
  AcDbDatabase* database() const;
  void getAcDbHandle(AcDbHandle& handle) const;
  AcDbObjectId ownerId() const;  // entity: its block; attribute or vertex: its main entity

  // The pointer is dead afterwards. eInvalidOpenState, and the object stays open: iterators that it made have
  // not been deleted.
  Acad::ErrorStatus close();
  // eHadMultipleReaders, and everything that opening for write may refuse.
  Acad::ErrorStatus upgradeOpen();
  Acad::ErrorStatus downgradeOpen();
  // Erases an entity, or brings it back; its attributes or vertices go with it. eCannotBeErasedByCaller
  // for other objects, attributes and vertices included.
  Acad::ErrorStatus erase(bool erasing = true);

  bool isErased() const;
  bool isReadEnabled() const;
  bool isWriteEnabled() const;
  bool isNewObject() const { return !state_; }  // made by the caller, in no database yet

 protected:
  AcDbObject();

 private:
  friend struct cad::ObjectAccess;
  cad::DatabaseState* state_ = nullptr;
  cad::ObjectPool* pool_ = nullptr;  // where the object goes when closed
  Adesk::UInt32 record_ = 0;
  Adesk::UInt16 readers_ = 0;
  int iterators_ = 0;  // that walk it
  bool writing_ = false;
  std::unique_ptr<cad::DetachedValues> detached_;
  mutable std::wstring buffer_;  // behind functions that return const ACHAR*
};

// Setters with doSubents also write the vertices and the sequence end of old-style polylines and meshes,
// and of a block reference with attributes its sequence end (never the attributes).
class AcDbEntity : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntity)

  AcDbObjectId blockId() const { return ownerId(); }

  // Texts returned as ACHAR* are the caller's, released with acutDelString.
  ACHAR* layer() const;
  Acad::ErrorStatus layer(AcString& name) const;
  AcDbObjectId layerId() const;
  // eKeyNotFound: no such layer. `allowHiddenLayer` changes nothing, there being no hidden layers.
  Acad::ErrorStatus setLayer(const ACHAR* name, Adesk::Boolean doSubents = true,
                             bool allowHiddenLayer = false);
  Acad::ErrorStatus setLayer(AcDbObjectId layer, Adesk::Boolean doSubents = true,
                             bool allowHiddenLayer = false);  // eWrongObjectType

  ACHAR* linetype() const;
  Acad::ErrorStatus linetype(AcString& name) const;
  AcDbObjectId linetypeId() const;
  // eKeyNotFound: the drawing has not loaded it. "ByLayer" and "ByBlock" always exist.
  Acad::ErrorStatus setLinetype(const ACHAR* name, Adesk::Boolean doSubents = true);
  Acad::ErrorStatus setLinetype(AcDbObjectId linetype, Adesk::Boolean doSubents = true);

  AcCmColor color() const;  // by index; a true colour shows as its nearest index in the file
  Adesk::UInt16 colorIndex() const;
  // 0 by block, 1..255, 256 by layer; eInvalidInput for others. Drops a true colour.
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents = true);
  // eNotApplicable for a colour given by red, green and blue.
  Acad::ErrorStatus setColor(const AcCmColor& color, Adesk::Boolean doSubents = true);

  AcDb::LineWeight lineWeight() const;
  // eInvalidInput for a step that does not exist; eNotApplicable in drawings older than AC1015.
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, Adesk::Boolean doSubents = true);

  double linetypeScale() const;  // a factor, 1.0 unless set
  // eInvalidInput unless above 0; eNotApplicable in drawings older than AC1012.
  Acad::ErrorStatus setLinetypeScale(double scale, Adesk::Boolean doSubents = true);

  AcCmTransparency transparency() const;
  // eInvalidInput for an invalid one; eNotApplicable in drawings older than AC1024.
  Acad::ErrorStatus setTransparency(const AcCmTransparency& transparency, Adesk::Boolean doSubents = true);

  AcDb::Visibility visibility() const;
  Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, Adesk::Boolean doSubents = true);

 protected:
  AcDbEntity() = default;
};

// eNullObjectId, eInvalidKey (no such object), eWasErased, eWasOpenForRead, eWasOpenForWrite, eAtMaxReaders
// (256 of them), eLockViolation (for write, in a document that neither a command nor lockDocument() holds),
// eOnLockedLayer (an entity, for write), eNotThatKindOfClass. `object` is null unless eOk.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

template <class ObjectClass>
Acad::ErrorStatus acdbOpenObject(ObjectClass*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
  AcDbObject* opened = nullptr;
  const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, openErased);
  object = ObjectClass::cast(opened);
  if (!opened || object) return status;
  opened->close();
  return Acad::eNotThatKindOfClass;
}
