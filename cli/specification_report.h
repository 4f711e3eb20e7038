#pragma once
// What the reader made of a CVT file, as lines for a person.

#include <string>
#include <string_view>

#include "cli/session.h"

namespace kivcli {

// The path as the module's "full path": absolute.
std::wstring fullPath(const std::wstring& given);

// "FILE:LINE: SEVERITY: REASON: TEXT", or without the line for the whole file.
std::wstring diagnosticLine(const std::wstring& file, std::wstring_view severity,
                            const KivDiagnostic& diagnostic);

// Says on standard error why the file cannot be used, or warns about each line that the reader drops.
// Returns whether the file can be used.
bool reportSpecification(const std::wstring& file, std::wstring_view severity,
                         const KivSpecificationReport& report);

}  // namespace kivcli
