#pragma once
// What the reader made of a CVT file, as lines for a person.

#include <string>

#include "cli/session.h"

namespace kivcli {

// The path as the module's "full path": absolute.
std::wstring fullPath(const std::wstring& given);

// "FILE:LINE: dropped: REASON: TEXT" or "FILE:LINE: warning: ...", without the line for the whole file.
std::wstring diagnosticLine(const std::wstring& file, const KivDiagnostic& diagnostic);

// Says on standard error why the file cannot be used, or tells of each line that the reader drops or warns
// of. Returns whether the file can be used.
bool reportSpecification(const std::wstring& file, const KivSpecificationReport& report);

int droppedLines(const KivSpecificationReport& report);
std::wstring droppedText(int lines);  // "1 line is dropped"

std::wstring counted(int count, const wchar_t* one, const wchar_t* many);

}  // namespace kivcli
