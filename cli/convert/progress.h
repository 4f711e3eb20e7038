#pragma once
// How far a batch has come, in one line of a terminal below what is printed.

#include <functional>
#include <optional>
#include <string>

namespace kivcli {

// The line itself, which knows no terminal.
class ProgressLine {
 public:
  using Clock = std::function<double()>;  // seconds since whenever
  ProgressLine(std::size_t total, Clock clock);

  // In at most `columns`; nothing while the last one is less than a tenth of a second old.
  std::optional<std::wstring> next(std::size_t done, std::size_t columns);

  // When all is done: how many drawings in what time.
  std::wstring total() const;

 private:
  std::size_t total_;
  Clock clock_;
  double start_;
  std::optional<double> drawn_;
};

// Shows nothing where standard error is no terminal.
class ProgressDisplay {
 public:
  explicit ProgressDisplay(std::size_t total);
  ProgressDisplay(const ProgressDisplay&) = delete;
  ProgressDisplay& operator=(const ProgressDisplay&) = delete;

  void show(std::size_t done);
  void hide();    // before anything else is printed
  void finish();  // leaves a line with the time that it took

 private:
  ProgressLine line_;
  std::size_t shown_ = 0;  // columns
};

}  // namespace kivcli
