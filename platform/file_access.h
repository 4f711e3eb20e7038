#pragma once
// What may be done with a file, as the system tells.

#include <string>

namespace kiv {

// True when the file exists and opens for writing; where programs keep others off the files that they have
// open, with nobody else at it. Nothing of it changes, not even its time.
bool canBeWritten(const std::wstring& path);

}  // namespace kiv
