#pragma once
// What a conversion run is handed from above: what to convert by, and where to report.

#include <functional>
#include <string>

namespace kiv {

enum class RefusalReason { kOther, kNoSuchName, kNotInThisVersion, kBadValue, kNotForObject, kNoSuchFile };
inline constexpr int kRefusalCount = 6;

enum class Refuser { kObject, kLayer, kDrawing };  // the drawing: its variables and its text styles

// A result or an entry that the host refused.
struct RefusalNote {
  std::wstring kind;  // the item's key, a dimension variable's name, or the section of a list's entry
  std::wstring value;
  RefusalReason reason = RefusalReason::kOther;
  int count = 1;  // how many objects or layers refused it
  Refuser by = Refuser::kObject;

  bool operator==(const RefusalNote&) const = default;
};

class ProblemSink {
 public:
  virtual ~ProblemSink() = default;
  // For the log, which has no reasons, and for a person, who reads the reason too.
  void addProblem(const std::wstring& text, const std::wstring& reason = {}) {
    addToLog(text);
    addToReport(reason.empty() ? text : text + L": " + reason);
  }
  // A line for the log alone: a note tells a person the same and more. The sink drops repeated lines.
  virtual void addToLog(const std::wstring& text) = 0;
  virtual void addToReport(const std::wstring& text) = 0;
  // Nothing for the log. The sink adds up notes that differ in their count alone.
  virtual void addNote(const RefusalNote& refusal) = 0;
};

struct RunParameters {
  std::wstring specification;  // full path; empty: the run refuses
  std::wstring outputFolder;   // with its trailing separator; empty: neither saved nor closed
  int saveFormat = 0;          // 0 DWG, 1 DXF, 2 DWT
  // Called before the drawing is saved and closed, and the command line of its document with it; may be
  // empty.
  std::function<void()> converted;
};

enum class RunEnd { kConverted, kNoSpecification, kSpecificationUnreadable, kEmptyDrawing };

struct RunOutcome {
  RunEnd end = RunEnd::kConverted;
  std::wstring savedPath = {};  // empty: nothing was saved
  bool isClosed = false;        // the drawing, whether its save succeeded or not
};

}  // namespace kiv
