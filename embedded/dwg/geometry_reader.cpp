// What an entity looks like, from its fields.

#include <algorithm>
#include <cmath>

#include "embedded/drawing/dim_variables.h"
#include "embedded/dwg/fit_spline.h"
#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

std::vector<Point> pointsOf(const Fields& fields, std::string_view name) {
  std::vector<Point> points;
  for (const Field& field : fields.all()) {
    const auto* point = std::get_if<Point>(&field.value);
    if (field.name == name && point != nullptr) points.push_back(*point);
  }
  return points;
}

std::vector<double> realsOf(const Fields& fields, std::string_view name) {
  std::vector<double> reals;
  for (const Field& field : fields.all()) {
    const auto* real = std::get_if<double>(&field.value);
    if (field.name == name && real != nullptr) reals.push_back(*real);
  }
  return reals;
}

Geometry readLine(const GeometrySource& from) {
  return {LineGeometry{from.fields.point("start"), from.fields.point("end")}};
}

Geometry readPoint(const GeometrySource& from) { return {PointGeometry{from.fields.point("point")}}; }

Geometry readArc(const GeometrySource& from) {
  ArcGeometry arc{from.fields.point("center"), from.fields.real("radius"), 0, 360};
  if (from.kind == ObjectKind::kArc)
    arc.start = from.degrees("start angle"), arc.end = from.degrees("end angle", 360);
  return {arc, from.normal()};
}

Geometry readEllipse(const GeometrySource& from) {
  const Fields& fields = from.fields;
  EllipseGeometry shape;
  shape.centre = fields.point("center");
  shape.majorAxis = fields.point("major axis");
  shape.ratio = fields.real("ratio", 1);
  shape.start = fields.real("start parameter", shape.start);
  shape.end = fields.real("end parameter", shape.end);
  return {shape, from.normal()};
}

Geometry readSolid(const GeometrySource& from) {
  const double z = from.fields.real("elevation");
  const auto corner = [&](std::uint32_t index) {
    const Point flat = from.fields.point("corner", {}, index);
    return Point{flat.x, flat.y, z};
  };
  return {SolidGeometry{{corner(0), corner(1), corner(3), corner(2)}}, from.normal()};
}

Geometry readFitSpline(const Fields& fields, std::vector<Point> points) {
  constexpr std::int64_t kClosed = 4;
  FitPoints fit{std::move(points), fields.point("start tangent"), fields.point("end tangent")};
  const std::int64_t steps = fields.integer("knot parameter");
  if (steps >= 0 && steps <= static_cast<int>(FitSteps::kEven)) fit.steps = static_cast<FitSteps>(steps);
  const bool closed = (fields.integer("spline flags") & kClosed) != 0;
  SplineGeometry shape = closed ? SplineGeometry() : splineThrough(fit);
  shape.closed = closed;
  if (shape.control.empty() || fields.version() < Version::kR2013) shape.fit = std::move(fit.points);
  return {std::move(shape)};
}

Geometry readSpline(const GeometrySource& from) {
  const Fields& fields = from.fields;
  if (std::vector<Point> fit = pointsOf(fields, "fit point"); !fit.empty())
    return readFitSpline(fields, std::move(fit));
  SplineGeometry shape;
  shape.degree = static_cast<int>(fields.integer("degree", 3));
  shape.closed = fields.integer("closed") != 0;
  shape.knots = realsOf(fields, "knot");
  shape.weights = realsOf(fields, "weight");
  shape.control = pointsOf(fields, "control point");
  return {std::move(shape)};
}

// Of the dimension or leader, or else of its style.
double dimReal(const GeometrySource& from, const DimVariableInfo& info) {
  std::optional<Variable> value = from.drawing.dimVariable(from.id, info);
  const RecordId style = from.storage.recordOf(from.fields.handle("dimension style").value_or(0));
  if (!value && style != kNoRecord) value = from.drawing.dimVariable(style, info);
  if (!value) value = defaultValue(info);
  const double* real = std::get_if<double>(&*value);
  return real == nullptr ? 0 : *real;
}

// Before a text a leader that comes steeply has a piece along the text's direction, which no file tells.
bool hasHook(const GeometrySource& from, const std::vector<Point>& points, const Point& along) {
  constexpr std::int64_t kText = 0;
  const double kSteep = 15 * kRadiansPerDegree;
  const bool hasText =
      from.fields.integer("annotation type") == kText && from.fields.handle("annotation").value_or(0) != 0;
  if (points.size() < 2 || !hasText) return false;
  const Point &end = points.back(), &start = points[points.size() - 2];
  const Point last{end.x - start.x, end.y - start.y, end.z - start.z};
  const double length = std::hypot(last.x, last.y, last.z) * std::hypot(along.x, along.y, along.z);
  const double cosine = std::fabs(last.x * along.x + last.y * along.y + last.z * along.z);
  return length > 0 && cosine < length * std::cos(kSteep);
}

