#include "embedded/graphics/dimensions/sketch.h"

namespace cad {

DimPicture drawLinear(const DimFigure& figure) { return Sketch(figure).take(); }

}  // namespace cad
