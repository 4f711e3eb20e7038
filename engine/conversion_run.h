#pragma once
// One conversion run: a specification applied to the drawing that is current.

#include "engine/run_interfaces.h"

namespace kiv {

// Asks the user nothing. Everything between the first and the last stage is one undo group. Refusals are
// printed on the command line and are problems; a drawing without entities is left alone without a word.
RunOutcome runConversion(const RunParameters& parameters, ProblemSink& problems);

}  // namespace kiv
