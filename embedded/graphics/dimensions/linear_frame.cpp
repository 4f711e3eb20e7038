#include "embedded/graphics/dimensions/linear_frame.h"

#include "embedded/graphics/dimensions/sketch.h"

namespace cad {
namespace {

constexpr double kSmallestSlope = 1e-9;
}  // namespace

LinearFrame::LinearFrame(const DimFigure& figure) : origins{figure.first, figure.second} {
  const bool aligned = figure.kind == DimFigure::Kind::kAligned;
  along = aligned ? unit(figure.second - figure.first) : direction(figure.rotation);
  const Vec upright = leftOf(along);
  Vec slope = upright;
  if (figure.oblique != 0) {
    const Vec leaning = direction(angleOf(along) + figure.oblique);
    // Extension lines along the dimension line would never meet it.
    if (std::abs(dot(leaning, upright)) > kSmallestSlope) slope = leaning;
  }
  for (std::size_t i = 0; i < 2; ++i) {
    // Measured from the point that the dimension line is given by, so that its rounding stays out of it.
    const double away = dot(figure.line - origins[i], upright) / dot(slope, upright);
    feet[i] = figure.oblique == 0 ? figure.line + dot(origins[i] - figure.line, along) * along
                                  : origins[i] + away * slope;
    onLine[i] = std::abs(away) < nearness(origins[i]);
    beyond[i] = away < 0 && !onLine[i] ? -slope : slope;
  }
  run = dot(feet[1] - feet[0], along) >= 0 ? along : -along;
  length = distance(feet[0], feet[1]);
  // Of points on the dimension line itself: what is above it.
  outward = onLine[0] && onLine[1] ? leftOf(direction(readable(angleOf(along)))) : beyond[onLine[0] ? 1 : 0];
}

}  // namespace cad
