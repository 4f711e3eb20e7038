#pragma once
// The problems of a run: what a host refused and why, the lines for the log and for the command line, and
// whom they are told to.

#include <cstddef>
#include <string>

#include "acadstrc.h"

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
  // The conversion is done. The drawing is still open, and the command line of its document with it; what is
  // told from now on is about its save.
  virtual void endOfConversion() {}
};

RefusalReason refusalOf(Acad::ErrorStatus status);

// --- The texts

inline constexpr const wchar_t* kAloneProblem = L"このコマンドは単独では実行できません";

std::wstring unreadableProblem(const std::wstring& path);
// `reason` as the reader of such lists words it.
std::wstring textListProblem(const std::wstring& path, const std::wstring& reason);
// Only the first `kept` texts of a list are used.
std::wstring cutTextListProblem(const std::wstring& path, std::size_t kept);
std::wstring arrowProblem(const std::wstring& block);
std::wstring linetypeProblem(const std::wstring& linetype);
// Why a load from `file` failed.
std::wstring linetypeReason(const std::wstring& file, Acad::ErrorStatus status);
std::wstring layerRecordProblem(const std::wstring& layer);
std::wstring selectionProblem(const std::wstring& passLabel);  // the host refused a setting's filter
std::wstring lockedProblem(const std::wstring& passLabel, int count);
std::wstring failedProblem(const std::wstring& passLabel, int count);
std::wstring saveProblem(const std::wstring& path);
std::wstring brokenOffProblem(const std::wstring& path);  // an error that nobody expected

// A property that a layer did not take; `kind` is the item's key.
std::wstring layerCreationProblem(const std::wstring& layer, const std::wstring& kind,
                                  const std::wstring& value);
std::wstring layerNotCreatedProblem(const std::wstring& layer);
std::wstring layerSettingProblem(const std::wstring& layer, const std::wstring& kind,
                                 const std::wstring& value);
std::wstring layerRenameProblem(const std::wstring& layer, const std::wstring& newName);
std::wstring referenceLayerRenameProblem(const std::wstring& layer);
std::wstring currentLayerFreezeProblem(const std::wstring& layer);

// For the command line.
std::wstring refusalLine(const RefusalNote& refusal);

}  // namespace kiv
