#pragma once
// Choosing the drawings of a batch.

#include "platform/drawing_files.h"

namespace kiv {

// In the sibling's dialog, or in the system's file chooser, as the settings say and as there is one. The
// system's chooser has no choice of a format: it is the first that the host can save.
DrawingChoice chooseBatchDrawings();

}  // namespace kiv
