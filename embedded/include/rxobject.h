#pragma once
// Run-time class information: every object of the host knows its class, and a pointer is narrowed with
// the target class's cast().

#include "acadstrc.h"
#include "adesk.h"

class AcRxClass;

class AcRxObject {
 public:
  virtual ~AcRxObject() = default;
  AcRxObject(const AcRxObject&) = delete;
  AcRxObject& operator=(const AcRxObject&) = delete;

  static AcRxClass* desc();        // the class's own descriptor, alive for the whole process
  virtual AcRxClass* isA() const;  // the descriptor of the object's most derived class
  static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
  bool isKindOf(const AcRxClass* type) const;  // the object's class is `type` or derived from it

 protected:
  AcRxObject() = default;
};

// In a class derived from AcRxObject: its descriptor, isA() and cast(). cast() gives null for null and
// for an object of another class.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                   \
  static AcRxClass* desc();                                                \
  AcRxClass* isA() const override;                                         \
  static CLASS_NAME* cast(const AcRxObject* object) {                      \
    return object && object->isKindOf(CLASS_NAME::desc())                  \
               ? static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(object)) \
               : nullptr;                                                  \
  }

// Beside the implementation: the descriptor, with the name that the class has in DXF files (or null).
#define ACRX_DEFINE_MEMBERS(CLASS_NAME, PARENT, DXF_NAME)                   \
  AcRxClass* CLASS_NAME::desc() {                                           \
    static AcRxClass descriptor(L## #CLASS_NAME, DXF_NAME, PARENT::desc()); \
    return &descriptor;                                                     \
  }                                                                         \
  AcRxClass* CLASS_NAME::isA() const { return CLASS_NAME::desc(); }

// For a class that DXF files do not name.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT) ACRX_DEFINE_MEMBERS(CLASS_NAME, PARENT, nullptr)
