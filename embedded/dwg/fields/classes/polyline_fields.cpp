// Polylines of every kind, and their vertices.

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kLeastReal = 2, kLeastPoint = 4, kLeastInteger = 2;  // bits

void vertices(FieldVisitor& v, std::uint32_t count) {
  if (v.before(kR2004)) v.handle("first vertex", 4), v.handle("last vertex", 4);
  for (std::uint32_t i = 0; i < count; ++i) v.handle("vertex", 3, i);
  v.handle("sequence end", 3);
}

void polylineData(FieldVisitor& v) {
  switch (v.kind()) {
    case ObjectKind::kPolyline2d:
      v.bs("flags"), v.bs("curve type");
      v.bd("start width"), v.bd("end width");
      v.bt("thickness"), v.bd("elevation");
      v.extrusion();
      break;
    case ObjectKind::kPolyline3d:
      v.rc("curve type"), v.rc("flags");
      break;
    case ObjectKind::kPolylinePface:
      v.bs("vertices"), v.bs("faces");
      break;
    default:
      v.bs("flags"), v.bs("curve type");
      v.bs("m vertices"), v.bs("n vertices");
      v.bs("m density"), v.bs("n density");
      break;
  }
}

void vertex2d(FieldVisitor& v) {
  v.rc("flags");
  v.point3bd("point");
  const double start = v.bd("start width");
  if (start >= 0) v.bd("end width");  // below 0: the same on both sides
  v.bd("bulge");
  if (v.since(kR2010)) v.bl("identifier");
  v.bd("tangent direction");
}

}  // namespace

void describePolyline(FieldVisitor& v) {
  polylineData(v);
  vertices(v, v.since(kR2004) ? v.count(BitType::kBL, "vertex count", kLeastHandle, Stream::kHandles) : 0);
}

void describeVertex(FieldVisitor& v) {
  switch (v.kind()) {
    case ObjectKind::kVertex2d:
      return vertex2d(v);
    case ObjectKind::kVertexPfaceFace:
      for (std::uint32_t i = 0; i < 4; ++i) v.bs("face vertex", 0, i);
      return;
    default:
      v.rc("flags");
      v.point3bd("point");
  }
}

void describeLwpolyline(FieldVisitor& v) {
  const std::int64_t flags = v.flags(BitType::kBS, "flags", 0, true,
                                     {{0x04, "constant width", 0.0},
                                      {0x08, "elevation", 0.0},
                                      {0x02, "thickness", 0.0},
                                      {0x01, "extrusion", Point{0, 0, 1}},
                                      {0x10, "bulge count", std::int64_t{0}},
                                      {0x20, "width count", std::int64_t{0}}});
  const auto has = [flags](std::int64_t flag) { return (flags & flag) != 0; };
  if (has(0x04)) v.bd("constant width");
  if (has(0x08)) v.bd("elevation");
  if (has(0x02)) v.bd("thickness");
  if (has(0x01)) v.extrusion(BitType::k3BD);
  const std::uint32_t count = v.count(BitType::kBL, "vertex count", kLeastPoint);
  const auto counted = [&](std::int64_t flag, std::string_view name, std::uint64_t least) {
    return has(flag) ? v.count(BitType::kBL, name, least) : 0;
  };
  const std::uint32_t bulges = counted(0x10, "bulge count", kLeastReal);
  const std::uint32_t ids = v.since(kR2010) ? counted(0x400, "identifier count", kLeastInteger) : 0;
  const std::uint32_t widths = counted(0x20, "width count", 2 * kLeastReal);
  Point before;
  for (std::uint32_t i = 0; i < count; ++i) {
    const BitType type = i == 0 || v.before(kR2000) ? BitType::k2RD : BitType::k2DD;
    before = v.point(type, "vertex", {}, i, before);
  }
  for (std::uint32_t i = 0; i < bulges; ++i) v.bd("bulge", 0, i);
  for (std::uint32_t i = 0; i < ids; ++i) v.bl("identifier", 0, i);
  for (std::uint32_t i = 0; i < widths; ++i) v.bd("start width", 0, i), v.bd("end width", 0, i);
}

}  // namespace cad::dwg
