#pragma once
// The script by which the host opens one drawing of a batch after another and converts it.

#include <string>
#include <vector>

namespace kiv {

// False: what the host reads back from a script would be another path.
bool canStandInScript(const std::wstring& path);

// The lines for each drawing, by full paths that can stand there, in their order. One that cannot be opened
// for writing is to be opened for reading.
std::wstring batchScript(const std::vector<std::wstring>& drawings);

// The host runs it when the running command has ended, in place of a script that is under way or suspended;
// an empty one ends that. Stands in the file DWGOPEN.SCR of the folder for temporary files, where it replaces
// the last one, as UTF-16 behind a byte-order mark with CR LF. False: not written, or refused by the host,
// which the command line tells.
bool startScript(const std::wstring& text);

}  // namespace kiv
