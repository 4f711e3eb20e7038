#include "embedded/graphics/dimensions/sketch.h"

#include <algorithm>
#include <limits>

namespace cad {
namespace {

constexpr double kSameAngle = 1e-9;

}  // namespace

double readable(double angle) {
  constexpr double kQuarter = std::numbers::pi / 2;
  double turned = std::remainder(angle, 2 * std::numbers::pi);
  if (turned > kQuarter + kSameAngle) turned -= std::numbers::pi;
  if (turned <= -kQuarter + kSameAngle) turned += std::numbers::pi;
  return turned;
}

Sketch::Sketch(const DimFigure& figure) : figure_(figure), vars_(*figure.variables) {
  const double scale = figure.scale;
  const bool hasTicks = figure.arrows[0].isTick || figure.arrows[1].isTick;
  const double tick = hasTicks ? vars_.real(dimRow("DIMTSZ")) : 0;
  arrowSize = scale * (tick > 0 ? 2 * tick : vars_.real(dimRow("DIMASZ")));
  offset = scale * vars_.real(dimRow("DIMEXO"));
  extension = scale * vars_.real(dimRow("DIMEXE"));
  gap = scale * std::abs(vars_.real(dimRow("DIMGAP")));
  lineExtension = scale * vars_.real(dimRow("DIMDLE"));
  centreMark = scale * vars_.real(dimRow("DIMCEN"));
}

double Sketch::halfAlong(Vec lineDirection, double rotation) const {
  constexpr double kNever = std::numeric_limits<double>::infinity();
  const Vec text = direction(rotation);
  const double along = std::abs(dot(lineDirection, text)), across = std::abs(cross(lineDirection, text));
  const double bySide = along > kSameAngle ? (figure_.box.width / 2 + gap) / along : kNever;
  const double byTop = across > kSameAngle ? (figure_.box.height / 2 + gap) / across : kNever;
  return std::min(bySide, byTop);
}

double Sketch::halfAcross(Vec lineDirection, double rotation) const {
  const Vec text = direction(rotation);
  return (figure_.box.width * std::abs(cross(lineDirection, text)) +
          figure_.box.height * std::abs(dot(lineDirection, text))) /
         2;
}

double Sketch::readableLine(Vec lineDirection) const {
  return readable(angleOf(lineDirection) - horizontal()) + horizontal();
}

double Sketch::textAngle(Vec lineDirection, bool inside) const {
  // A rotation of the record's own is measured from the horizontal, and 0 means that it has none.
  if (figure_.textRotation != 0) return horizontal() + figure_.textRotation;
  return on(inside ? dimRow("DIMTIH") : dimRow("DIMTOH")) ? horizontal() : readableLine(lineDirection);
}

void Sketch::dimensionLine(Vec from, Vec to) {
  parts_.push_back({DimPart::Role::kDimensionLine, PlaneLine{from, to}});
}

void Sketch::dimensionArc(Vec centre, double radius, double start, double end) {
  parts_.push_back({DimPart::Role::kDimensionLine, PlaneArc{centre, radius, turn(start), turn(end)}});
}

void Sketch::extensionLine(int side, Vec from, Vec to) {
  const auto role = side == 1 ? DimPart::Role::kExtensionLine1 : DimPart::Role::kExtensionLine2;
  parts_.push_back({role, PlaneLine{from, to}});
}

void Sketch::centreLine(Vec from, Vec to) {
  parts_.push_back({DimPart::Role::kCentreMark, PlaneLine{from, to}});
}

void Sketch::arrow(int end, Vec tip, Vec points, Vec left) {
  if (arrowSize == 0) return;
  const ArrowHead& arrow = head(end);
  if (arrow.isTick) {
    // As the host's block of oblique strokes has it: half the size along the line, and half to its side.
    const Vec half = (arrowSize / 2) * (points + leftOf(points));
    parts_.push_back({DimPart::Role::kArrow, PlaneLine{tip - half, tip + half}});
  } else if (!arrow.block.empty()) {
    parts_.push_back({DimPart::Role::kArrow, PlaneArrow{arrow.block, tip, arrowSize, turn(angleOf(points))}});
  } else {
    const Vec base = tip - arrowSize * points;
    const Vec half = (arrowSize / 6) * left;
    parts_.push_back({DimPart::Role::kArrow, PlaneArea{base + half, base - half, tip}});
  }
}

void Sketch::text(Vec middle, double rotation) {
  if (!hasText()) return;
  // A text that is read from the right stands on its head in its place.
  const double reading = on(dimRow("DIMTXTDIRECTION")) ? turn(rotation + std::numbers::pi) : rotation;
  parts_.push_back({DimPart::Role::kText, PlaneText{middle, reading}});
  if (real(dimRow("DIMGAP")) >= 0) return;
  const Vec right = (figure_.box.width / 2 + gap) * direction(rotation);
  const Vec up = (figure_.box.height / 2 + gap) * leftOf(direction(rotation));
  const Vec corners[] = {middle - right - up, middle + right - up, middle + right + up, middle - right + up};
  for (int i = 0; i < 4; ++i) dimensionLine(corners[i], corners[(i + 1) % 4]);
}

void Sketch::point(DimPoint which) { parts_.push_back({DimPart::Role::kDefinitionPoint, which}); }

void Sketch::centreMarks(Vec centre, double radius) {
  const double half = std::abs(centreMark);
  if (half == 0) return;
  const auto stroke = [&](Vec along, double from, double to) {
    centreLine(centre + from * along, centre + to * along);
  };
  constexpr Vec kRight{1, 0}, kUp{0, 1};
  stroke(kRight, -half, half);
  stroke(kUp, -half, half);
  if (centreMark > 0 || radius + half <= 2 * half) return;
  // Centre lines begin a mark's size outside of the mark and end as far outside of the circle.
  for (const Vec along : {kRight, -kRight, kUp, -kUp}) stroke(along, 2 * half, radius + half);
}

DimPicture drawDimension(const DimFigure& figure) {
  using Kind = DimFigure::Kind;
  switch (figure.kind) {
    case Kind::kRotated:
    case Kind::kAligned:
      return drawLinear(figure);
    case Kind::kAngular:
    case Kind::kAngularPoints:
      return drawAngular(figure);
    case Kind::kRadial:
    case Kind::kDiametric:
      return drawRadius(figure);
    case Kind::kOrdinate:
      return drawOrdinate(figure);
    default:
      return {};
  }
}

}  // namespace cad
