#pragma once
// Symbol tables: layers, linetypes, text styles, dimension styles, blocks, application names.
//
// Names are compared without regard to case. getAt() and getIdAt() return eKeyNotFound for a name that the
// table does not have. An iterator is the caller's to delete, before the table or block that made it is
// closed; records added meanwhile come at its end.
// Some records are implied: a layer that an entity names, the layer "0", the linetypes ByLayer, ByBlock
// and Continuous, the style Standard. They are records like others, and enter the file when changed.

#include <cstddef>

#include "dbmain.h"
#include "dimvar.h"

class AcDbBlockTableRecordIterator;
class AcDbSymbolTableIterator;
class AcDbSymbolTableRecord;

class AcDbSymbolTable : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTable)

  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
  Acad::ErrorStatus getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                          bool openErased = false) const;
  bool has(const ACHAR* name) const;
  bool has(AcDbObjectId id) const;
  Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;

  // Puts a new, named record of this table's kind into the drawing; it stays open for writing until it is
  // closed. eNotOpenForWrite, eWrongObjectType, eInvalidInput (no name), eDuplicateRecordName, eAlreadyInDb.
  // Where it is refused the record stays the caller's.
  Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
  Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);

 protected:
  AcDbSymbolTable() = default;
  void bind(AcDbSymbolTableIterator& iterator, bool atBeginning, bool skipDeleted) const;
};

class AcDbSymbolTableIterator {
 public:
  virtual ~AcDbSymbolTableIterator();
  AcDbSymbolTableIterator(const AcDbSymbolTableIterator&) = delete;
  AcDbSymbolTableIterator& operator=(const AcDbSymbolTableIterator&) = delete;
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;  // eInvalidIndex when done
  Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                              bool openErased = false) const;

 protected:
  AcDbSymbolTableIterator() = default;

 private:
  friend class AcDbSymbolTable;
  friend struct cad::ObjectAccess;
  AcDbObjectId table_;
  Adesk::IntPtr position_ = 0;
};

class AcDbSymbolTableRecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord)

  ACHAR* getName() const;  // the caller's, released with acutDelString
  Acad::ErrorStatus getName(AcString& name) const;
  Acad::ErrorStatus getName(const ACHAR*& name) const;  // valid until the record is renamed
  // Renames; of a layer, every reference to it follows. eInvalidInput: a text that may not name a record;
  // eDuplicateRecordName; eNotApplicable: layer "0", and records other than layers that are in a drawing.
  Acad::ErrorStatus setName(const ACHAR* name);
  bool isDependent() const;  // comes from another drawing ("drawing|name")

 protected:
  AcDbSymbolTableRecord() = default;
};

class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbTextStyleTable;
class AcDbDimStyleTable;
class AcDbBlockTable;
class AcDbRegAppTable;

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord)
  using TableClass = AcDbLayerTable;
  AcDbLayerTableRecord() = default;

  bool isOff() const;
  void setIsOff(bool off);
  bool isFrozen() const;
  Acad::ErrorStatus setIsFrozen(bool frozen);  // eInvalidLayer: the current layer cannot be frozen
  bool isLocked() const;
  void setIsLocked(bool locked);
  bool isPlottable() const;
  Acad::ErrorStatus setIsPlottable(bool plottable);  // eNotApplicable in drawings older than AC1015

  AcCmColor color() const;
  void setColor(const AcCmColor& color);  // an index 1..255; others change nothing
  AcDbObjectId linetypeObjectId() const;
  // eWrongObjectType; eInvalidInput for ByLayer and ByBlock.
  Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId linetype);
  AcDb::LineWeight lineWeight() const;  // the default (-3) unless set
  // eInvalidInput for ByLayer, ByBlock and steps that do not exist; eNotApplicable before AC1015.
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
  AcCmTransparency transparency() const;
  // Solid when by layer. eNotApplicable in drawings older than AC1024.
  Acad::ErrorStatus setTransparency(const AcCmTransparency& transparency);
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord)
  using TableClass = AcDbLinetypeTable;
  ACHAR* comments() const;  // the description; the caller's, released with acutDelString
  Acad::ErrorStatus comments(AcString& text) const;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord)
  using TableClass = AcDbTextStyleTable;
  AcDbTextStyleTableRecord() = default;

  // The file of the font (a compiled shape file, or the TrueType font's). Setting it drops the typeface.
  Acad::ErrorStatus fileName(AcString& name) const;
  Acad::ErrorStatus fileName(const ACHAR*& name) const;  // valid until the next such call or the close
  Acad::ErrorStatus setFileName(const ACHAR* name);
  // The file searched first for each character of an Asian script; empty: none.
  Acad::ErrorStatus bigFontFileName(AcString& name) const;
  Acad::ErrorStatus bigFontFileName(const ACHAR*& name) const;
  Acad::ErrorStatus setBigFontFileName(const ACHAR* name);

  // A TrueType typeface by name; empty: the font file counts again. The font file becomes the typeface's (its
  // name where no file is known); the big font stays. Drawings older than AC1015 keep the file alone.
  // charset and pitchAndFamily as of Windows fonts, 0..255; eInvalidInput.
  Acad::ErrorStatus font(AcString& typeface, bool& bold, bool& italic, int& charset,
                         int& pitchAndFamily) const;
  Acad::ErrorStatus setFont(const ACHAR* typeface, bool bold, bool italic, int charset, int pitchAndFamily);

  double textSize() const;  // drawing units; 0: not fixed
  Acad::ErrorStatus setTextSize(double size);
  double xScale() const;
  Acad::ErrorStatus setXScale(double scale);
  double obliquingAngle() const;  // radians
  Acad::ErrorStatus setObliquingAngle(double radians);
};

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord)
  using TableClass = AcDbDimStyleTable;
  ACDB_DECLARE_DIM_ROWS(ACDB_LEADER_DIM_VARIABLES)
  ACDB_DECLARE_DIM_ROWS(ACDB_OTHER_DIM_VARIABLES)
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord)
  using TableClass = AcDbRegAppTable;
  AcDbRegAppTableRecord() = default;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)
  using TableClass = AcDbBlockTable;
  bool isLayout() const;     // model space or a paper space
  bool isAnonymous() const;  // a name made by the host ("*D12"), spaces left out
  // Walks the main entities in drawing order. The caller deletes the iterator.
  Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;
};

