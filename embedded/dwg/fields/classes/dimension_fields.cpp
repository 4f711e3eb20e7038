// Dimensions of every kind. Their points have the names of their group codes.

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

void common(FieldVisitor& v) {
  if (v.since(kR2010)) v.rc("class version");
  v.extrusion(BitType::k3BD);
  v.point2rd("text midpoint");
  v.bd("elevation");
  v.rc("flags 1");
  v.text("text");
  v.bd("text rotation");
  v.bd("horizontal direction");
  v.point(BitType::k3BD, "insert scale", {1, 1, 1});
  v.bd("insert rotation");
  if (v.since(kR2000)) {
    v.bs("attachment", 5);
    v.bs("line spacing style", 1);
    v.bd("line spacing factor", 1);
    v.bd("measurement");
  }
  if (v.since(kR2007)) v.b("unknown bit"), v.b("flip arrow 1"), v.b("flip arrow 2");
  v.point2rd("point 12");
}

void arc(FieldVisitor& v) {
  v.point3bd("point 10"), v.point3bd("point 13"), v.point3bd("point 14"), v.point3bd("point 15");
  v.b("partial");
  v.bd("start parameter"), v.bd("end parameter");
  v.b("has leader");
  v.point3bd("point 16"), v.point3bd("point 17");
}

void own(FieldVisitor& v) {
  switch (v.kind()) {
    case ObjectKind::kDimensionOrdinate:
      v.point3bd("point 10"), v.point3bd("point 13"), v.point3bd("point 14");
      v.rc("flags 2");
      return;
    case ObjectKind::kDimensionLinear:
    case ObjectKind::kDimensionAligned:
      v.point3bd("point 13"), v.point3bd("point 14"), v.point3bd("point 10");
      v.bd("oblique angle");
      if (v.kind() == ObjectKind::kDimensionLinear) v.bd("rotation");
      return;
    case ObjectKind::kDimensionAngular3Point:
      v.point3bd("point 10"), v.point3bd("point 13"), v.point3bd("point 14"), v.point3bd("point 15");
      return;
    case ObjectKind::kDimensionAngular2Line:
      v.point2rd("point 16");
      v.point3bd("point 13"), v.point3bd("point 14"), v.point3bd("point 15"), v.point3bd("point 10");
      return;
    case ObjectKind::kDimensionDiameter:
      v.point3bd("point 15"), v.point3bd("point 10");
      v.bd("leader length");
      return;
    case ObjectKind::kDimensionArc:
      return arc(v);
    case ObjectKind::kDimensionJogged:
      v.point3bd("point 10"), v.point3bd("point 15");
      v.bd("jog angle");
      v.point3bd("point 13"), v.point3bd("point 14");
      return;
    default:
      v.point3bd("point 10"), v.point3bd("point 15");
      v.bd("leader length");
      return;
  }
}

}  // namespace

void describeDimension(FieldVisitor& v) {
  common(v);
  own(v);
  v.handle("dimension style");
  v.handle("block");
}

}  // namespace cad::dwg
