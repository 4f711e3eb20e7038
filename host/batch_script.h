#pragma once
// The script by which the host opens one drawing of a batch after another and converts it.

#include <string>
#include <vector>

#include "base/result.h"

namespace kiv {

// False: what the host reads back from a script would be another path.
bool canStandInScript(const std::wstring& path);

// The lines for each drawing, by full paths that can stand there, in their order. One that cannot be opened
// for writing is to be opened for reading.
std::wstring batchScript(const std::vector<std::wstring>& drawings);

// The file in the host's folder for temporary files; the one of the last batch is replaced. UTF-16 behind a
// byte-order mark, CR LF.
std::wstring batchScriptFile();
base::Status writeBatchScript(const std::wstring& file, const std::wstring& text);

}  // namespace kiv
