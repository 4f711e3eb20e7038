#pragma once
// Where the text of an angular dimension stands.

#include <optional>

#include "embedded/graphics/dimensions/fit.h"
#include "embedded/graphics/dimensions/measured_arc.h"

namespace cad {

// Places along the arc are angles that ascend from its end 1 to its end 2, and go on outside of it.
struct AngularText {
  Fit fit;
  double place = 0;
  Vec middle;
  double rotation = 0;
  bool breaksArc = false;
  double reach = 0;  // of a text outside: as far the arc goes towards it
  // The extension line that the text stands over, 1 or 2, and how far it runs past the arc under it.
  int overExtension = 0;
  double extensionBeyond = 0;
  std::optional<Leader> leader;  // from the middle of the arc

  // The end beyond which the text stands; 2 if it stands inside.
  int side(const MeasuredArc& arc) const { return !fit.textInside && place < arc.start ? 1 : 2; }
};

AngularText standAngularText(const Sketch& sketch, const MeasuredArc& arc);

// Where the arc leaves the box of a text that breaks it, with its gaps: `towards` 1 or -1.
double edgeOfText(const Sketch& sketch, const MeasuredArc& arc, const AngularText& text, int towards);

}  // namespace cad
