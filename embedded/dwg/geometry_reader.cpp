// What an entity looks like, from its fields.

#include <algorithm>
#include <cmath>

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

Geometry readSpline(const GeometrySource& from) {
  const Fields& fields = from.fields;
  SplineGeometry shape;
  shape.degree = static_cast<int>(fields.integer("degree", 3));
  shape.closed = fields.integer("closed") != 0;
  shape.knots = realsOf(fields, "knot");
  shape.weights = realsOf(fields, "weight");
  shape.control = pointsOf(fields, "control point");
  shape.fit = pointsOf(fields, "fit point");
  return {std::move(shape)};
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
