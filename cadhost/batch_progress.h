#pragma once
// What the status bar says of a script that opens drawings: which of them is under way, and the time left by
// the drawings done. Knows no windows.

#include <chrono>
#include <string>

#include "embedded/editor/host.h"

namespace cadhost {

class BatchProgress {
 public:
  using Time = std::chrono::steady_clock::time_point;

  void update(const cad::ScriptProgress& now, Time time);
  // Empty when no script opens drawings.
  std::wstring text() const;
  bool isRunning() const { return now_.state == State::kRunning && now_.drawings > 0; }

 private:
  using State = cad::ScriptProgress::State;
  int done() const { return now_.drawing > 0 ? now_.drawing - 1 : 0; }
  std::wstring timeLeft() const;

  cad::ScriptProgress now_{State::kEnded, 0, 0, {}};
  Time since_{};                             // when it was started or resumed
  std::chrono::duration<double> worked_{0};  // before that and until the newest update
};

}  // namespace cadhost
