#pragma once
// Converts the drawings that it is handed, one after another: in a process of its own, whose end harms nobody
// else, or in this one.

#include "base/child_process.h"
#include "cli/convert/drawing_conversion.h"

namespace kivcli {

class Worker {
 public:
  // The session and the arguments must outlive this object.
  Worker(Session& session, const Arguments& arguments);

  // What the log gets stands in the report: it has one file for the drawings of all workers. Of a drawing
  // that is refused the report has the reason as its message, and nothing is saved.
  DrawingReport convert(const PlannedDrawing& drawing);

  // Until there are no more requests. Returns the exit status of the process.
  int serve(base::RequestChannel& channel);

 private:
  void takeLogEntries(DrawingReport& report) const;

  std::wstring ownLog_;  // empty: no log is wanted
  DrawingConversion conversion_;
};

}  // namespace kivcli
