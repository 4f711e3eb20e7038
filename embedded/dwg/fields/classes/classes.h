#pragma once
// The descriptions of the classes, by what they have in common.

#include <numbers>

#include "embedded/dwg/fields/field_visitor.h"

namespace cad::dwg {

using enum base::Version;

inline constexpr std::uint64_t kLeastHandle = 8;  // bits

// What every entity has behind its preview.
void describeEntity(FieldVisitor& v);
void describeTextLine(FieldVisitor& v);  // TEXT, ATTRIB, ATTDEF
void describeMtext(FieldVisitor& v);
void describeInsert(FieldVisitor& v);
void describeVertex(FieldVisitor& v);
void describePolyline(FieldVisitor& v);
void describeLwpolyline(FieldVisitor& v);
void describeSimple(FieldVisitor& v);  // those of a few points
void describeSpline(FieldVisitor& v);
void describeLeader(FieldVisitor& v);
void describeTolerance(FieldVisitor& v);
void describeHatch(FieldVisitor& v);
void describeViewport(FieldVisitor& v);
void describeDimension(FieldVisitor& v);
void describeControl(FieldVisitor& v);
void describeTableRecord(FieldVisitor& v);
void describeBlockHeader(FieldVisitor& v);
void describeNamed(FieldVisitor& v);  // what all records of tables begin with
// The variables as a style or the header has them.
void describeDimVariables(FieldVisitor& v, bool ofHeader);
void describeDimStyle(FieldVisitor& v);
void describeDictionary(FieldVisitor& v);
void describeLayout(FieldVisitor& v);

}  // namespace cad::dwg
