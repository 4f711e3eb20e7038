#pragma once
// One conversion run: a specification applied to the drawing that is current, up to the saved file.

#include <string>

#include "engine/problems.h"

namespace kiv {

struct RunParameters {
  std::wstring specification;  // full path; empty: the run refuses
  std::wstring outputFolder;   // with its trailing separator; empty: neither saved nor closed
  int saveFormat = 0;          // 0 DWG, 1 DXF, 2 DWT
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

// The name of the file that a drawing of this name (without its folder) is saved as: with the extension of
// the format in place of one of three characters.
std::wstring savedName(const std::wstring& drawingName, int saveFormat);

}  // namespace kiv
