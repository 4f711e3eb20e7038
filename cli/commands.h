#pragma once
// The calls of kivcvt. Each returns the program's exit status.

#include "cli/arguments.h"

namespace kivcli {

inline constexpr int kAllDone = 0;
inline constexpr int kSomeFailed = 1;  // each failure was named on standard error
inline constexpr int kUnusable = 2;    // the command line, the CVT file or the installation
// By Ctrl-C. Where there are signals the program ends by the one that interrupted it instead.
inline constexpr int kInterrupted = 130;

int runConvert(const Arguments& arguments);
int runCheck(const Arguments& arguments);
int runFmt(const Arguments& arguments);
int runLearn(const Arguments& arguments);
int runInfo(const Arguments& arguments);
int runPicture(const Arguments& arguments);
int runExplain(const Arguments& arguments);
int runDiff(const Arguments& arguments);  // kSomeFailed: there are differences

}  // namespace kivcli
