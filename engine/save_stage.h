#pragma once
// Saving of the converted drawing under a new name and format, and its closing.

#include <string>

#include "engine/run_interfaces.h"

namespace kiv {

// The drawing's name without its extension, under the output folder, with the extension of the format.
std::wstring savedPathFor(const std::wstring& outputFolder, const std::wstring& drawingName, int saveFormat);

// A failed save is a problem; the drawing is closed all the same.
RunOutcome saveAndClose(const RunParameters& parameters, ProblemSink& problems);

}  // namespace kiv
