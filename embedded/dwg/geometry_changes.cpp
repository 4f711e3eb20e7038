#include "embedded/dwg/geometry_changes.h"

#include <algorithm>
#include <cmath>

#include "embedded/drawing/stored_text.h"

namespace cad::dwg {
namespace {

using Side = TextGeometry::Side;
using Level = TextGeometry::Level;

constexpr std::int64_t kLightClosed = 512;
constexpr double kFlat = 0;

std::int64_t counted(std::size_t count) { return static_cast<std::int64_t>(count); }

class GeometryValues {
 public:
  GeometryValues(const DwgStorage& storage, std::string_view type, const Geometry& geometry,
                 FieldChanges& values)
      : storage_(storage), type_(type), normal_(geometry.normal), values_(values) {}

  using Kind = std::optional<ObjectKind>;

  Kind operator()(const LineGeometry& line) {
    if (type_ != "LINE") return {};
    values_.set("start", Value(line.from));
    values_.set("end", Value(line.to));
    return ObjectKind::kLine;
  }

  Kind operator()(const PointGeometry& point) {
    if (type_ != "POINT") return {};
    values_.set("point", Value(point.at));
    return ObjectKind::kPoint;
  }

  Kind operator()(const ArcGeometry& arc) {
    if (type_ != "ARC" && type_ != "CIRCLE") return {};
    values_.set("center", Value(arc.centre));
    values_.set("radius", Value(arc.radius));
    addNormal();
    if (type_ == "CIRCLE") return ObjectKind::kCircle;
    values_.set("start angle", Value(arc.start * kRadiansPerDegree));
    values_.set("end angle", Value(arc.end * kRadiansPerDegree));
    return ObjectKind::kArc;
  }

  Kind operator()(const EllipseGeometry& ellipse) {
    values_.set("center", Value(ellipse.centre));
    values_.set("major axis", Value(ellipse.majorAxis));
    values_.set("ratio", Value(ellipse.ratio));
    values_.set("start parameter", Value(ellipse.start));
    values_.set("end parameter", Value(ellipse.end));
    addNormal();
    return ObjectKind::kEllipse;
  }

  Kind operator()(const PolylineGeometry& polyline) {
    if (type_ != "LWPOLYLINE") return {};
    const auto& vertices = polyline.vertices;
    values_.set("flags", Value(polyline.closed ? kLightClosed : std::int64_t{0}));
    const double elevation = vertices.empty() ? kFlat : vertices.front().at.z;
    if (elevation != kFlat) values_.set("elevation", Value(elevation));
    addNormal();
    values_.set("vertex count", Value(counted(vertices.size())));
    const bool bulges = std::ranges::any_of(vertices, [](const auto& each) { return each.bulge != 0; });
    if (bulges) values_.set("bulge count", Value(counted(vertices.size())));
    for (std::uint32_t i = 0; i < vertices.size(); ++i) {
      values_.set("vertex", Value(Point{vertices[i].at.x, vertices[i].at.y, 0}), i);
      if (bulges) values_.set("bulge", Value(vertices[i].bulge), i);
    }
    addWidth(vertices);
    return ObjectKind::kLwpolyline;
  }

  Kind operator()(const SolidGeometry& solid) {
    if (type_ != "SOLID" && type_ != "TRACE") return {};
    values_.set("elevation", Value(solid.corners[0].z));
    constexpr std::size_t kCrossed[] = {0, 1, 3, 2};
    for (std::uint32_t i = 0; i < 4; ++i) {
      const Point& corner = solid.corners[kCrossed[i]];
      values_.set("corner", Value(Point{corner.x, corner.y, 0}), i);
    }
    addNormal();
    return type_ == "SOLID" ? ObjectKind::kSolid : ObjectKind::kTrace;
  }

  Kind operator()(const SplineGeometry& spline) {
    constexpr int kByControl = 1, kByFit = 2;
    if (type_ != "SPLINE") return {};
    const bool byFit = spline.control.empty();
    values_.set("form", byFit ? kByFit : kByControl);
    values_.set("degree", spline.degree);
    if (byFit) {
      values_.set("fit count", Value(counted(spline.fit.size())));
      for (std::uint32_t i = 0; i < spline.fit.size(); ++i) values_.set("fit point", Value(spline.fit[i]), i);
      return ObjectKind::kSpline;
    }
    const bool weighted = !spline.weights.empty();
    values_.set("rational", weighted), values_.set("closed", spline.closed);
    values_.set("knot count", Value(counted(spline.knots.size())));
    values_.set("control count", Value(counted(spline.control.size())));
    values_.set("weighted", weighted);
    for (std::uint32_t i = 0; i < spline.knots.size(); ++i) values_.set("knot", Value(spline.knots[i]), i);
    for (std::uint32_t i = 0; i < spline.control.size(); ++i) {
      values_.set("control point", Value(spline.control[i]), i);
      if (i < spline.weights.size()) values_.set("weight", Value(spline.weights[i]), i);
    }
    return ObjectKind::kSpline;
  }

  Kind operator()(const TextGeometry& text) {
    if (text.multiline) return type_ == "MTEXT" ? paragraphs(text) : Kind();
    return type_ == "TEXT" || type_ == "ATTDEF" ? line(text) : Kind();
  }

  Kind operator()(const InsertGeometry& insert) {
    if (type_ != "INSERT" || insert.block == kNoRecord) return {};
    values_.set("insertion point", Value(insert.at));
    values_.set("scale", Value(insert.scale));
    values_.set("rotation", Value(insert.rotation * kRadiansPerDegree));
    addNormal();
    if (insert.columns <= 1 && insert.rows <= 1) return ObjectKind::kInsert;
    values_.set("columns", insert.columns), values_.set("rows", insert.rows);
    values_.set("column spacing", Value(insert.columnSpacing));
    values_.set("row spacing", Value(insert.rowSpacing));
    return ObjectKind::kMinsert;
  }

