#include "dbcolor.h"

#include <cmath>

Adesk::UInt16 AcCmEntityColor::colorIndex() const {
  switch (method_) {
    case kByLayer:
      return kACIbyLayer;
    case kByBlock:
      return kACIbyBlock;
    case kByACI:
      return index_;
    default:
      return kACInone;
  }
}

Acad::ErrorStatus AcCmEntityColor::setColorIndex(Adesk::UInt16 index) {
  if (index > kACIbyLayer) return Acad::eInvalidInput;
  *this = AcCmEntityColor();
  method_ = index == kACIbyLayer ? kByLayer : index == kACIbyBlock ? kByBlock : kByACI;
  if (method_ == kByACI) index_ = static_cast<Adesk::UInt8>(index);
  return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setColorMethod(ColorMethod method) {
  if (method != kByLayer && method != kByBlock && method != kByColor && method != kByACI && method != kNone)
    return Acad::eInvalidInput;
  method_ = method;
  return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) {
  *this = AcCmEntityColor();
  method_ = kByColor;
  red_ = red;
  green_ = green;
  blue_ = blue;
  return Acad::eOk;
}

void AcCmTransparency::setAlpha(Adesk::UInt8 alpha) {
  method_ = kByAlpha;
  alpha_ = alpha;
}

void AcCmTransparency::setAlphaPercent(double fraction) {
  if (!(fraction >= 0.0 && fraction <= 1.0)) {
    method_ = kErrorValue;
    return;
  }
  // The small addend keeps 0.2 * 255 and its like from falling below the whole number that they are.
  setAlpha(static_cast<Adesk::UInt8>(std::floor(fraction * 255.0 + 1e-9)));
}
