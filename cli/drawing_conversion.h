#pragma once
// One drawing from file to file, through the module's own conversion command.

#include <string>

#include "base/result.h"
#include "cli/output_plan.h"
#include "cli/session.h"

namespace kivcli {

enum class Outcome { kConverted, kWithProblems, kNotConverted };

class DrawingConversion {
 public:
  // `logFile`: full path, or empty. The session and the arguments must outlive this object.
  DrawingConversion(Session& session, const Arguments& arguments, std::wstring logFile);

  // Opens, converts, saves and closes. Names on standard error what failed and what was left undone, and on
  // standard output the saved file.
  Outcome run(const PlannedDrawing& drawing);

  // False when some drawing is not in the log that was asked for, which was told once.
  bool isLogComplete() const { return isLogComplete_; }

 private:
  base::Status convertOpen(const PlannedDrawing& drawing);
  base::Status checkEnd(const PlannedDrawing& drawing);
  bool reportProblems(const PlannedDrawing& drawing) const;
  void reportLog();

  Session& session_;
  const Arguments& arguments_;
  std::wstring logFile_, specification_, outputFolder_;
  KivRunReport report_;  // of the newest run
  bool isLogComplete_ = true;
};

}  // namespace kivcli
