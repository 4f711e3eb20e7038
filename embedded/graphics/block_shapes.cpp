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
  // `style`: of the texts of a detailed scene; null in others.
  ShapeAdder(BlockShapes& shapes, const Part& look, const LayerLook& layer, const Point& normal,
             const TextStyles::Style* style)
      : shapes_(shapes), look_(look), layer_(layer), normal_(normal), style_(style) {}

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
    if (style_ != nullptr && addWide(polyline)) return;
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
    for (SceneText& line : style_ != nullptr ? layOut(text, *style_) : layOut(text)) {
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
    if (style_ != nullptr) addPattern(hatch);
    begin();
    for (const HatchGeometry::Path& path : hatch.paths) addLoop(joined(path));
    end();
  }
  // What a viewport shows is the scene's; here is its edge.
  void operator()(const ViewportGeometry& viewport) {
    if (style_ == nullptr || viewport.isSpace || viewport.boundary != kNoRecord) return;
    const double x = viewport.width / 2, y = viewport.height / 2;
    const Point& at = viewport.centre;
    outline({{{at.x - x, at.y - y}, {at.x + x, at.y - y}, {at.x + x, at.y + y}, {at.x - x, at.y + y}}, true});
  }

 private:
  // False: it has no width. One width all along is that of its outline, others are filled piece by piece.
  bool addWide(const PolylineGeometry& polyline) {
    const std::size_t pieces = polyline.vertices.size() - (polyline.closed ? 0 : 1);
    const double first = polyline.vertices.front().startWidth;
    bool isWide = false, isEven = first > 0;
    for (std::size_t i = 0; i < pieces; ++i) {
      const PolylineGeometry::Vertex& vertex = polyline.vertices[i];
      isWide = isWide || vertex.startWidth > 0 || vertex.endWidth > 0;
      isEven = isEven && vertex.startWidth == first && vertex.endWidth == first;
    }
    if (!isWide) return false;
    if (isEven) {
      look_.width = first;
      outline(curveOf(polyline));
      return true;
    }
    look_.kind = SceneItemKind::kFill;
    begin();
    for (std::size_t i = 0; i < pieces; ++i)
      addTapered(polyline.vertices[i], polyline.vertices[(i + 1) % polyline.vertices.size()]);
    end();
    return true;
  }

  void addTapered(const PolylineGeometry::Vertex& from, const PolylineGeometry::Vertex& to) {
    std::vector<ScenePoint> line;
    const ScenePoint ends[] = {{from.at.x, from.at.y, from.bulge}, {to.at.x, to.at.y}};
    flatten(ends, false, finenessOf(ends), line);
    CurvePoints area;
    area.closed = true;
    std::vector<ScenePoint> back;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const ScenePoint& before = line[i == 0 ? 0 : i - 1];
      const ScenePoint& after = line[std::min(i + 1, line.size() - 1)];
      const double length = std::hypot(after.x - before.x, after.y - before.y);
      if (length == 0) continue;
      const double share = static_cast<double>(i) / static_cast<double>(line.size() - 1);
      const double half = (from.startWidth + (from.endWidth - from.startWidth) * share) / 2 / length;
      const double dx = (before.y - after.y) * half, dy = (after.x - before.x) * half;
      area.points.push_back({line[i].x + dx, line[i].y + dy});
      back.push_back({line[i].x - dx, line[i].y - dy});
    }
    area.points.insert(area.points.end(), back.rbegin(), back.rend());
    addLoop(area);
  }

  void addPattern(const HatchGeometry& hatch) {
    if (hatch.gradient) {
      OwnLook own = shapes_.looks[look_.look];
      own.look.trueColor = *hatch.gradient;
      own.color = LookFrom::kSelf;
      look_.look = static_cast<std::uint32_t>(shapes_.looks.size());
      shapes_.looks.push_back(own);
    }
    if (hatch.lines.empty()) return;
    look_.kind = SceneItemKind::kPattern;
    look_.pattern = static_cast<std::uint32_t>(shapes_.hatches.size());
    std::vector<SceneHatchLine>& lines = shapes_.hatches.emplace_back();
    for (const HatchGeometry::Line& line : hatch.lines) {
      const double angle = line.angle * kRadiansPerDegree;
      lines.push_back({view_.point({line.base.x, line.base.y}),
                       view_.vector({std::cos(angle), std::sin(angle)}),
                       view_.vector({line.offset.x, line.offset.y}), line.dashes});
    }
  }

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
  const TextStyles::Style* style_;
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
  looks.clear();
  hatches.clear();
}

void ShapeReader::addOne(RecordId entity, bool inBlock, BlockShapes& to) {
  const LayerLook layer = layers_.of(entity);
  if (layer.frozen && !layer.zero) return;
  Geometry geometry = drawing_.geometry(entity);
  if (isHidden(geometry, inBlock)) return;
  // What a reference on a layer that is off shows depends on the layers of the block's own objects.
  if (layer.off && !layer.zero && !std::holds_alternative<InsertGeometry>(geometry.shape)) return;
  Part look;
  look.onLayerZero = layer.zero;
  look.color = colorOf(drawing_, entity, layer);
  const TextStyles::Style* style = nullptr;
  if (styles_ != nullptr) {
    if (std::holds_alternative<std::monostate>(geometry.shape)) {
      ++undrawn_[std::string(drawing_.typeName(entity))];
      return;
    }
    look.look = static_cast<std::uint32_t>(to.looks.size());
    to.looks.push_back(ownLook(drawing_, entity, layer));
    style = &styleOf(entity, geometry);
  }
  std::visit(ShapeAdder(to, look, layer, geometry.normal, style), geometry.shape);
}

void ShapeReader::addPlain(const Geometry& geometry, BlockShapes& to) {
  std::visit(ShapeAdder(to, {}, {}, geometry.normal, nullptr), geometry.shape);
}

// Multiline texts have no width and no slant of their own.
const TextStyles::Style& ShapeReader::styleOf(RecordId entity, Geometry& geometry) {
  auto* text = std::get_if<TextGeometry>(&geometry.shape);
  static const TextStyles::Style kNone;
  if (text == nullptr) return kNone;
  const TextStyles::Style& style = styles_->of(drawing_.reference(entity, Property::kTextStyle));
  if (text->multiline) {
    text->widthFactor = style.widthFactor;
    text->oblique = style.oblique;
  }
  return style;
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
