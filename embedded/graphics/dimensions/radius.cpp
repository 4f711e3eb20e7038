#include "embedded/graphics/dimensions/sketch.h"

namespace cad {

DimPicture drawRadius(const DimFigure& figure) { return Sketch(figure).take(); }

}  // namespace cad