void addHook(const GeometrySource& from, std::vector<Point>& points, PolylineGeometry& shape) {
  const Point along = from.fields.point("x direction", {1, 0, 0});
  if (!hasHook(from, points, along)) return;
  const double scale = dimReal(from, dimRow("DIMSCALE"));
  const double length = dimReal(from, dimRow("DIMASZ")) * (scale > 0 ? scale : 1);
  if (!(length > 0)) return;
  const double back = from.fields.integer("hook along x") == 0 ? -length : length;
  const Point end = points.back();
  points.insert(points.end() - 1, {end.x + back * along.x, end.y + back * along.y, end.z + back * along.z});
  shape.hook = length;
}

// A leader's points are world coordinates, whatever its normal.
Geometry readLeader(const GeometrySource& from) {
  std::vector<Point> points = pointsOf(from.fields, "vertex");
  if (from.fields.integer("path type") != 0) {
    SplineGeometry curve;
    curve.fit = std::move(points);
    return {std::move(curve)};
  }
  PolylineGeometry shape;
  addHook(from, points, shape);
  for (const Point& at : points) shape.vertices.push_back({at, 0});
  return {std::move(shape)};
}

Geometry readInsert(const GeometrySource& from) {
  const Fields& fields = from.fields;
  InsertGeometry shape;
  shape.block = from.storage.blockOf(fields.handle("block").value_or(0));
  shape.at = fields.point("insertion point");
  shape.scale = fields.point("scale", {1, 1, 1});
  shape.rotation = from.degrees("rotation");
  shape.columns = static_cast<int>(std::max<std::int64_t>(1, fields.integer("columns", 1)));
  shape.rows = static_cast<int>(std::max<std::int64_t>(1, fields.integer("rows", 1)));
  shape.columnSpacing = fields.real("column spacing");
  shape.rowSpacing = fields.real("row spacing");
  return {shape, from.normal()};
}

// A table is shown by a block.
Geometry readTable(const GeometrySource& from) {
  InsertGeometry shape;
  shape.block = from.storage.blockOf(from.fields.handle("block").value_or(0));
  shape.at = from.fields.point("insertion point");
  shape.rotation = from.degrees("rotation");
  return {shape};
}

struct KindReader {
  ObjectKind kind;
  Geometry (*read)(const GeometrySource&);
};

constexpr KindReader kReaders[] = {
    {ObjectKind::kLine, readLine},
    {ObjectKind::kLwpolyline, readLightPolyline},
    {ObjectKind::kText, readText},
    {ObjectKind::kInsert, readInsert},
    {ObjectKind::kMinsert, readInsert},
    {ObjectKind::kTable, readTable},
    {ObjectKind::kArc, readArc},
    {ObjectKind::kCircle, readArc},
    {ObjectKind::kPolyline2d, readPolyline},
    {ObjectKind::kPolyline3d, readPolyline},
    {ObjectKind::kPolylineMesh, readPolyline},
    {ObjectKind::kPolylinePface, readPolyline},
    {ObjectKind::kPoint, readPoint},
    {ObjectKind::kMtext, readMText},
    {ObjectKind::kDimensionOrdinate, readDimension},
    {ObjectKind::kDimensionLinear, readDimension},
    {ObjectKind::kDimensionAligned, readDimension},
    {ObjectKind::kDimensionAngular3Point, readDimension},
    {ObjectKind::kDimensionAngular2Line, readDimension},
    {ObjectKind::kDimensionRadius, readDimension},
    {ObjectKind::kDimensionDiameter, readDimension},
    {ObjectKind::kDimensionArc, readDimension},
    {ObjectKind::kDimensionJogged, readDimension},
    {ObjectKind::kHatch, readHatch},
    {ObjectKind::kAttrib, readText},
    {ObjectKind::kAttdef, readText},
    {ObjectKind::kSolid, readSolid},
    {ObjectKind::kTrace, readSolid},
    {ObjectKind::kEllipse, readEllipse},
    {ObjectKind::kSpline, readSpline},
    {ObjectKind::kLeader, readLeader},
    {ObjectKind::k3dFace, readFace},
    {ObjectKind::kViewport, readViewport},
};

}  // namespace

Geometry DwgStorage::readGeometry(const Drawing& drawing, RecordId entity) const {
  const Record& record = drawing.record(entity);
  if (record.kind == RecordKind::kBlockBegin) return {PointGeometry{basePoint(drawing, entity)}};
  const base::Result<ObjectFrame> frame = this->frame(record);
  if (!frame.ok()) return {};
  const ObjectKind kind = frame.value().type.kind;
  const auto* reader = std::ranges::find(kReaders, kind, &KindReader::kind);
  if (reader == std::end(kReaders)) return {};
  const Fields fields = readFields(frame.value());
  if (!fields.intact()) return {};
  Geometry geometry = reader->read({drawing, *this, entity, kind, fields});
  geometry.invisible = fields.integer("invisible") == 1;
  geometry.partial = geometry.partial || fields.real("thickness") != 0;
  return geometry;
}

}  // namespace cad::dwg
