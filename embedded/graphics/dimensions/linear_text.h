#pragma once
// Where the text of a linear dimension stands.

#include <optional>

#include "embedded/graphics/dimensions/fit.h"
#include "embedded/graphics/dimensions/linear_frame.h"

namespace cad {

struct LinearText {
  Fit fit;
  // Outside it is the line beyond an extension line that decides on the rest.
  TextStand stand;
  double place = 0;         // along the dimension line, from the first foot
  Vec middle;               // of a text that is not outside
  bool breaksLine = false;  // the line between the extension lines
  // The extension line that the text stands over, 1 or 2, and how far it runs past its foot under it.
  int overExtension = 0;
  double extensionBeyond = 0;
  std::optional<Leader> leader;  // from the middle of the dimension line
};

LinearText standLinearText(const Sketch& sketch, const LinearFrame& frame);

// The end of the dimension line, 1 or 2, beyond which a text goes that is outside.
int sideOutside(const Sketch& sketch, const LinearText& text);

}  // namespace cad
