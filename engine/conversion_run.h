#pragma once
// One conversion run: a specification applied to the drawing that is current, up to the saved file.

#include <string>

#include "base/save_format.h"
#include "engine/problems.h"
#include "engine/run_observer.h"

namespace kiv {

struct RunParameters {
  std::wstring specification;  // full path; empty: the run refuses
  std::wstring outputFolder;   // with its trailing separator; empty: neither saved nor closed
  base::SaveFormat saveFormat = base::SaveFormat::kDwg;
  const KivRunObserver* observer = nullptr;  // mostly nobody
};

enum class RunEnd { kConverted, kNoSpecification, kSpecificationUnreadable, kEmptyDrawing };

struct RunOutcome {
  RunEnd end = RunEnd::kConverted;
  std::wstring savedPath = {};  // empty: nothing was saved
  bool isClosed = false;        // the drawing, whether its save succeeded or not
};

// Asks the user nothing. Everything between the first and the last stage is one undo group. Refusals are
// printed on the command line and are problems, as is a failed save; a drawing without entities is left alone
// without a word.
RunOutcome runConversion(const RunParameters& parameters, ProblemSink& problems);

}  // namespace kiv
