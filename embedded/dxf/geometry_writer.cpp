// Entities of blocks made from geometry: shapes of the host itself, and what comes from a drawing of another
// format.

#include "embedded/dxf/geometry_writer.h"

#include <algorithm>
#include <utility>

#include "embedded/drawing/block_copy.h"
#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/geometry_groups.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/record_translator.h"

namespace cad::dxf {
namespace {

using Side = TextGeometry::Side;
using Level = TextGeometry::Level;

// Plain shapes. They take colour, linetype and lineweight from the reference.
class ShapeWriter {
 public:
  ShapeWriter(Drawing& drawing, BlockWriter& block) : drawing_(drawing), block_(block) {}

  void operator()(const LineShape& line) {
    RecordBuilder builder = begin("LINE");
    builder.subclass("AcDbLine").point(10, line.from).point(11, line.to);
    block_.addEntity(builder);
  }

  void operator()(const CircleShape& circle) {
    RecordBuilder builder = begin("CIRCLE");
    builder.subclass("AcDbCircle").point(10, circle.centre).real(40, circle.radius);
    block_.addEntity(builder);
  }

  void operator()(const ArcShape& arc) {
    RecordBuilder builder = begin("ARC");
    builder.subclass("AcDbCircle").point(10, arc.centre).real(40, arc.radius);
    builder.subclass("AcDbArc").real(50, arc.start).real(51, arc.end);
    block_.addEntity(builder);
  }

  void operator()(const SolidShape& solid) {
    RecordBuilder builder = begin("SOLID");
    builder.subclass("AcDbTrace").point(10, solid.a).point(11, solid.b).point(12, solid.c).point(13, solid.d);
    block_.addEntity(builder);
  }

  void operator()(const PolylineShape& polyline) {
    if (drawing_.facts().version >= Version::kR14)
      writeLight(polyline);
    else
      writeWithVertices(polyline);
  }

 private:
  RecordBuilder begin(std::string_view type) {
    RecordBuilder builder = block_.begin(type, block_.takeHandle());
    addCommon(builder);
    return builder;
  }

  static void addCommon(RecordBuilder& builder) {
    builder.stored(8, "0").stored(6, builder.since(Version::kR2000) ? "ByBlock" : "BYBLOCK").integer(62, 0);
    if (builder.since(Version::kR2000)) builder.integer(370, -2);
  }

  void writeLight(const PolylineShape& polyline) {
    RecordBuilder builder = begin("LWPOLYLINE");
    builder.subclass("AcDbPolyline").integer(90, static_cast<std::int64_t>(polyline.vertices.size()));
    builder.integer(70, polyline.closed ? 1 : 0).real(43, polyline.width);
    for (const PolylineShape::Vertex& vertex : polyline.vertices) {
      builder.real(10, vertex.x).real(20, vertex.y);
      if (vertex.bulge != 0) builder.real(42, vertex.bulge);
    }
    block_.addEntity(builder);
  }

  void writeWithVertices(const PolylineShape& polyline) {
    const std::optional<Handle> handle = block_.takeHandle();
    RecordBuilder builder = block_.begin("POLYLINE", handle);
    addCommon(builder);
    builder.subclass("AcDb2dPolyline").integer(66, 1).point(10, {});
    builder.integer(70, polyline.closed ? 1 : 0).real(40, polyline.width).real(41, polyline.width);
    const RecordId main = block_.addEntity(builder);
    for (const PolylineShape::Vertex& vertex : polyline.vertices) {
      RecordBuilder sub = block_.beginSub("VERTEX", block_.takeHandle(), handle);
      addCommon(sub);
      sub.subclass("AcDbVertex").subclass("AcDb2dVertex").point(10, {vertex.x, vertex.y, 0});
      sub.real(40, polyline.width).real(41, polyline.width);
      if (vertex.bulge != 0) sub.real(42, vertex.bulge);
      block_.addSub(main, sub);
    }
    RecordBuilder end = block_.beginSub("SEQEND", block_.takeHandle(), handle);
    end.stored(8, "0");
    block_.addSub(main, end);
  }

  Drawing& drawing_;
  BlockWriter& block_;
};

// What is drawn of an entity; false: its type consists of something else.
class GeometryWriter {
 public:
  GeometryWriter(Drawing& drawing, RecordBuilder& builder, std::string_view type, const Point& normal)
      : drawing_(drawing), builder_(builder), type_(type), normal_(normal) {}

