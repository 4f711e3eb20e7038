#pragma once
// Pictures of drawings for a report: a thousand of them have to fit into a page, and to be painted in hardly
// more time than the conversions take.

#include <cstddef>
#include <string>

#include "embedded/graphics/pictures/picture.h"

namespace kivcli {

inline constexpr int kThumbnailWidth = 480;     // pixels
inline constexpr int kMostThumbnailRows = 960;  // a drawing that is higher is painted narrower

// A PNG file of the picture, smaller than the picture where it would have more than `mostBytes`; one that is
// still too large at a fifth of the width is left as it is then.
std::string thumbnail(const cad::Picture& picture, std::size_t mostBytes);

}  // namespace kivcli
