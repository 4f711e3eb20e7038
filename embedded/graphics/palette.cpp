#include "embedded/graphics/palette.h"

namespace cad {

Rgb paletteColor(std::uint8_t number) {
  constexpr Brightness kShown = {255, 165, 127, 76, 38};
  return colorOfNumber(number, kShown);
}

}  // namespace cad
