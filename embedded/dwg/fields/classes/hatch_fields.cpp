// HATCH: "gradient", "elevation", "extrusion", "name", "solid", "associative", "path count"; of each path
// "path flags" [path] and either "segment count" [path] with "segment type" [segment] and what it consists
// of, or "has bulges", "closed" [path], "point count" [path] with "point" and "bulge" [point]; "boundary
// count" [path], "boundary" [i]; "style", "pattern type", "angle", "scale", "double", "line count" with "line
// angle", "line base", "line offset", "dash count" [line], "dash" [i]; "pixel size", "seed count", "seed"
// [i]. Segments, points and dashes are numbered through all paths and lines, as are those of a kind that a
// segment consists of: "from", "to" (1); "center", "radius", "start", "end", "counterclockwise" (2); with
// "major axis", "ratio" in place of the radius (3); "degree" ... "fit point" (4).

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kLeastReal = 2, kRawPoint = 128, kLeastColor = 14, kLeastPath = 6, kLeastLine = 14;
constexpr std::uint64_t kLeastSegment = 8;

// How many of each have been met so far.
struct Met {
  std::uint32_t segments = 0, points = 0, lines = 0, arcs = 0, splines = 0;
  std::uint32_t knots = 0, controls = 0, fits = 0;
};

void gradient(FieldVisitor& v) {
  v.bl("gradient"), v.bl("gradient reserved");
  v.bd("gradient angle"), v.bd("gradient shift");
  v.bl("gradient single color");
  v.bd("gradient tint");
  const std::uint32_t colors = v.count(BitType::kBL, "gradient color count", kLeastColor);
  for (std::uint32_t i = 0; i < colors; ++i) v.bd("gradient position", 0, i), v.color("gradient color", i);
  v.text("gradient name");
}

void spline(FieldVisitor& v, Met& met) {
  const std::uint32_t at = met.splines++;
  v.bl("degree", 3, at);
  const bool rational = v.b("rational", false, at);
  v.b("periodic", false, at);
  const std::uint32_t knots = v.count(BitType::kBL, "knot count", kLeastReal, Stream::kData, at);
  const std::uint32_t controls = v.count(BitType::kBL, "control count", kRawPoint, Stream::kData, at);
  for (std::uint32_t i = 0; i < knots; ++i) v.bd("knot", 0, met.knots++);
  for (std::uint32_t i = 0; i < controls; ++i, ++met.controls) {
    v.point2rd("control point", met.controls);
    if (rational) v.bd("weight", 1, met.controls);
  }
  if (v.before(kR2010)) return;
  const std::uint32_t fits = v.count(BitType::kBL, "fit count", kRawPoint, Stream::kData, at);
  for (std::uint32_t i = 0; i < fits; ++i) v.point2rd("fit point", met.fits++);
  if (fits > 0) v.point2rd("start tangent", at), v.point2rd("end tangent", at);
}

void segment(FieldVisitor& v, Met& met) {
  constexpr std::int64_t kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4;
  const std::int64_t type = v.rc("segment type", 1, met.segments++);
  if (type == kLine) {
    v.point2rd("from", met.lines), v.point2rd("to", met.lines);
    ++met.lines;
  } else if (type == kArc || type == kEllipse) {
    v.point2rd("center", met.arcs);
    if (type == kEllipse) v.point2rd("major axis", met.arcs);
    v.bd(type == kArc ? "radius" : "ratio", 0, met.arcs);
    v.bd("start", 0, met.arcs), v.bd("end", 0, met.arcs);
    v.b("counterclockwise", true, met.arcs);
    ++met.arcs;
  } else if (type == kSpline) {
    spline(v, met);
  } else {
    v.fail();
  }
}

void path(FieldVisitor& v, std::uint32_t index, Met& met, std::int64_t& allFlags, std::uint64_t& boundaries) {
  constexpr std::int64_t kPolyline = 2;
  const std::int64_t flags = v.integer(BitType::kBL, "path flags", 0, index);
  allFlags |= flags;
  if ((flags & kPolyline) == 0) {
    const std::uint32_t count = v.count(BitType::kBL, "segment count", kLeastSegment, Stream::kData, index);
    for (std::uint32_t i = 0; i < count && !v.failed(); ++i) segment(v, met);
  } else {
    const bool bulges = v.b("has bulges", false, index);
    v.b("closed", true, index);
    const std::uint32_t count = v.count(BitType::kBL, "point count", kRawPoint, Stream::kData, index);
    for (std::uint32_t i = 0; i < count; ++i, ++met.points) {
      v.point2rd("point", met.points);
      if (bulges) v.bd("bulge", 0, met.points);
    }
  }
  boundaries += v.count(BitType::kBL, "boundary count", kLeastHandle, Stream::kHandles, index);
}

void pattern(FieldVisitor& v) {
  v.bd("angle"), v.bd("scale", 1);
  v.b("double");
  const std::uint32_t lines = v.count(BitType::kBS, "line count", kLeastLine);
  std::uint32_t dash = 0;
  for (std::uint32_t i = 0; i < lines; ++i) {
    v.bd("line angle", 0, i);
    v.point(BitType::k2BD, "line base", {}, i);
    v.point(BitType::k2BD, "line offset", {}, i);
    const std::uint32_t dashes = v.count(BitType::kBS, "dash count", kLeastReal, Stream::kData, i);
    for (std::uint32_t k = 0; k < dashes; ++k) v.bd("dash", 0, dash++);
  }
}

}  // namespace

void describeHatch(FieldVisitor& v) {
  constexpr std::int64_t kDerived = 4;
  if (v.since(kR2004)) gradient(v);
  v.bd("elevation");
  v.extrusion(BitType::k3BD);
  v.text("name");
  const bool solid = v.b("solid");
  v.b("associative");
  const std::uint32_t paths = v.count(BitType::kBL, "path count", kLeastPath);
  Met met;
  std::int64_t allFlags = 0;
  std::uint64_t boundaries = 0;
  for (std::uint32_t i = 0; i < paths && !v.failed(); ++i) path(v, i, met, allFlags, boundaries);
  v.bs("style"), v.bs("pattern type");
  if (!solid) pattern(v);
  if ((allFlags & kDerived) != 0) v.bd("pixel size");
  const std::uint32_t seeds = v.count(BitType::kBL, "seed count", kRawPoint);
  for (std::uint32_t i = 0; i < seeds; ++i) v.point2rd("seed", i);
  if (boundaries > v.left(Stream::kHandles) / kLeastHandle) return v.fail();
  for (std::uint32_t i = 0; i < boundaries; ++i) v.handle("boundary", 4, i);
}

}  // namespace cad::dwg
