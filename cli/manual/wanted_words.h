#pragma once
// What may stand at a place of the command line, as the rows of calls and options name it.

#include <string>
#include <string_view>
#include <vector>

#include "cli/options/calls.h"

namespace kivcli {

struct WantedWord {
  std::vector<std::wstring> words;       // one of these
  std::vector<std::wstring> extensions;  // a file with one of these, "cvt"
  bool anyFile = false;
  bool folder = false;

  bool isFile() const { return anyFile || !extensions.empty(); }
};

// By an option's value, as "FILE.cvt", "DIR" or "0|1|2".
WantedWord wantedValue(std::wstring_view value);

// By a call's synopsis: what stands there without an option.
WantedWord wantedArgument(const CallRow& call);

}  // namespace kivcli
