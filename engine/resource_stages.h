#pragma once
// Stages that bring resources into the drawing before anything is converted. Entries are taken in list
// order; one that cannot be had never stops the run.

#include "engine/run_state.h"

namespace kiv {

// Built-in arrowheads by name, others from drawing files.
void loadArrows(RunState& run);
// "variable,value" or "variable=value": the drawing's current dimension settings.
void setDimensionVariables(RunState& run);
// "linetype file,linetype"; one that the drawing has is not loaded again.
void loadLinetypes(RunState& run);
// "style,font" or "style,font,big font": made, or given another font.
void setUpTextStyles(RunState& run);

}  // namespace kiv