  bool operator()(const LineGeometry& line) {
    builder_.subclass("AcDbLine").point(10, line.from).point(11, line.to);
    return true;
  }
  bool operator()(const PointGeometry& point) {
    builder_.subclass("AcDbPoint").point(10, point.at);
    return true;
  }
  bool operator()(const ArcGeometry& arc) {
    builder_.subclass("AcDbCircle").point(10, arc.centre).real(40, arc.radius);
    addNormal();
    if (type_ == "ARC") builder_.subclass("AcDbArc").real(50, arc.start).real(51, arc.end);
    return true;
  }
  bool operator()(const EllipseGeometry& ellipse) {
    builder_.subclass("AcDbEllipse").point(10, ellipse.centre).point(11, ellipse.majorAxis);
    addNormal();
    builder_.real(40, ellipse.ratio).real(41, ellipse.start).real(42, ellipse.end);
    return true;
  }
  bool operator()(const PolylineGeometry& polyline) {
    if (type_ != "LWPOLYLINE") return false;
    builder_.subclass("AcDbPolyline").integer(90, static_cast<std::int64_t>(polyline.vertices.size()));
    builder_.integer(70, polyline.closed ? 1 : 0);
    if (!polyline.vertices.empty()) builder_.real(38, polyline.vertices.front().at.z);
    for (const PolylineGeometry::Vertex& vertex : polyline.vertices) {
      builder_.real(10, vertex.at.x).real(20, vertex.at.y);
      if (vertex.bulge != 0) builder_.real(42, vertex.bulge);
    }
    addNormal();
    return true;
  }
  bool operator()(const SolidGeometry& solid) {
    builder_.subclass("AcDbTrace").point(10, solid.corners[0]).point(11, solid.corners[1]);
    builder_.point(12, solid.corners[3]).point(13, solid.corners[2]);
    addNormal();
    return true;
  }
  bool operator()(const SplineGeometry& spline) {
    if (type_ != "SPLINE") return false;
    const auto count = [](const auto& list) { return static_cast<std::int64_t>(list.size()); };
    constexpr int kClosed = 1, kRational = 4;
    const int flags = (spline.closed ? kClosed : 0) | (spline.weights.empty() ? 0 : kRational);
    builder_.subclass("AcDbSpline").integer(70, flags).integer(71, spline.degree);
    builder_.integer(72, count(spline.knots))
        .integer(73, count(spline.control))
        .integer(74, count(spline.fit));
    for (const double knot : spline.knots) builder_.real(40, knot);
    for (const double weight : spline.weights) builder_.real(41, weight);
    for (const Point& at : spline.control) builder_.point(10, at);
    for (const Point& at : spline.fit) builder_.point(11, at);
    return true;
  }
  bool operator()(const TextGeometry& text) {
    if (type_ == "ATTRIB") return false;
    return text.multiline ? writeParagraphs(text) : writeLine(text);
  }
  bool operator()(const InsertGeometry& insert) {
    if (type_ != "INSERT" || insert.block == kNoRecord) return false;
    builder_.subclass("AcDbBlockReference").text(2, blockName(drawing_, insert.block)).point(10, insert.at);
    builder_.real(41, insert.scale.x).real(42, insert.scale.y).real(43, insert.scale.z);
    if (insert.rotation != 0) builder_.real(50, insert.rotation);
    if (insert.columns > 1 || insert.rows > 1) {
      builder_.integer(70, insert.columns).integer(71, insert.rows);
      builder_.real(44, insert.columnSpacing).real(45, insert.rowSpacing);
    }
    addNormal();
    return true;
  }
  // Wires, pictures of dimensions and paths of hatches are not what their entities consist of.
  template <class Other>
  bool operator()(const Other&) {
    return false;
  }

 private:
  void addNormal() {
    if (normal_.x != 0 || normal_.y != 0 || normal_.z != 1) builder_.point(210, normal_);
  }

