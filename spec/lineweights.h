#pragma once
// The lineweights that there are, each once: as texts of conversion specifications and pickers, and as the
// host's numbers.

#include <span>

namespace kiv {

struct Lineweight {
  const wchar_t* text;
  int hundredths;  // of a millimetre; -1 ByLayer, -2 ByBlock, -3 Default
};

// The three words first, then the 24 widths, ascending.
std::span<const Lineweight> lineweights();

}  // namespace kiv
