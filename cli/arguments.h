#pragma once
// What the command line asks for.

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "base/save_format.h"

namespace kivcli {

struct CallRow;  // cli/options/calls.h
using base::SaveFormat;

// Every `count`-th drawing of a list, beginning with the one at `index`, which counts from 1.
struct Shard {
  int index = 1;
  int count = 1;
};

struct Arguments {
  const CallRow* call = nullptr;
  std::vector<std::wstring> words;    // the command line, for a process that shares the work
  bool isWorker = false;              // this is one: drawings come on standard input
  std::wstring specification;         // --spec
  std::wstring outputFolder;          // --out
  std::optional<SaveFormat> format;   // --format; none: each drawing keeps its own
  int blockScope = 0;                 // --block-scope
  bool ignoreLocks = false;           // --ignore-locks
  std::wstring logFolder;             // --log; empty: no log
  int jobs = 0;                       // --jobs; 0: as many as processors may be used
  int timeout = 0;                    // --timeout, in seconds; 0: none
  bool resume = false;                // --resume
  bool recursive = false;             // --recursive
  bool noSync = false;                // --no-sync
  std::wstring filesFrom;             // --files-from; "-": standard input
  Shard shard;                        // --shard
  std::wstring pictureFile;           // --out of picture
  std::wstring layout;                // --layout; empty: the current space
  int pictureWidth = 1600;            // --width, pixels
  std::wstring changedFrom;           // --changed; empty: nothing is marked
  bool isDryRun = false;              // --dry-run
  bool listsChanges = false;          // --changes
  std::vector<std::wstring> reports;  // --report: HTML or JSON by the file's name
  bool asJson = false;                // --json
  std::wstring entity;                // --entity, a handle; empty: none
  std::vector<std::wstring> files;    // what is no option: drawings, CVT files, the call to help with

  // Of the calls for CVT files.
  std::wstring outputFile;             // --out of a call that writes one file
  std::vector<std::wstring> drawings;  // --drawings
  bool checksOnly = false;             // --check
  bool dropsLines = false;             // --drop
};

// In front of the words of a process that shares the work. Nobody types it.
inline constexpr wchar_t kWorkerWord[] = L"--worker";

// `words` is the command line without the program's name. Options may stand among the files, as
// "--spec FILE" or "--spec=FILE"; "--" ends them. Refused: an unknown call or option, an option that the
// call does not take or that is given twice, a missing or bad value, no files or one without a name; the
// reason says what to do, in the user's language.
base::Result<Arguments> parseArguments(const std::vector<std::wstring>& words);

}  // namespace kivcli
