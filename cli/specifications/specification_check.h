#pragma once
// What the module's reader makes of a CVT file, as lines for a person: for the calls that deal with CVT
// files, and for conversions.

#include <string>
#include <vector>

#include "cli/session.h"

namespace kivcli {

// Says on standard error why the file cannot be used, or tells of each line that the reader drops or warns
// of. Returns whether the file can be used.
bool reportSpecification(const std::wstring& file, const KivSpecificationReport& report);

std::vector<std::wstring> diagnosticLines(const std::wstring& file, const KivSpecificationReport& report);

// The same lines for diagnostics alone.
void complainOfLines(const std::wstring& file, const KivDiagnostic* diagnostics, int count);

// `one` stands for 1, `many` has "%1" for the number.
std::wstring counted(int count, const wchar_t* one, const wchar_t* many);

int droppedLines(const KivSpecificationReport& report);
std::wstring droppedText(int lines);  // "1 line is dropped"

}  // namespace kivcli