class AcDbBlockTableRecordIterator {
 public:
  ~AcDbBlockTableRecordIterator();
  AcDbBlockTableRecordIterator(const AcDbBlockTableRecordIterator&) = delete;
  AcDbBlockTableRecordIterator& operator=(const AcDbBlockTableRecordIterator&) = delete;
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;  // eInvalidIndex when done
  Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode, bool openErased = false) const;

 private:
  friend class AcDbBlockTableRecord;
  AcDbBlockTableRecordIterator() = default;
  AcDbObjectId block_;
  Adesk::IntPtr position_ = 0;
};

// A table's class and its iterator, whose records come as the table's own record class.
#define ACDB_SYMBOL_TABLE(KIND)                                                                       \
  class AcDb##KIND##TableIterator : public AcDbSymbolTableIterator {                                  \
   public:                                                                                            \
    using AcDbSymbolTableIterator::getRecord;                                                         \
    Acad::ErrorStatus getRecord(AcDb##KIND##TableRecord*& record, AcDb::OpenMode mode,                \
                                bool openErased = false) const {                                      \
      AcDbObjectId id;                                                                                \
      record = nullptr;                                                                               \
      const Acad::ErrorStatus status = getRecordId(id);                                               \
      return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;             \
    }                                                                                                 \
  };                                                                                                  \
  class AcDb##KIND##Table : public AcDbSymbolTable {                                                  \
   public:                                                                                            \
    ACRX_DECLARE_MEMBERS(AcDb##KIND##Table)                                                           \
    using AcDbSymbolTable::getAt;                                                                     \
    using AcDbSymbolTable::newIterator;                                                               \
    Acad::ErrorStatus getAt(const ACHAR* name, AcDb##KIND##TableRecord*& record, AcDb::OpenMode mode, \
                            bool openErased = false) const {                                          \
      AcDbObjectId id;                                                                                \
      record = nullptr;                                                                               \
      const Acad::ErrorStatus status = getIdAt(name, id, openErased);                                 \
      return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;             \
    }                                                                                                 \
    Acad::ErrorStatus newIterator(AcDb##KIND##TableIterator*& iterator, bool atBeginning = true,      \
                                  bool skipDeleted = true) const {                                    \
      iterator = new AcDb##KIND##TableIterator;                                                       \
      bind(*iterator, atBeginning, skipDeleted);                                                      \
      return Acad::eOk;                                                                               \
    }                                                                                                 \
  };
ACDB_SYMBOL_TABLE(Block)
ACDB_SYMBOL_TABLE(DimStyle)
ACDB_SYMBOL_TABLE(Layer)
ACDB_SYMBOL_TABLE(Linetype)
ACDB_SYMBOL_TABLE(RegApp)
ACDB_SYMBOL_TABLE(TextStyle)
#undef ACDB_SYMBOL_TABLE

// Names of the two spaces that every drawing has.
#define ACDB_MODEL_SPACE L"*Model_Space"
#define ACDB_PAPER_SPACE L"*Paper_Space"
