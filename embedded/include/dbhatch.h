#pragma once
// Hatches.

#include "dbmain.h"

class AcDbHatch : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHatch)
};
