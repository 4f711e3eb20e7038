#include "embedded/graphics/block_shapes.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

#include "embedded/graphics/bulge_arc.h"
#include "embedded/graphics/curves.h"
#include "embedded/graphics/text_layout.h"

namespace cad {
namespace {

// Appends the shapes of one entity to those of its block, as their parts.
class ShapeAdder {
 public:
  ShapeAdder(BlockShapes& shapes, const Part& look, const LayerLook& layer, const Point& normal)
      : shapes_(shapes), look_(look), layer_(layer), normal_(normal) {}

  void operator()(std::monostate) {}

  void operator()(const LineGeometry& line) {
    outline({{{line.from.x, line.from.y}, {line.to.x, line.to.y}}, false});
  }
  void operator()(const PointGeometry& point) {
    look_.kind = SceneItemKind::kDot;
    outline({{{point.at.x, point.at.y}}, false});
  }
  void operator()(const ArcGeometry& arc) {
    if (arc.radius <= 0) return;
    lift(arc.centre.z);
    outline(curveOf(arc));
  }
  void operator()(const EllipseGeometry& ellipse) { outline(curveOf(ellipse, normal_)); }
  void operator()(const SplineGeometry& spline) { outline(curveOf(spline)); }
  void operator()(const PolylineGeometry& polyline) {
    if (polyline.vertices.empty()) return;
    lift(polyline.vertices.front().at.z);
    outline(curveOf(polyline));
  }
  void operator()(const MeshGeometry& mesh) {
    begin();
    for (const std::vector<Point>& wire : mesh.wires) {
      CurvePoints curve;
      for (const Point& at : wire) curve.points.push_back({at.x, at.y});
      addLoop(curve);
    }
    end();
  }
  void operator()(const SolidGeometry& solid) {
    lift(solid.corners[0].z);
    CurvePoints curve;
    curve.closed = true;
    for (const Point& corner : solid.corners) curve.points.push_back({corner.x, corner.y});
    look_.kind = SceneItemKind::kFill;
    outline(curve);
  }
  void operator()(const TextGeometry& text) {
    lift(text.at.z);
    look_.kind = SceneItemKind::kText;
    look_.first = static_cast<std::uint32_t>(shapes_.texts.size());
    for (SceneText& line : layOut(text)) {
      line.origin = view_.point(line.origin);
      line.along = view_.vector(line.along);
      line.up = view_.vector(line.up);
      shapes_.texts.push_back(std::move(line));
    }
    look_.count = static_cast<std::uint32_t>(shapes_.texts.size()) - look_.first;
    if (look_.count > 0) shapes_.parts.push_back(look_);
  }
  void operator()(const InsertGeometry& insert) { refer({insert.block, insert, normal_, false, layer_}); }
  void operator()(const DimensionGeometry& dimension) { refer({dimension.block, {}, {}, true, layer_}); }
  void operator()(const HatchGeometry& hatch) {
    lift(0);
    if (hatch.solid) look_.kind = SceneItemKind::kFill;
    begin();
    for (const HatchGeometry::Path& path : hatch.paths) addLoop(joined(path));
    end();
  }

 private:
  void lift(double elevation) {
    const bool plain = normal_.x == 0 && normal_.y == 0 && normal_.z > 0;
    if (!plain) view_ = planView(normal_, elevation);
  }

  void begin() { look_.first = static_cast<std::uint32_t>(shapes_.loops.size()); }
  void end() {
    look_.count = static_cast<std::uint32_t>(shapes_.loops.size()) - look_.first;
    if (look_.count > 0) shapes_.parts.push_back(look_);
  }
  void outline(const CurvePoints& curve) {
    begin();
    addLoop(curve);
    end();
  }

  void addLoop(const CurvePoints& curve) {
    if (curve.points.empty()) return;
    const SceneLoop loop{static_cast<std::uint32_t>(shapes_.points.size()),
                         static_cast<std::uint32_t>(curve.points.size()), curve.closed};
    shapes_.loops.push_back(loop);
    if (view_.keepsCircles()) {
      for (const ScenePoint& point : curve.points) {
        shapes_.points.push_back(view_.point(point));
        if (view_.mirrors()) shapes_.points.back().bulge = -point.bulge;
      }
      return;
    }
    // A circle seen from aside.
    std::vector<ScenePoint> pieces;
    flatten(curve.points, curve.closed, finenessOf(curve.points), pieces);
    for (const ScenePoint& point : pieces) shapes_.points.push_back(view_.point(point));
    shapes_.loops.back().count = static_cast<std::uint32_t>(pieces.size());
    shapes_.loops.back().closed = false;
  }

