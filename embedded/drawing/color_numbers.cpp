#include "embedded/drawing/color_numbers.h"

#include <cmath>
#include <limits>

namespace cad {
namespace {

constexpr Rgb kWhite = 0xFFFFFF;
constexpr Rgb kNamed[] = {kWhite,   0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                          0x0000FF, 0xFF00FF, kWhite,   0x808080, 0xC0C0C0};
constexpr Rgb kGreys[] = {0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0xFFFFFF};
constexpr int kFirstHue = 10, kFirstGrey = 250;
constexpr double kHueSteps = 24;
// By which true colours get their numbers; screens show most of them darker.
constexpr Brightness kOfNumbers = {255, 204, 153, 127, 76};

// One channel of a pure hue, 0 to 1: full for a third of the circle around `peak`, sloping to both sides.
double channel(double hue, double peak) {
  double distance = std::abs(hue - peak);
  if (distance > 0.5) distance = 1 - distance;
  const double value = 2 - 6 * distance;
  return value < 0 ? 0 : value > 1 ? 1 : value;
}

// Cut off, not rounded, as the numbers of the palette are; a full channel may lie a rounding error below 1.
Rgb level(double share, int brightness) { return static_cast<Rgb>(share * brightness + 1e-6); }

int channelOf(Rgb color, int shift) { return static_cast<int>(color >> shift & 0xFF); }

int distance(Rgb one, Rgb other) {
  int sum = 0;
  for (const int shift : {0, 8, 16}) {
    const int apart = channelOf(one, shift) - channelOf(other, shift);
    sum += apart * apart;
  }
  return sum;
}

std::array<Rgb, 256> colorsOfNumbers() {
  std::array<Rgb, 256> colors{};
  for (std::size_t number = 0; number < colors.size(); ++number)
    colors[number] = colorOfNumber(static_cast<std::uint8_t>(number), kOfNumbers);
  return colors;
}

}  // namespace

Rgb colorOfNumber(std::uint8_t number, const Brightness& brightness) {
  if (number < kFirstHue) return kNamed[number];
  if (number >= kFirstGrey) return kGreys[number - kFirstGrey];
  const double hue = (number / 10 - 1) / kHueSteps;
  const bool pale = number % 2 == 1;
  Rgb out = 0;
  for (const double peak : {0.0, 1.0 / 3, 2.0 / 3}) {
    const double pure = channel(hue, peak);
    out = out << 8 | level(pale ? (1 + pure) / 2 : pure, brightness[number % 10 / 2]);
  }
  return out;
}

std::uint8_t nearestColorNumber(Rgb color) {
  static const std::array<Rgb, 256> kColors = colorsOfNumbers();
  std::uint8_t nearest = 0;
  int least = std::numeric_limits<int>::max();
  for (std::size_t number = 1; number < kColors.size(); ++number) {
    const int apart = distance(color, kColors[number]);
    if (apart >= least) continue;
    least = apart;
    nearest = static_cast<std::uint8_t>(number);
  }
  return nearest;
}

}  // namespace cad
