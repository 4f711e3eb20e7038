#pragma once
// Colours and transparency.

#include "acadstrc.h"
#include "adesk.h"

// A colour: by layer, by block, an index 1..255 of the host's palette, or red, green and blue.
class AcCmEntityColor {
 public:
  enum ColorMethod { kByLayer = 0xC0, kByBlock = 0xC1, kByColor = 0xC2, kByACI = 0xC3, kNone = 0xC8 };
  static constexpr Adesk::UInt16 kACIbyBlock = 0, kACIbyLayer = 256, kACInone = 257;

  ColorMethod colorMethod() const { return method_; }
  bool isByLayer() const { return method_ == kByLayer; }
  bool isByBlock() const { return method_ == kByBlock; }
  bool isByACI() const { return method_ == kByACI; }
  bool isByColor() const { return method_ == kByColor; }

  // 0 by block, 1..255, 256 by layer, 257 none (a colour given by red, green and blue).
  Adesk::UInt16 colorIndex() const;
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);  // eInvalidInput above 256
  Acad::ErrorStatus setColorMethod(ColorMethod method);
  Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);
  Adesk::UInt8 red() const { return red_; }
  Adesk::UInt8 green() const { return green_; }
  Adesk::UInt8 blue() const { return blue_; }

  bool operator==(const AcCmEntityColor&) const = default;

 private:
  ColorMethod method_ = kByLayer;
  Adesk::UInt8 index_ = 7, red_ = 0, green_ = 0, blue_ = 0;
};

class AcCmColor : public AcCmEntityColor {};

// How much of what lies behind an object shows through: by layer, by block, or an alpha of its own.
class AcCmTransparency {
 public:
  enum transparencyMethod { kByLayer = 0, kByBlock = 1, kByAlpha = 2, kErrorValue = 3 };

  AcCmTransparency() = default;  // by layer
  explicit AcCmTransparency(Adesk::UInt8 alpha) { setAlpha(alpha); }
  explicit AcCmTransparency(double alphaPercent) { setAlphaPercent(alphaPercent); }
  explicit AcCmTransparency(transparencyMethod method) { setMethod(method); }

  transparencyMethod method() const { return method_; }
  void setMethod(transparencyMethod method) { method_ = method; }
  bool isByLayer() const { return method_ == kByLayer; }
  bool isByBlock() const { return method_ == kByBlock; }
  bool isByAlpha() const { return method_ == kByAlpha; }
  bool isInvalid() const { return method_ == kErrorValue; }
  bool isClear() const { return isByAlpha() && alpha_ == 0; }
  bool isSolid() const { return isByAlpha() && alpha_ == 255; }

  // 0 clear .. 255 solid; meaningful only by alpha.
  Adesk::UInt8 alpha() const { return alpha_; }
  void setAlpha(Adesk::UInt8 alpha);
  // The same as a fraction of opacity, 0.0 clear .. 1.0 solid, cut down to a whole alpha. A fraction
  // outside that range makes the transparency invalid, and no object takes it.
  double alphaPercent() const { return alpha_ / 255.0; }
  void setAlphaPercent(double fraction);

  bool operator==(const AcCmTransparency&) const = default;

 private:
  transparencyMethod method_ = kByLayer;
  Adesk::UInt8 alpha_ = 255;
};
