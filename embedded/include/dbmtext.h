#pragma once
// Multiline text.

#include "dbmain.h"

class AcDbMText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMText)

  ACHAR* contents() const;  // with formatting codes; the caller's, released with acutDelString
  Acad::ErrorStatus contents(AcString& text) const;
  Acad::ErrorStatus setContents(const ACHAR* text);
  // What is read on the drawing: formatting codes removed, paragraphs as line feeds, a stack as its
  // two parts with a slash, \U+XXXX and %% codes as their characters.
  ACHAR* text() const;
  Acad::ErrorStatus text(AcString& text) const;

  double textHeight() const;  // drawing units; codes in the contents may change it further on
  Acad::ErrorStatus setTextHeight(double height);  // eInvalidInput unless above 0
  double rotation() const;                         // radians, from the direction when the object has one
  Acad::ErrorStatus setRotation(double radians);
  AcDbObjectId textStyle() const;
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);  // eWrongObjectType, eWrongDatabase
};
