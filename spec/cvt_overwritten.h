#pragma once
// Results of a specification whose value never stays, since a later result writes another one to all that
// they are written to.

#include "spec/cvt_parser.h"

namespace kiv {

// Adds a warning for each. Only what is certain is told: a result is left out when a later condition could
// ask for what it writes, or when what comes later depends on it.
void findOverwritten(ParsedCvt& parsed);

}  // namespace kiv