  // The edges of a path one behind the other, each turned so that it goes on where the last one ended.
  CurvePoints joined(const HatchGeometry::Path& path) const {
    std::vector<CurvePoints> edges;
    for (const auto& edge : path.edges) {
      edges.push_back(std::visit([this](const auto& shape) { return curve(shape); }, edge));
      if (edges.back().points.empty()) edges.pop_back();
    }
    if (edges.size() == 1) {
      edges.front().closed = true;
      return std::move(edges.front());
    }
    CurvePoints whole;
    whole.closed = true;
    for (std::size_t i = 0; i < edges.size(); ++i) {
      std::vector<ScenePoint>& piece = edges[i].points;
      if (i == 0) {
        // Which of its ends the path goes on from shows only with the second edge.
        const auto& next = edges[1].points;
        if (gap(piece.front(), next) < gap(piece.back(), next)) reverse(piece);
      } else {
        if (distance(whole.points.back(), piece.back()) < distance(whole.points.back(), piece.front()))
          reverse(piece);
        whole.points.pop_back();
      }
      whole.points.insert(whole.points.end(), piece.begin(), piece.end());
    }
    return whole;
  }

  template <class Shape>
  CurvePoints curve(const Shape& shape) const {
    if constexpr (std::is_same_v<Shape, EllipseGeometry>) {
      return curveOf(shape, Point{0, 0, 1});
    } else if constexpr (std::is_same_v<Shape, LineGeometry>) {
      return {{{shape.from.x, shape.from.y}, {shape.to.x, shape.to.y}}, false};
    } else {
      return curveOf(shape);
    }
  }

  static double distance(const ScenePoint& a, const ScenePoint& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
  }

  // From an end of one edge to the nearer end of another.
  static double gap(const ScenePoint& end, const std::vector<ScenePoint>& other) {
    return std::min(distance(end, other.front()), distance(end, other.back()));
  }

  static void reverse(std::vector<ScenePoint>& points) {
    std::ranges::reverse(points);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) points[i].bulge = -points[i + 1].bulge;
    points.back().bulge = 0;
  }

  void refer(BlockReference reference) {
    if (reference.block == kNoRecord) return;
    look_.reference = true;
    look_.first = static_cast<std::uint32_t>(shapes_.references.size());
    shapes_.references.push_back(std::move(reference));
    shapes_.parts.push_back(look_);
  }

  BlockShapes& shapes_;
  Part look_;
  LayerLook layer_;
  Point normal_;
  Transform view_;
};

std::int16_t colorOf(const Drawing& drawing, RecordId entity, const LayerLook& layer) {
  const std::int64_t color = drawing.integer(entity, Property::kColorIndex).value_or(256);
  if (color >= 0 && color < 256) return static_cast<std::int16_t>(color);
  return layer.zero ? Part::kOfLayer : std::int16_t{layer.color};
}

bool isHidden(const Geometry& geometry, bool inBlock) {
  if (geometry.invisible) return true;
  const auto* text = std::get_if<TextGeometry>(&geometry.shape);
  if (text == nullptr) return false;
  return text->hidden || (inBlock && text->definition && !text->constant);
}

}  // namespace

void BlockShapes::clear() {
  parts.clear();
  loops.clear();
  points.clear();
  texts.clear();
  references.clear();
}

void ShapeReader::addOne(RecordId entity, bool inBlock, BlockShapes& to) {
  const LayerLook layer = layers_.of(entity);
  if (layer.frozen && !layer.zero) return;
  const Geometry geometry = drawing_.geometry(entity);
  if (isHidden(geometry, inBlock)) return;
  // What a reference on a layer that is off shows depends on the layers of the block's own objects.
  if (layer.off && !layer.zero && !std::holds_alternative<InsertGeometry>(geometry.shape)) return;
  Part look;
  look.onLayerZero = layer.zero;
  look.color = colorOf(drawing_, entity, layer);
  std::visit(ShapeAdder(to, look, layer, geometry.normal), geometry.shape);
}

void ShapeReader::add(RecordId entity, bool inBlock, BlockShapes& to) {
  addOne(entity, inBlock, to);
  const std::span<const RecordId> parts = drawing_.subRecordsOf(entity);
  if (parts.empty() || drawing_.typeName(entity) != "INSERT") return;
  for (const RecordId part : parts) {
    if (!drawing_.record(part).erased() && drawing_.typeName(part) == "ATTRIB") addOne(part, inBlock, to);
  }
}

}  // namespace cad
