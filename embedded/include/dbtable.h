#pragma once
// Tables.

#include "dbents.h"

// A reference to the block that the table is drawn by. The host makes that block, and makes it anew when the
// table changes. Its dxfName is "ACAD_TABLE": a selection of INSERT does not find it.
class AcDbTable : public AcDbBlockReference {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTable)
};
