#pragma once
// What the host application offers to database code.

#include "rxobject.h"

class AcDbDatabase;

class AcDbHostApplicationServices : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)
  AcDbDatabase* workingDatabase() const {
    return working_;
  }  // the current document's; null when none is open
  void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

 private:
  AcDbDatabase* working_ = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();  // never null
