#pragma once
// One drawing from file to file, through the module's own conversion command.

#include <string>
#include <string_view>

#include "base/result.h"
#include "cli/convert/output_plan.h"
#include "cli/convert/run_facts.h"
#include "cli/reports/drawing_report.h"
#include "cli/session.h"

namespace kivcli {

cad::Handle handleOfText(std::wstring_view text);  // hexadecimal; 0: it is none

class DrawingConversion {
 public:
  // `logFile`: full path, or empty. With tests every condition is tried on every object, which takes time,
  // and reports tell how many met it. The session and the arguments must outlive this object.
  DrawingConversion(Session& session, const Arguments& arguments, std::wstring logFile, bool withTests);

  // Opens, converts, saves and closes; a dry run saves nothing, and its target may be empty. Prints nothing.
  // Needs no open drawing, and leaves none that it has opened.
  DrawingReport run(PlannedDrawing drawing);
  const RunFacts& facts() const { return facts_; }  // of the newest run

 private:
  base::Status convertOpen(const PlannedDrawing& drawing);
  base::Status checkEnd(const PlannedDrawing& drawing);
  bool takeProblems(DrawingReport& report) const;
  base::Status compareUnsaved(const PlannedDrawing& drawing, DrawingReport& report) const;
  base::Status compareWith(const PlannedDrawing& drawing, const cad::Drawing& after,
                           DrawingReport& report) const;
  void takePictures(const cad::Drawing& before, const cad::Drawing& after,
                    const cad::DrawingDifferences& differences, std::size_t mostBytes,
                    DrawingReport& report) const;
  base::Status compareSaved(const PlannedDrawing& drawing, DrawingReport& report) const;

  Session& session_;
  const Arguments& arguments_;
  std::wstring logFile_, specification_;
  RunFacts facts_;
  KivRunReport run_;  // of the newest run
};

}  // namespace kivcli
