#pragma once
// What a conversion run is handed from above: what to convert by, and where to report.

#include <functional>
#include <string>

namespace kiv {

enum class RefusalReason { kOther, kNoSuchName, kNotInThisVersion, kBadValue, kNotForObject, kNoSuchFile };
inline constexpr int kRefusalCount = 6;
inline constexpr int kOfTheDrawing = 0;  // in place of a count: a variable of the drawing itself

class ProblemSink {
 public:
  virtual ~ProblemSink() = default;
  // A line for the log. The sink drops repeated ones.
  virtual void addProblem(const std::wstring& text) = 0;
  // `count` objects or layers, or the drawing, refused a result: not a problem of the log. The sink adds up
  // equal notes. `kind` is the item's key, a dimension variable's name, or the name of the section of a
  // list's entry.
  virtual void addNote(const std::wstring& kind, const std::wstring& value, RefusalReason reason,
                       int count) = 0;
};

struct RunParameters {
  std::wstring specification;           // full path; empty: the run refuses
  std::wstring outputFolder;            // with its trailing separator; empty: neither saved nor closed
  int saveFormat = 0;                   // 0 DWG, 1 DXF, 2 DWT
  std::function<void()> converted;      // called while the converted drawing is still open; may be empty
  std::function<void()> drawingClosed;  // called after the saved drawing was closed; may be empty
};

enum class RunEnd { kConverted, kNoSpecification, kSpecificationUnreadable, kEmptyDrawing };

struct RunOutcome {
  RunEnd end = RunEnd::kConverted;
  std::wstring savedPath;  // empty: nothing was saved
};

}  // namespace kiv
