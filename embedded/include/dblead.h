#pragma once
// Leaders.

#include "dbents.h"
#include "dimvar.h"

class AcDbLeader : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLeader)

  AcDbObjectId dimensionStyle() const;  // null when the drawing does not have the style
  Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);

  ACDB_DECLARE_DIM_ROWS(ACDB_LEADER_DIM_VARIABLES)
};
