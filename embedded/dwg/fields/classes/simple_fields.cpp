// Entities of a few points.

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

void line(FieldVisitor& v) {
  if (v.before(kR2000)) {
    v.point3bd("start"), v.point3bd("end");
  } else {
    bool flat = std::get<std::int64_t>(v.wanted("is flat", std::int64_t{1})) != 0;
    if (v.changes("start") || v.changes("end")) {
      const auto z = [&v](std::string_view name) {
        return same(std::get<Point>(v.wanted(name, Point{})).z, 0.0);
      };
      flat = z("start") && z("end");
    }
    flat = v.derived(BitType::kB, "is flat", flat) != 0;
    for (const Part part : {Part::kX, Part::kY, Part::kZ}) {
      if (part == Part::kZ && flat) break;
      const double from = v.real(BitType::kRD, "start", 0, 0, part);
      v.real(BitType::kDD, "end", 0, 0, part, from);
    }
  }
  v.bt("thickness");
  v.extrusion();
}

void arc(FieldVisitor& v) {
  v.point3bd("center");
  v.bd("radius");
  v.bt("thickness");
  v.extrusion();
  if (v.kind() == ObjectKind::kArc) v.bd("start angle"), v.bd("end angle");
}

void point(FieldVisitor& v) {
  v.point3bd("point");
  v.bt("thickness");
  v.extrusion();
  v.bd("x axis angle");
}

void ellipse(FieldVisitor& v) {
  v.point3bd("center");
  v.point3bd("major axis");
  v.extrusion(BitType::k3BD);
  v.bd("ratio", 1);
  v.bd("start parameter");
  v.bd("end parameter", 2 * std::numbers::pi);
}

void solid(FieldVisitor& v) {
  v.bt("thickness");
  v.bd("elevation");
  for (std::uint32_t i = 0; i < 4; ++i) v.point2rd("corner", i);
  v.extrusion();
}

void face(FieldVisitor& v) {
  if (v.before(kR2000)) {
    for (std::uint32_t i = 0; i < 4; ++i) v.point3bd("corner", i);
    v.bs("edge flags");
    return;
  }
  const bool noFlags = v.b("no edge flags", true);
  bool flat = std::get<std::int64_t>(v.wanted("is flat", std::int64_t{1})) != 0;
  if (v.changes("corner")) flat = same(std::get<Point>(v.wanted("corner", Point{})).z, 0.0);
  flat = v.derived(BitType::kB, "is flat", flat) != 0;
  Point before;
  before.x = v.real(BitType::kRD, "corner", 0, 0, Part::kX);
  before.y = v.real(BitType::kRD, "corner", 0, 0, Part::kY);
  if (!flat) before.z = v.real(BitType::kRD, "corner", 0, 0, Part::kZ);
  for (std::uint32_t i = 1; i < 4; ++i) before = v.point(BitType::k3DD, "corner", {}, i, before);
  if (!noFlags) v.bs("edge flags");
}

}  // namespace

void describeSimple(FieldVisitor& v) {
  switch (v.kind()) {
    case ObjectKind::kLine:
      return line(v);
    case ObjectKind::kPoint:
      return point(v);
    case ObjectKind::kEllipse:
      return ellipse(v);
    case ObjectKind::kSolid:
    case ObjectKind::kTrace:
      return solid(v);
    case ObjectKind::k3dFace:
      return face(v);
    default:
      return arc(v);
  }
}

void describeSpline(FieldVisitor& v) {
  constexpr std::uint64_t kLeastReal = 2, kLeastPoint = 6;  // bits
  constexpr std::int64_t kByControl = 1, kByFit = 2, kOfFit = 1, kOwnKnots = 15;
  std::int64_t form = v.bl("form", kByControl);
  if (v.since(kR2013)) {
    if ((v.bl("spline flags") & kOfFit) != 0) form = kByFit;
    if (v.bl("knot parameter") == kOwnKnots) form = kByControl;
  }
  v.bl("degree", 3);
  std::uint32_t fits = 0, knots = 0, controls = 0;
  bool weighted = false;
  if (form == kByFit) {
    v.bd("fit tolerance");
    v.point3bd("start tangent"), v.point3bd("end tangent");
    fits = v.count(BitType::kBL, "fit count", kLeastPoint);
  } else if (form == kByControl) {
    v.b("rational"), v.b("closed"), v.b("periodic");
    v.bd("knot tolerance"), v.bd("control tolerance");
    knots = v.count(BitType::kBL, "knot count", kLeastReal);
    controls = v.count(BitType::kBL, "control count", kLeastPoint);
    weighted = v.b("weighted");
  } else {
    v.fail();
  }
  for (std::uint32_t i = 0; i < knots; ++i) v.bd("knot", 0, i);
  for (std::uint32_t i = 0; i < controls; ++i) {
    v.point3bd("control point", i);
    if (weighted) v.bd("weight", 1, i);
  }
  for (std::uint32_t i = 0; i < fits; ++i) v.point3bd("fit point", i);
}

void describeLeader(FieldVisitor& v) {
  constexpr std::uint64_t kLeastPoint = 6;
  v.b("unknown bit 1");
  v.bs("annotation type"), v.bs("path type");
  const std::uint32_t count = v.count(BitType::kBL, "vertex count", kLeastPoint);
  for (std::uint32_t i = 0; i < count; ++i) v.point3bd("vertex", i);
  v.point3bd("origin");
  v.extrusion(BitType::k3BD);
  v.point(BitType::k3BD, "x direction", {1, 0, 0});
  v.point3bd("offset to block");
  if (v.since(kR14)) v.point3bd("offset");
  if (v.before(kR2000)) v.bd("text gap");
  if (v.before(kR2010)) v.bd("box height"), v.bd("box width");
  v.b("hook along x"), v.b("arrow on");
  v.bs("arrow type");
  if (v.before(kR2000)) {
    v.bd("arrow size");
    v.b("unknown bit 2"), v.b("unknown bit 3");
    v.bs("unknown number"), v.bs("block color");
  }
  v.b("unknown bit 4"), v.b("unknown bit 5");
  v.handle("annotation");
  v.handle("dimension style");
}

void describeTolerance(FieldVisitor& v) {
  if (v.before(kR2000)) v.bs("unknown number"), v.bd("height"), v.bd("text gap");
  v.point3bd("insertion point");
  v.point(BitType::k3BD, "x direction", {1, 0, 0});
  v.extrusion(BitType::k3BD);
  v.text("text");
  v.handle("dimension style");
}

}  // namespace cad::dwg
