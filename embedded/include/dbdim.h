#pragma once
// Dimensions of every kind.

#include "dbmain.h"
#include "dimvar.h"

class AcDbDimension : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimension)

  // The text that stands in place of the measured value; empty: the measured value is shown.
  ACHAR* dimensionText() const;  // the caller's, released with acutDelString
  Acad::ErrorStatus dimensionText(AcString& text) const;
  Acad::ErrorStatus setDimensionText(const ACHAR* text);
  double textRotation() const;  // radians
  Acad::ErrorStatus setTextRotation(double radians);

  AcDbObjectId dimensionStyle() const;  // null when the drawing does not have the style
  Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
  AcDbObjectId dimBlockId() const;  // the anonymous block that holds the drawn geometry; may be null

  // Draws the dimension's geometry block anew, once for all changes: when the dimension is closed, or when
  // dimBlockId() is asked before. The block's name stays, unless others show it too: then the dimension gets
  // one of its own. A dimension that cannot be drawn (arc lengths, jogged radii) keeps its block, which is
  // told on the command line once. close() draws after other changes of the dimension, too. `forceUpdate` is
  // not needed here. eNotOpenForWrite; eWrongDatabase: not the current drawing.
  Acad::ErrorStatus recomputeDimBlock(bool forceUpdate = true);

  ACDB_DECLARE_DIM_ROWS(ACDB_LEADER_DIM_VARIABLES)
  ACDB_DECLARE_DIM_ROWS(ACDB_OTHER_DIM_VARIABLES)
};

namespace AcDmUtil {

// The block of a built-in arrow, defined first when the drawing does not have it. The name is the one that is
// the same in every language, without the underscore that the name of its block begins with ("Dot" for the
// block "_Dot"), in any case; "" and "." are the closed filled arrow, whose id is null. Without a drawing:
// the working database. eInvalidInput: no name; eInvalidKey: not an arrow; eNoDatabase: no drawing.
Acad::ErrorStatus getArrowId(const ACHAR* name, AcDbObjectId& blockId, AcDbDatabase* database = nullptr);

}  // namespace AcDmUtil
