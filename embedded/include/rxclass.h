#pragma once
// The descriptor of a class.

#include <string>

#include "rxobject.h"

class AcRxClass : public AcRxObject {
 public:
  // `dxfName` may be null; the texts are copied. `parent` is null for the root only.
  AcRxClass(const ACHAR* name, const ACHAR* dxfName, const AcRxClass* parent);

  ACRX_DECLARE_MEMBERS(AcRxClass)

  const ACHAR* name() const { return name_.c_str(); }                                     // "AcDbText"
  const ACHAR* dxfName() const { return dxfName_.empty() ? nullptr : dxfName_.c_str(); }  // "TEXT"
  AcRxClass* myParent() const { return const_cast<AcRxClass*>(parent_); }
  bool isDerivedFrom(const AcRxClass* other) const {  // true for the class itself
    for (const AcRxClass* c = this; c; c = c->parent_) {
      if (c == other) return true;
    }
    return false;
  }

 private:
  std::wstring name_, dxfName_;
  const AcRxClass* parent_;
};

inline bool AcRxObject::isKindOf(const AcRxClass* type) const { return isA()->isDerivedFrom(type); }
