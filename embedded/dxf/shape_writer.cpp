#include "embedded/dxf/shape_writer.h"

namespace cad::dxf {
namespace {

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

}  // namespace

void writeShape(Drawing& drawing, BlockWriter& block, const Shape& shape) {
  std::visit(ShapeWriter(drawing, block), shape);
}

}  // namespace cad::dxf
