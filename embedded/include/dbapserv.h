#pragma once
// What the host application offers to database code.

#include "AdAChar.h"
#include "rxobject.h"

class AcDbDatabase;

class AcDbHostApplicationServices : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)
  AcDbDatabase* workingDatabase() const {
    return working_;
  }  // the current document's; null when none is open
  void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }
  // A value of the host's environment: "ACAD" is the support path, folders separated by ";", and
  // "TempDirectory" the folder for temporary files. Others are those of the process. The name heeds case.
  // Null when there is none; valid until the next call.
  virtual const ACHAR* getEnv(const ACHAR* name);

 private:
  AcDbDatabase* working_ = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();  // never null
