#pragma once
// What the command line asks for, and what it can be asked for.

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "base/save_format.h"

namespace kivcli {

enum class Call { kHelp, kVersion, kConvert, kCheck, kInfo };

using base::SaveFormat;

struct Arguments {
  Call call = Call::kHelp;
  std::wstring specification;        // --spec
  std::wstring outputFolder;         // --out
  std::optional<SaveFormat> format;  // --format; none: each drawing keeps its own
  int blockScope = 0;                // --block-scope
  bool ignoreLocks = false;          // --ignore-locks
  std::wstring logFolder;            // --log; empty: no log
  std::vector<std::wstring> files;   // drawings, or CVT files for check
};

// `words` is the command line without the program's name. Options may stand among the files, as
// "--spec FILE" or "--spec=FILE"; "--" ends them. Refused: an unknown call or option, an option that the
// call does not take or that is given twice, a missing or bad value, no files or one without a name; the
// reason says what to do.
base::Result<Arguments> parseArguments(const std::vector<std::wstring>& words);

// What `kivcvt help` and `kivcvt --version` print, without the last line end.
std::wstring usageText();
std::wstring versionText();

}  // namespace kivcli
