#pragma once
// The script that SCRIPT has started: where it stands, and what its observer is told.

#include <filesystem>
#include <optional>
#include <string>

#include "embedded/editor/host.h"
#include "embedded/editor/tokens.h"

namespace cad {

class Script {
 public:
  // Runs when the running commands have ended, in place of another that is running or suspended.
  void start(std::filesystem::path file, std::wstring text);
  // A suspended script goes on behind the command that it stands at; false when none is suspended.
  bool resume();
  void suspend();  // says so, and how it goes on
  void end();
  void forget();  // the one that waits for its turn, too

  bool isRunning() const { return state_ == State::kRunning; }
  // The script that was started last gets its turn; true when it was not the one that is running.
  bool takeNext();
  bool hasNext() const { return next_.has_value(); }
  // Its next command; none at its end.
  std::optional<Token> nextCommand();
  bool isAtEnd();
  // Not right behind an OPEN: what the script does with the drawing belongs to it.
  bool mayBeBroken() const { return !hasOpened_; }

  ScriptReader& reader() { return reader_; }

 private:
  enum class State { kNone, kRunning, kSuspended };
  struct Started {
    std::filesystem::path file;
    std::wstring text;
  };
  void tell(ScriptProgress::State state);

  State state_ = State::kNone;
  std::optional<Started> next_;
  std::filesystem::path file_;
  bool hasOpened_ = false;  // by the command run last
  ScriptReader reader_{L""};
  ScriptProgress progress_;
};

}  // namespace cad
