// The geometry of dimensions.

#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

using Kind = DimensionGeometry::Kind;

constexpr int kDefaultPlace = 1;  // of the first flags: nobody placed the text
constexpr int kAlongX = 1;        // of the second flags

Kind dimensionKind(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::kDimensionLinear:
      return Kind::kRotated;
    case ObjectKind::kDimensionAligned:
      return Kind::kAligned;
    case ObjectKind::kDimensionAngular2Line:
      return Kind::kAngular;
    case ObjectKind::kDimensionAngular3Point:
      return Kind::kAngularPoints;
    case ObjectKind::kDimensionRadius:
      return Kind::kRadial;
    case ObjectKind::kDimensionDiameter:
      return Kind::kDiametric;
    case ObjectKind::kDimensionOrdinate:
      return Kind::kOrdinate;
    case ObjectKind::kDimensionArc:
      return Kind::kArcLength;
    case ObjectKind::kDimensionJogged:
      return Kind::kJogged;
    default:
      return Kind::kUnknown;
  }
}

}  // namespace

Geometry readDimension(const GeometrySource& from) {
  const Fields& fields = from.fields;
  DimensionGeometry shape;
  shape.kind = dimensionKind(from.kind);
  shape.block = from.storage.blockOf(fields.handle("block").value_or(0));
  shape.line = fields.point("point 10");
  shape.text = from.raised("text midpoint");
  shape.first = fields.point("point 13");
  shape.second = fields.point("point 14");
  shape.third = fields.point("point 15");
  shape.arc = fields.point("point 16");
  shape.rotation = from.degrees("rotation");
  shape.oblique = from.degrees("oblique angle");
  shape.textRotation = from.degrees("text rotation");
  shape.horizontal = from.degrees("horizontal direction");
  shape.userText = (fields.integer("flags 1") & kDefaultPlace) == 0;
  shape.alongX = shape.kind == Kind::kOrdinate && (fields.integer("flags 2") & kAlongX) != 0;
  if (const Field* text = fields.find("text")) shape.contents = from.storage.text(text->value);
  return {shape, from.normal()};
}

}  // namespace cad::dwg
