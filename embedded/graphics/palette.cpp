#include "embedded/graphics/palette.h"

#include <cmath>
#include <initializer_list>

namespace cad {
namespace {

constexpr Rgb kWhite = 0xFFFFFF;
constexpr Rgb kNamed[] = {kWhite,   0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                          0x0000FF, 0xFF00FF, kWhite,   0x808080, 0xC0C0C0};
constexpr Rgb kGreys[] = {0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0xFFFFFF};
constexpr int kFirstHue = 10, kFirstGrey = 250;
// Ten numbers share a hue: five brightnesses, each pure and then half mixed with white.
constexpr int kBrightness[] = {255, 165, 127, 76, 38};
constexpr double kHueSteps = 24;

// One channel of a pure hue, 0 to 1: full for a third of the circle around `peak`, sloping to both sides.
double channel(double hue, double peak) {
  double distance = std::abs(hue - peak);
  if (distance > 0.5) distance = 1 - distance;
  const double value = 2 - 6 * distance;
  return value < 0 ? 0 : value > 1 ? 1 : value;
}

// Cut off, not rounded, as the numbers of the palette are; a full channel may lie a rounding error below 1.
Rgb level(double share, int brightness) { return static_cast<Rgb>(share * brightness + 1e-6); }

}  // namespace

Rgb paletteColor(std::uint8_t number) {
  if (number < kFirstHue) return kNamed[number];
  if (number >= kFirstGrey) return kGreys[number - kFirstGrey];
  const double hue = (number / 10 - 1) / kHueSteps;
  const int brightness = kBrightness[number % 10 / 2];
  const bool pale = number % 2 == 1;
  Rgb out = 0;
  for (const double peak : {0.0, 1.0 / 3, 2.0 / 3}) {
    const double pure = channel(hue, peak);
    out = out << 8 | level(pale ? (1 + pure) / 2 : pure, brightness);
  }
  return out;
}

}  // namespace cad