  // Wires, pictures of dimensions and paths of hatches are not what their entities consist of.
  template <class Other>
  Kind operator()(const Other&) {
    return {};
  }

 private:
  void addNormal() {
    if (normal_.x != 0 || normal_.y != 0 || normal_.z != 1) values_.set("extrusion", Value(normal_));
  }

  Value stored(const std::wstring& text) const {
    return storage_.fieldText(encodeStored(text, storage_.facts().codePage));
  }

  void addWidth(const std::vector<PolylineGeometry::Vertex>& vertices) {
    const double width = vertices.empty() ? 0 : vertices.front().startWidth;
    const bool same = std::ranges::all_of(
        vertices, [&](const auto& each) { return each.startWidth == width && each.endWidth == width; });
    if (same) {
      if (width != 0) values_.set("constant width", Value(width));
      return;
    }
    values_.set("width count", Value(counted(vertices.size())));
    for (std::uint32_t i = 0; i < vertices.size(); ++i) {
      values_.set("start width", Value(vertices[i].startWidth), i);
      values_.set("end width", Value(vertices[i].endWidth), i);
    }
  }

  Kind paragraphs(const TextGeometry& text) {
    constexpr int kRows[] = {0, 2, 1, 0};  // of the attachment, by level: a base line counts as the top
    constexpr int kLeftToRight = 1, kAtLeast = 1;
    const int column = text.side == Side::kCentre ? 1 : text.side == Side::kRight ? 2 : 0;
    values_.set("insertion point", Value(text.at));
    addNormal();
    const double angle = text.rotation * kRadiansPerDegree;
    // What libraries make of a quarter turn differs; along an axis the other part is 0.
    const auto part = [](double value) { return std::abs(value) < 1e-15 ? 0 : value; };
    values_.set("x axis", Value(axesOf(normal_).world({part(std::cos(angle)), part(std::sin(angle)), 0})));
    values_.set("height", Value(text.height));
    values_.set("reference width", Value(text.frameWidth));
    values_.set("attachment", kRows[static_cast<int>(text.level)] * 3 + column + 1);
    values_.set("drawing direction", kLeftToRight);
    values_.set("text", stored(text.contents));
    if (storage_.version() >= Version::kR2000) {
      values_.set("line spacing style", kAtLeast);
      values_.set("line spacing factor", Value(text.lineSpacing));
    }
    return ObjectKind::kMtext;
  }

  Kind line(const TextGeometry& text) {
    constexpr int kSides[] = {0, 1, 2, 3, 5};
    const bool between = text.side == Side::kAligned || text.side == Side::kFit;
    const bool aligned = text.side != Side::kLeft || text.level != Level::kBaseline;
    values_.set("insertion point", Value(Point{text.at.x, text.at.y, 0}));
    if (text.at.z != 0) values_.set("elevation", Value(text.at.z));
    if (aligned) {
      const Point& second = between ? text.second : text.at;
      values_.set("alignment point", Value(Point{second.x, second.y, 0}));
    }
    values_.set("height", Value(text.height));
    values_.set("rotation", Value(text.rotation * kRadiansPerDegree));
    values_.set("width factor", Value(text.widthFactor));
    values_.set("oblique angle", Value(text.oblique * kRadiansPerDegree));
    values_.set("generation", (text.backwards ? 2 : 0) | (text.upsideDown ? 4 : 0));
    values_.set("horizontal alignment", kSides[static_cast<int>(text.side)]);
    values_.set("vertical alignment", static_cast<int>(text.level));
    values_.set("text", stored(text.definition ? std::wstring() : text.contents));
    addNormal();
    if (type_ != "ATTDEF") return ObjectKind::kText;
    values_.set("tag", stored(text.contents));
    values_.set("prompt", stored(text.prompt));
    return ObjectKind::kAttdef;
  }

  const DwgStorage& storage_;
  std::string_view type_;
  const Point& normal_;
  FieldChanges& values_;
};

struct ShapeGeometry {
  Geometry& geometry;
  std::string_view& type;

  void operator()(const LineShape& line) { take("LINE", LineGeometry{line.from, line.to}); }
  void operator()(const CircleShape& circle) { take("CIRCLE", ArcGeometry{circle.centre, circle.radius}); }
  void operator()(const ArcShape& arc) {
    take("ARC", ArcGeometry{arc.centre, arc.radius, arc.start, arc.end});
  }
  void operator()(const SolidShape& solid) {
    take("SOLID", SolidGeometry{{solid.a, solid.b, solid.d, solid.c}});
  }
  void operator()(const PolylineShape& polyline) {
    PolylineGeometry shape;
    for (const PolylineShape::Vertex& vertex : polyline.vertices)
      shape.vertices.push_back({{vertex.x, vertex.y, 0}, vertex.bulge, polyline.width, polyline.width});
    shape.closed = polyline.closed;
    take("LWPOLYLINE", std::move(shape));
  }
  void take(const char* name, GeometryShape shape) {
    type = name;
    geometry.shape = std::move(shape);
  }
};

}  // namespace

std::optional<ObjectKind> addGeometry(const DwgStorage& storage, std::string_view type,
                                      const Geometry& geometry, FieldChanges& values) {
  const std::optional<ObjectKind> kind =
      std::visit(GeometryValues(storage, type, geometry, values), geometry.shape);
  if (!kind || !numberOf(*kind, storage.version(), storage.classes())) return std::nullopt;
  return kind;
}

void addShape(const Shape& shape, Geometry& geometry, std::string_view& type) {
  std::visit(ShapeGeometry{geometry, type}, shape);
}

}  // namespace cad::dwg
