#include <algorithm>

#include "embedded/graphics/dimensions/angular_text.h"

namespace cad {
namespace {

// The dimension arc is what the dimension line is elsewhere. It ends at the extension lines with strokes,
// too: DIMDLE is for straight ones.
class AngularDimension {
 public:
  AngularDimension(const DimFigure& figure, const MeasuredArc& arc)
      : sketch_(figure), arc_(arc), text_(standAngularText(sketch_, arc_)) {}
  DimPicture draw();

 private:
  static int way(int end) { return end == 1 ? -1 : 1; }  // outwards
  bool wanted(int end) const { return !sketch_.on(end == 1 ? dimRow("DIMSD1") : dimRow("DIMSD2")); }
  double arrowAngle() const { return arc_.overChord(sketch_.arrowSize); }
  double cutAngle(int end) const { return sketch_.cut(end) > 0 ? arrowAngle() : 0; }

  void extensionLine(int end);
  void piece(double from, double to);
  void innerArc(double from, double to);
  void outerArc(int end);
  void arrow(int end);

  Sketch sketch_;
  MeasuredArc arc_;
  AngularText text_;
};

// From the thing that is measured towards the arc and beyond it; nothing where the arc runs through it.
void AngularDimension::extensionLine(int end) {
  if (sketch_.on(end == 1 ? dimRow("DIMSE1") : dimRow("DIMSE2"))) return;
  const MeasuredArc::Reach reach = arc_.reaches[static_cast<std::size_t>(end) - 1];
  const double radius = arc_.radius, same = 1e-9 * radius;
  const bool outwards = reach.to < radius - same;
  if (!outwards && reach.from <= radius + same) return;
  const int sense = outwards ? 1 : -1;
  double from = (outwards ? reach.to : reach.from) + sense * sketch_.offset;
  if (sketch_.on(dimRow("DIMFXLON"))) {  // the offset is the least distance, then
    const double fixed = radius - sense * sketch_.figure().scale * sketch_.real(dimRow("DIMFXL"));
    from = outwards ? std::max(from, fixed) : std::min(from, fixed);
  }
  const double past = text_.overExtension == end ? text_.extensionBeyond : 0;
  // Inwards it ends in the vertex at the latest.
  const double to = std::max(0.0, radius + sense * std::max(sketch_.extension, past));
  const Vec ray = direction(arc_.angle(end));
  sketch_.extensionLine(end, arc_.vertex + from * ray, arc_.vertex + to * ray);
}

void AngularDimension::piece(double from, double to) {
  if (from < to) sketch_.dimensionArc(arc_.vertex, arc_.radius, from, to);
}

// In two pieces where the text breaks it; without one of them where that is suppressed, and then a whole arc
// ends at the text's middle.
void AngularDimension::innerArc(double from, double to) {
  const bool breaks = text_.breaksArc;
  if (!breaks && wanted(1) && wanted(2)) return piece(from, to);
  const double middle = text_.fit.textInside && !text_.leader ? text_.place : arc_.middle();
  const double below = breaks ? edgeOfText(sketch_, arc_, text_, -1) : middle;
  const double above = breaks ? edgeOfText(sketch_, arc_, text_, 1) : middle;
  if (wanted(1)) piece(from, std::min(below, to));
  if (wanted(2)) piece(std::max(above, from), to);
}

// Beyond an extension line: what an arrow outside stands on, or the way to the text.
void AngularDimension::outerArc(int end) {
  const bool isToText = !text_.fit.textInside && end == text_.side(arc_);
  if ((text_.fit.arrowsInside && !isToText) || text_.fit.arrowsDropped || !wanted(end)) return;
  const double from = arc_.angle(end) + (text_.fit.arrowsInside ? 0 : way(end) * cutAngle(end));
  const double to = isToText ? text_.reach : from + way(end) * arrowAngle();
  end == 1 ? piece(to, from) : piece(from, to);
}

void AngularDimension::arrow(int end) {
  if (!wanted(end) || text_.fit.arrowsDropped) return;
  const double tip = arc_.angle(end);
  const int toBase = text_.fit.arrowsInside ? -way(end) : way(end);
  const Vec points = -toBase * arc_.tangent(tip + toBase * arrowAngle() / 2);  // along the chord
  sketch_.arrow(end, arc_.at(tip), points, leftOf(points));
}

DimPicture AngularDimension::draw() {
  extensionLine(1);
  extensionLine(2);
  const Fit& fit = text_.fit;
  const int last = text_.side(arc_), first = 3 - last;
  if (fit.arrowsInside) innerArc(arc_.start + cutAngle(1), arc_.end() - cutAngle(2));
  outerArc(first);
  outerArc(last);
  if (!fit.arrowsInside && sketch_.on(dimRow("DIMTOFL"))) innerArc(arc_.start, arc_.end());
  if (text_.leader) drawLeader(sketch_, *text_.leader);
  const bool swapped = !fit.arrowsInside && first == 2;
  arrow(swapped ? 2 : 1);
  arrow(swapped ? 1 : 2);
  sketch_.text(text_.middle, text_.rotation);
  if (sketch_.figure().kind == DimFigure::Kind::kAngular) sketch_.point(DimPoint::kArc);
  for (const DimPoint point : {DimPoint::kThird, DimPoint::kFirst, DimPoint::kSecond, DimPoint::kLine}) {
    sketch_.point(point);
  }
  return sketch_.take();
}

}  // namespace

DimPicture drawAngular(const DimFigure& figure) {
  const std::optional<MeasuredArc> arc = measuredArc(figure);
  return arc ? AngularDimension(figure, *arc).draw() : DimPicture{};
}

}  // namespace cad
