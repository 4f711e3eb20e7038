#include "embedded/graphics/dimensions/sketch.h"

namespace cad {

DimPicture drawOrdinate(const DimFigure& figure) { return Sketch(figure).take(); }

}  // namespace cad
