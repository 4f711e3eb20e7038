#pragma once
// The log that conversion runs append to when the user asked for one: comma-separated text, one entry per
// drawing. The user is told of no failure of the log; a conversion never stops for it.

#include <string>
#include <unordered_set>
#include <vector>

#include "base/fold.h"
#include "base/result.h"

namespace kiv {

// Texts in the order met, each once whatever its case.
class DistinctTexts {
 public:
  void add(const std::wstring& text) {
    if (folded_.insert(base::upper(text)).second) texts_.push_back(text);
  }
  const std::vector<std::wstring>& texts() const { return texts_; }

 private:
  std::vector<std::wstring> texts_;
  std::unordered_set<std::wstring> folded_;
};

// The entry of one drawing.
class ConversionLog {
 public:
  // Reads the settings and, when a log is wanted, notes the time.
  explicit ConversionLog(std::wstring drawing);
  // Kept only when a log is wanted, and once whatever its case.
  void addMessage(const std::wstring& text);
  // Appends the entry; a new file begins with the header line. A failure is for programs that drive the host.
  base::Status writeEntry() const;

 private:
  std::wstring logFile_, drawing_, time_;  // an empty file: no log is wanted
  DistinctTexts messages_;
};

}  // namespace kiv
