#pragma once
// The lines of a hatch within its boundary.

#include <functional>
#include <span>
#include <vector>

#include "embedded/graphics/pictures/pixel_view.h"

namespace cad {

inline constexpr double kLeastHatchStep = 1;             // pixels between lines that can be told apart
inline constexpr std::size_t kMostHatchPieces = 200000;  // of one hatch

// The pieces of all lines that lie in the boundary (closed loops, even-odd), a dot as a single point. False,
// and nothing is drawn, when the lines lie too close together, would be too many, or begin so far
// off that numbers cannot tell where they are.
bool drawHatchLines(std::span<const SceneHatchLine> lines, std::span<const std::vector<PixelPoint>> boundary,
                    const PixelView& view, const std::function<void(std::span<const PixelPoint>)>& draw);

}  // namespace cad