  bool writeParagraphs(const TextGeometry& text) {
    constexpr int kRows[] = {0, 2, 1, 0};  // of the attachment, by level: a base line counts as the top
    const int column = text.side == Side::kCentre ? 1 : text.side == Side::kRight ? 2 : 0;
    builder_.subclass("AcDbMText").point(10, text.at).real(40, text.height).real(41, text.frameWidth);
    builder_.integer(71, kRows[static_cast<int>(text.level)] * 3 + column + 1);
    builder_.stored(1, {}).real(50, text.rotation);
    if (builder_.since(Version::kR2000)) builder_.real(44, text.lineSpacing);
    return true;
  }

  bool writeLine(const TextGeometry& text) {
    constexpr int kSides[] = {0, 1, 2, 3, 5};
    const bool between = text.side == Side::kAligned || text.side == Side::kFit;
    const bool aligned = text.side != Side::kLeft || text.level != Level::kBaseline;
    builder_.subclass("AcDbText").point(10, text.at).real(40, text.height);
    builder_.text(1, text.definition ? std::wstring_view() : std::wstring_view(text.contents));
    builder_.real(50, text.rotation).real(41, text.widthFactor).real(51, text.oblique);
    builder_.integer(71, (text.backwards ? 2 : 0) | (text.upsideDown ? 4 : 0));
    builder_.integer(72, kSides[static_cast<int>(text.side)]);
    if (aligned) builder_.point(11, between ? text.second : text.at);
    addNormal();
    if (type_ == "ATTDEF") {
      builder_.subclass("AcDbAttributeDefinition").text(3, text.prompt).text(2, text.contents).integer(70, 0);
      builder_.integer(74, static_cast<int>(text.level));
    } else {
      builder_.subclass("AcDbText").integer(73, static_cast<int>(text.level));
    }
    return true;
  }

  Drawing& drawing_;
  RecordBuilder& builder_;
  std::string_view type_;
  const Point& normal_;
};

}  // namespace

bool addGeometry(Drawing& drawing, RecordBuilder& builder, std::string_view type, const Geometry& geometry) {
  return std::visit(GeometryWriter(drawing, builder, type, geometry.normal), geometry.shape);
}

base::Result<RecordId> DxfStorage::defineBlock(Drawing& drawing, std::wstring_view name,
                                               const BlockHead& head, std::span<const Shape> shapes) {
  Drawing::ChangeScope scope(drawing);
  BlockWriter block(drawing, *this);
  if (const base::Status status = block.open(name, head); !status.ok()) {
    scope.rollBack();
    return status.failure();
  }
  for (const Shape& shape : shapes) std::visit(ShapeWriter(drawing, block), shape);
  return block.close();
}

EditId DxfStorage::withLastPoint(const Record& record, int code, const Point& at) {
  Record state = record;
  // From the last coordinate to the first, so that places before stay where they are.
  for (const auto& [coordinate, value] :
       {std::pair(code + 20, at.z), std::pair(code + 10, at.y), std::pair(code, at.x)}) {
    const GeometryGroups groups(*this, state);
    const auto last = std::find_if(groups.all().rbegin(), groups.all().rend(),
                                   [place = coordinate](const Group& group) { return group.code == place; });
    if (last != groups.all().rend() && groups.value(*last) != value)
      state.edits = withValue(state, *last, realBytes(dialect_, value));
  }
  return state.edits;
}

base::Result<EditId> DxfStorage::setLastVertex(const Record& leader, const Point& at) {
  if (!GeometryGroups(*this, leader).has(10)) return failure(L"LEADER", L"The leader has no vertices");
  return withLastPoint(leader, 10, at);
}

EditId DxfStorage::setTextMiddle(const Record& dimension, const Point& at) {
  return withLastPoint(dimension, 11, at);
}

base::Result<RecordId> DxfStorage::addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                             const Geometry& geometry) {
  const std::optional<Version> first = firstVersionOf(type);
  if (first && *first > facts_.version)
    return refusedType(type, L"The drawing's version cannot hold entities of this type");
  Drawing::ChangeScope scope(drawing);
  BlockWriter writer(drawing, *this);
  if (const base::Status status = writer.resume(block); !status.ok()) return status.failure();
  RecordBuilder builder = writer.begin(type, writer.takeHandle());
  builder.stored(8, "0");
  if (first && addGeometry(drawing, builder, type, geometry)) return writer.addEntity(builder);
  scope.rollBack();
  return refusedType(type, L"Entities of this type are not copied between drawings of these formats");
}

}  // namespace cad::dxf
