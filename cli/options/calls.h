#pragma once
// The calls of the program with their options: the one place that the parser, the help, the man page and the
// completion of shells take them from. A file for each group of calls; texts are in English and go through
// tr() where they are shown.

#include <span>
#include <string>
#include <string_view>

#include "base/result.h"
#include "cli/arguments.h"

namespace kivcli {

struct OptionRow {
  const wchar_t* name;   // "--spec"
  const wchar_t* value;  // how the help names the value, "FILE.cvt"; empty: a switch
  const wchar_t* help;   // what it does, without a full stop at the end
  // Hands the value over. A failure without a place gets the option and the value as its place.
  base::Status (*take)(Arguments&, const std::wstring& value);
  bool repeats = false;  // may be given more than once
};

struct CallRow {
  const wchar_t* name;
  const wchar_t* synopsis;  // what follows the name, "[OPTION...] DRAWING..."
  const wchar_t* summary;   // what it does, in one line
  const wchar_t* notes;     // what else a reader of the help should know; may be empty
  std::span<const OptionRow> options;
  std::span<const wchar_t* const> examples;         // whole command lines
  base::Status (*check)(const Arguments&);          // whether the call is complete
  int (*run)(const Arguments&);                     // the exit status
  std::span<const wchar_t* const> otherNames = {};  // "--help" of "help"
};

// In the order of the help.
std::span<const CallRow* const> calls();
const CallRow* findCall(std::wstring_view name);  // also by its other names; null: there is none

// One for each group.
std::span<const CallRow> convertCalls();
std::span<const CallRow> inspectCalls();
std::span<const CallRow> specificationCalls();
std::span<const CallRow> programCalls();

// Without the last line end.
std::wstring programHelp();
std::wstring callHelp(const CallRow& call);

}  // namespace kivcli
