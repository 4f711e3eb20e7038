#pragma once
// The pattern of a linetype along a line.

#include <functional>
#include <span>

#include "embedded/drawing/linetype_pattern.h"
#include "embedded/graphics/pictures/pixel_view.h"

namespace cad {

// A pattern that nobody could tell from a continuous line, or one that would not come to an end.
inline constexpr double kLeastPeriod = 1.5;  // pixels
inline constexpr double kMostPeriods = 20000;

struct DashSink {
  std::function<void(std::span<const PixelPoint>)> dash;  // a single point: a dot
  // At the end of a dash; `along` is the line's direction there, of length 1.
  std::function<void(const DashSymbol& symbol, PixelPoint at, PixelPoint along)> symbol;
};

// Along the whole line, its corners included; a closed one ends with its first point. A line begins and ends
// with equal pieces of the first dash; one that is too short for the pattern is continuous. False when the
// pattern, `scale` pixels to its unit, cannot be drawn: nothing is then.
bool drawDashes(std::span<const PixelPoint> line, std::span<const Dash> pattern, double scale,
                const DashSink& sink);

}  // namespace cad
