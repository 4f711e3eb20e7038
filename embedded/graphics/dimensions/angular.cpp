#include "embedded/graphics/dimensions/sketch.h"

namespace cad {

DimPicture drawAngular(const DimFigure& figure) { return Sketch(figure).take(); }

}  // namespace cad
