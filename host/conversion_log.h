#pragma once
// The log that conversion runs append to when the user asked for one: comma-separated text, one entry per
// drawing. The user is told of no failure of the log; a conversion never stops for it.

#include <string>

#include "host/distinct_texts.h"

#include "base/result.h"

namespace kiv {

class ConversionLog {
 public:
  // Reads the settings and, when a log is wanted, notes the time and the drawing.
  void startEntry();
  // Kept only when a log is wanted, and once whatever its case.
  void addMessage(const std::wstring& text);
  // Appends the entry; a new file begins with the header line. A failure is for programs that drive the host.
  base::Status writeEntry() const;
  void clearEntry();

 private:
  bool isWanted() const { return enabled_ && !logFile_.empty(); }

  bool enabled_ = false;
  std::wstring logFile_, drawing_, time_;
  DistinctTexts messages_;
};

// Full name of the working database's drawing; empty when it was never saved.
std::wstring workingDrawing();

}  // namespace kiv
