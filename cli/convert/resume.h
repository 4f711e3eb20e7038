#pragma once
// Which drawings an earlier run has already converted.

#include <filesystem>

#include "cli/convert/output_plan.h"

namespace kivcli {

class EarlierRun {
 public:
  // The CVT file counts together with the text search lists beside it.
  explicit EarlierRun(const std::filesystem::path& specification);

  // Whether the drawing's target is newer than the drawing and the rules, and is not empty. A file that was
  // written in the same moment is not: who wrote first cannot be told.
  bool hasDone(const PlannedDrawing& drawing) const;

 private:
  std::filesystem::file_time_type rules_{};
};

// Makes the target look no newer than its drawing, so that a later run converts that again.
void leaveForResume(const PlannedDrawing& drawing);

}  // namespace kivcli
