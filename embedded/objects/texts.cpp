// Texts, attribute definitions, attributes and multiline texts.

#include "dbents.h"
#include "dbmtext.h"
#include "embedded/drawing/angles.h"
#include "embedded/drawing/plain_text.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/values.h"

using cad::Property;
using cad::Table;

namespace {

Acad::ErrorStatus give(AcString& to, const AcDbObject& object, Property property) {
  to = cad::readText(object, property).c_str();
  return object.isNewObject() ? Acad::eNotInDatabase : Acad::eOk;
}

// The tag is the attribute's name.
Acad::ErrorStatus giveName(AcString& to, const AcDbObject& object) {
  to = cad::readName(object, Property::kName).c_str();
  return object.isNewObject() ? Acad::eNotInDatabase : Acad::eOk;
}

double radians(const AcDbObject& object) {
  return cad::readReal(object, Property::kRotation) * cad::kRadiansPerDegree;
}

Acad::ErrorStatus setRadians(AcDbObject& object, double value) {
  return cad::writeReal(object, Property::kRotation, cad::degreesFromRadians(value));
}

}  // namespace

ACHAR* AcDbText::textString() const { return cad::newText(cad::readText(*this, Property::kTextString)); }
const ACHAR* AcDbText::textStringConst() const { return cad::readKeptText(*this, Property::kTextString); }
Acad::ErrorStatus AcDbText::textString(AcString& text) const {
  return give(text, *this, Property::kTextString);
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
  return cad::writeText(*this, Property::kTextString, text);
}

double AcDbText::height() const { return cad::readReal(*this, Property::kTextHeight); }
Acad::ErrorStatus AcDbText::setHeight(double height) {
  return cad::writeReal(*this, Property::kTextHeight, height);
}
double AcDbText::rotation() const { return radians(*this); }
Acad::ErrorStatus AcDbText::setRotation(double value) { return setRadians(*this, value); }
double AcDbText::widthFactor() const { return cad::readReal(*this, Property::kWidthFactor); }
Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
  return cad::writeReal(*this, Property::kWidthFactor, factor);
}
AcDbObjectId AcDbText::textStyle() const {
  return cad::readId(*this, Property::kTextStyle, Table::kTextStyle);
}
Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
  return cad::writeId(*this, Property::kTextStyle, Table::kTextStyle, style);
}

ACHAR* AcDbAttributeDefinition::tag() const { return cad::newText(cad::readName(*this, Property::kName)); }
const ACHAR* AcDbAttributeDefinition::tagConst() const { return cad::readKeptName(*this, Property::kName); }
Acad::ErrorStatus AcDbAttributeDefinition::tag(AcString& tag) const { return giveName(tag, *this); }

ACHAR* AcDbAttribute::tag() const { return cad::newText(cad::readName(*this, Property::kName)); }
const ACHAR* AcDbAttribute::tagConst() const { return cad::readKeptName(*this, Property::kName); }
Acad::ErrorStatus AcDbAttribute::tag(AcString& tag) const { return giveName(tag, *this); }

ACHAR* AcDbMText::contents() const { return cad::newText(cad::readText(*this, Property::kTextString)); }
Acad::ErrorStatus AcDbMText::contents(AcString& text) const {
  return give(text, *this, Property::kTextString);
}
Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text) {
  return cad::writeText(*this, Property::kTextString, text);
}
ACHAR* AcDbMText::text() const {
  return cad::newText(cad::plainText(cad::readText(*this, Property::kTextString)));
}
Acad::ErrorStatus AcDbMText::text(AcString& text) const {
  text = cad::plainText(cad::readText(*this, Property::kTextString)).c_str();
  return isNewObject() ? Acad::eNotInDatabase : Acad::eOk;
}

double AcDbMText::textHeight() const { return cad::readReal(*this, Property::kTextHeight); }
Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
  return cad::writeReal(*this, Property::kTextHeight, height);
}
double AcDbMText::rotation() const { return radians(*this); }
Acad::ErrorStatus AcDbMText::setRotation(double value) { return setRadians(*this, value); }
AcDbObjectId AcDbMText::textStyle() const {
  return cad::readId(*this, Property::kTextStyle, Table::kTextStyle);
}
Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style) {
  return cad::writeId(*this, Property::kTextStyle, Table::kTextStyle, style);
}
