#pragma once
// Identifiers of database objects, and how an object is opened by one.

#include "acadstrc.h"
#include "adesk.h"

class AcDbDatabase;

// The handle that an object keeps in its file. 0: none.
class AcDbHandle {
 public:
  AcDbHandle() = default;
  explicit AcDbHandle(Adesk::UInt64 value) : value_(value) {}
  bool isNull() const { return value_ == 0; }
  Adesk::UInt32 low() const { return static_cast<Adesk::UInt32>(value_); }
  Adesk::UInt32 high() const { return static_cast<Adesk::UInt32>(value_ >> 32); }
  operator Adesk::UInt64() const { return value_; }  // NOLINT
  // Upper-case hexadecimal without leading zeros; false when the buffer is too short (17 always suffice).
  bool getIntoAsciiBuffer(ACHAR* buffer, unsigned bufferLength) const;

 private:
  Adesk::UInt64 value_ = 0;
};

// Names an object while its database is open; worthless afterwards. A null id names nothing.
class AcDbObjectId {
 public:
  constexpr AcDbObjectId() = default;
  static const AcDbObjectId kNull;

  bool isNull() const { return value_ == 0; }
  void setNull() { value_ = 0; }
  bool isValid() const;   // names a record of an open database, erased ones included
  bool isErased() const;  // false for an invalid id
  bool isResident() const { return isValid(); }
  AcDbDatabase* database() const;  // null for an invalid id
  AcDbDatabase* originalDatabase() const { return database(); }
  AcDbHandle handle() const;  // null when the file gave the object none

  Adesk::Int64 asOldId() const { return value_; }  // the number that entity names carry
  AcDbObjectId& setFromOldId(Adesk::Int64 value) {
    value_ = value;
    return *this;
  }
  bool operator==(const AcDbObjectId&) const = default;
  bool operator<(const AcDbObjectId& other) const { return value_ < other.value_; }
  bool operator>(const AcDbObjectId& other) const { return other < *this; }
  bool operator<=(const AcDbObjectId& other) const { return !(other < *this); }
  bool operator>=(const AcDbObjectId& other) const { return !(*this < other); }

 private:
  // Bits 32..47: the database's number from 1; bits 0..31: the object's number from 1.
  Adesk::Int64 value_ = 0;
};
inline constexpr AcDbObjectId AcDbObjectId::kNull{};

namespace AcDb {

enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

enum Visibility { kVisible = 0, kInvisible = 1 };

// Hundredths of a millimetre; these steps are the only ones there are.
enum LineWeight {
  kLnWtByLwDefault = -3,
  kLnWtByBlock = -2,
  kLnWtByLayer = -1,
  kLnWt000 = 0,
  kLnWt005 = 5,
  kLnWt009 = 9,
  kLnWt013 = 13,
  kLnWt015 = 15,
  kLnWt018 = 18,
  kLnWt020 = 20,
  kLnWt025 = 25,
  kLnWt030 = 30,
  kLnWt035 = 35,
  kLnWt040 = 40,
  kLnWt050 = 50,
  kLnWt053 = 53,
  kLnWt060 = 60,
  kLnWt070 = 70,
  kLnWt080 = 80,
  kLnWt090 = 90,
  kLnWt100 = 100,
  kLnWt106 = 106,
  kLnWt120 = 120,
  kLnWt140 = 140,
  kLnWt158 = 158,
  kLnWt200 = 200,
  kLnWt211 = 211
};

}  // namespace AcDb
