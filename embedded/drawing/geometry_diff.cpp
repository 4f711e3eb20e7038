#include "embedded/drawing/geometry_diff.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "embedded/drawing/value_texts.h"

namespace cad {
namespace {

struct Part {
  const wchar_t* name = L"";
  Point at;           // a number is its x
  std::wstring text;  // of what is neither a point nor a number
  bool isPoint = false;

  bool operator==(const Part& other) const {
    return std::wstring_view(name) == other.name && text == other.text && nearlyEqual(at.x, other.at.x) &&
           nearlyEqual(at.y, other.at.y) && nearlyEqual(at.z, other.at.z);
  }
  std::wstring shown() const {
    if (!text.empty()) return std::wstring(name) + L" " + text;
    return std::wstring(name) + L" " + (isPoint ? pointText(at) : shortNumberText(at.x));
  }
};

// A geometry as a list of parts, in an order that depends on its form alone.
class Parts {
 public:
  std::vector<Part> of(const Geometry& geometry) {
    std::visit([this](const auto& shape) { add(shape); }, geometry.shape);
    point(L"normal", geometry.normal);
    return std::move(parts_);
  }

 private:
  void point(const wchar_t* name, const Point& at) { parts_.push_back({name, at, {}, true}); }
  void number(const wchar_t* name, double value) { parts_.push_back({name, {value, 0, 0}, {}}); }
  void text(const wchar_t* name, std::wstring value) {
    if (!value.empty()) parts_.push_back({name, {}, std::move(value)});
  }
  void points(const wchar_t* name, const std::vector<Point>& all) {
    for (const Point& at : all) point(name, at);
  }
  void numbers(const wchar_t* name, const std::vector<double>& all) {
    for (const double value : all) number(name, value);
  }

  void add(std::monostate) {}
  void add(const LineGeometry& line) { point(L"from", line.from), point(L"to", line.to); }
  void add(const PointGeometry& at) { point(L"at", at.at); }
  void add(const ArcGeometry& arc) {
    point(L"centre", arc.centre);
    number(L"radius", arc.radius), number(L"start", arc.start), number(L"end", arc.end);
  }
  void add(const EllipseGeometry& ellipse) {
    point(L"centre", ellipse.centre), point(L"axis", ellipse.majorAxis);
    number(L"ratio", ellipse.ratio), number(L"start", ellipse.start), number(L"end", ellipse.end);
  }
  void add(const PolylineGeometry& line) {
    if (line.closed) text(L"form", L"closed");
    for (const PolylineGeometry::Vertex& vertex : line.vertices) {
      point(L"vertex", vertex.at);
      number(L"bulge", vertex.bulge);
    }
  }
  void add(const MeshGeometry& mesh) {
    for (const std::vector<Point>& wire : mesh.wires) points(L"wire", wire);
  }
  void add(const SolidGeometry& solid) {
    for (const Point& corner : solid.corners) point(L"corner", corner);
  }
  void add(const SplineGeometry& spline) {
    number(L"degree", spline.degree);
    if (spline.closed) text(L"form", L"closed");
    points(L"control", spline.control), points(L"fit", spline.fit);
    numbers(L"knot", spline.knots), numbers(L"weight", spline.weights);
  }
  void add(const TextGeometry& shown) {
    point(L"at", shown.at);
    if (shown.side == TextGeometry::Side::kAligned || shown.side == TextGeometry::Side::kFit)
      point(L"second", shown.second);
    number(L"side", static_cast<double>(shown.side)), number(L"level", static_cast<double>(shown.level));
    number(L"oblique", shown.oblique);
    if (shown.backwards) text(L"form", L"backwards");
    if (shown.upsideDown) text(L"form", L"inverted");
    if (shown.hidden) text(L"form", L"hidden");
    if (shown.multiline) number(L"width", shown.frameWidth), number(L"spacing", shown.lineSpacing);
    text(L"prompt", shown.prompt);
  }
  void add(const InsertGeometry& insert) {
    point(L"at", insert.at), point(L"scale", insert.scale);
    number(L"columns", insert.columns), number(L"rows", insert.rows);
    number(L"spacing", insert.columnSpacing), number(L"spacing", insert.rowSpacing);
  }
  void add(const DimensionGeometry& dimension) {
    number(L"kind", static_cast<double>(dimension.kind));
    point(L"first", dimension.first), point(L"second", dimension.second), point(L"third", dimension.third);
    point(L"line", dimension.line), point(L"arc", dimension.arc), point(L"text", dimension.text);
    number(L"rotation", dimension.rotation), number(L"oblique", dimension.oblique);
    number(L"horizontal", dimension.horizontal);
    if (dimension.userText) text(L"form", L"placed");
    if (dimension.alongX) text(L"form", L"abscissa");
  }
  void add(const ViewportGeometry& viewport) {
    point(L"centre", viewport.centre);
    number(L"width", viewport.width), number(L"height", viewport.height);
    point(L"target", viewport.target), point(L"direction", viewport.direction);
    point(L"view", viewport.viewCentre);
    number(L"scale", viewport.viewHeight), number(L"twist", viewport.twist);
    if (!viewport.on) text(L"form", L"off");
  }
  void add(const HatchGeometry& hatch) {
    if (hatch.solid) text(L"form", L"solid");
    for (const HatchGeometry::Path& path : hatch.paths) {
      number(L"edges", static_cast<double>(path.edges.size()));
      for (const auto& edge : path.edges) std::visit([this](const auto& shape) { add(shape); }, edge);
    }
  }

  std::vector<Part> parts_;
};

void addShown(std::wstring& text, const Part* part, std::size_t shown) {
  constexpr std::size_t kMost = 4;
  if (part == nullptr || shown > kMost) return;
  if (!text.empty()) text += L"; ";
  text += shown == kMost ? std::wstring(L"...") : part->shown();
}

}  // namespace

std::pair<std::wstring, std::wstring> geometryChange(const Drawing& before, RecordId one,
                                                     const Drawing& after, RecordId other) {
  const std::vector<Part> from = Parts().of(before.geometry(one));
  const std::vector<Part> to = Parts().of(after.geometry(other));
  std::pair<std::wstring, std::wstring> change;
  std::size_t shown = 0;
  for (std::size_t i = 0; i < std::max(from.size(), to.size()); ++i) {
    const Part* left = i < from.size() ? &from[i] : nullptr;
    const Part* right = i < to.size() ? &to[i] : nullptr;
    if (left != nullptr && right != nullptr && *left == *right) continue;
    addShown(change.first, left, shown);
    addShown(change.second, right, shown);
    ++shown;
  }
  return change;
}

}  // namespace cad
