#pragma once
// The entities that are drawn. Classes without functions of their own exist so that an object's kind can
// be asked; what an AcDbEntity can do holds for all of them.

#include "dbmain.h"

class AcDbText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbText)

  ACHAR* textString() const;             // the caller's, released with acutDelString
  const ACHAR* textStringConst() const;  // valid until the next such call on this object, or its close
  Acad::ErrorStatus textString(AcString& text) const;
  Acad::ErrorStatus setTextString(const ACHAR* text);

  double height() const;                       // drawing units
  Acad::ErrorStatus setHeight(double height);  // eInvalidInput unless above 0
  double rotation() const;                     // radians
  Acad::ErrorStatus setRotation(double radians);
  double widthFactor() const;
  Acad::ErrorStatus setWidthFactor(double factor);  // eInvalidInput unless above 0
  AcDbObjectId textStyle() const;  // null when the drawing does not have the style that the text names
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);  // eWrongObjectType, eWrongDatabase
};

class AcDbAttributeDefinition : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition)
  ACHAR* tag() const;
  const ACHAR* tagConst() const;
  Acad::ErrorStatus tag(AcString& tag) const;
};

class AcDbAttribute : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttribute)
  ACHAR* tag() const;
  const ACHAR* tagConst() const;
  Acad::ErrorStatus tag(AcString& tag) const;
};

class AcDbBlockReference : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockReference)
  AcDbObjectId blockTableRecord() const;  // null when the drawing does not define the block
};
class AcDbMInsertBlock : public AcDbBlockReference {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMInsertBlock)
};

class AcDbCurve : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbCurve)
};

#define ACDB_PLAIN_ENTITY(CLASS_NAME, PARENT) \
  class CLASS_NAME : public PARENT {          \
   public:                                    \
    ACRX_DECLARE_MEMBERS(CLASS_NAME)          \
  };
ACDB_PLAIN_ENTITY(AcDbArc, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbCircle, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbEllipse, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbLine, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbPolyline, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDb2dPolyline, AcDbCurve)  // every old-style polyline and mesh
ACDB_PLAIN_ENTITY(AcDbRay, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbSpline, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbXline, AcDbCurve)
ACDB_PLAIN_ENTITY(AcDbFace, AcDbEntity)
ACDB_PLAIN_ENTITY(AcDbPoint, AcDbEntity)
ACDB_PLAIN_ENTITY(AcDbSequenceEnd, AcDbEntity)
ACDB_PLAIN_ENTITY(AcDbSolid, AcDbEntity)
ACDB_PLAIN_ENTITY(AcDbTrace, AcDbEntity)
ACDB_PLAIN_ENTITY(AcDbVertex, AcDbEntity)
ACDB_PLAIN_ENTITY(AcDbViewport, AcDbEntity)
#undef ACDB_PLAIN_ENTITY
