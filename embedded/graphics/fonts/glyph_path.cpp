#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

void GlyphPath::scale(double by) {
  for (Piece& piece : pieces)
    for (double* value : {&piece.x, &piece.y, &piece.x1, &piece.y1, &piece.x2, &piece.y2}) *value *= by;
}

}  // namespace cad
