#pragma once
// What the module's reader makes of a CVT file, as lines for a person: the call `kivcvt check`, and what a
// conversion tells of its specification.

#include <string>

#include "cli/session.h"

namespace kivcli {

// Says on standard error why the file cannot be used, or tells of each line that the reader drops or warns
// of. Returns whether the file can be used.
bool reportSpecification(const std::wstring& file, const KivSpecificationReport& report);

int droppedLines(const KivSpecificationReport& report);
std::wstring droppedText(int lines);  // "1 line is dropped"

}  // namespace kivcli
