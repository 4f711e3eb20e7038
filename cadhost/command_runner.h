#pragma once
// Runs the lines of the command line, one after the other, each after the one before has ended.

#include <functional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "cadhost/input_queue.h"
#include "embedded/editor/host.h"

namespace cadhost {

class CommandRunner {
 public:
  struct Hands {
    std::function<void(std::wstring_view)> print;
    std::function<void()> begun;
    std::function<void()> ended;
    // QUIT was typed; nothing has been closed yet. True: the program ends, no other line runs.
    std::function<bool(bool discardChanges)> quit;
  };

  CommandRunner(cad::Host& host, InputQueue& input) : host_(host), input_(input) {}
  void setHands(Hands hands) { hands_ = std::move(hands); }

  // Every line that has been entered, each cancel in its place. Does nothing while a command is running.
  void runLines();
  base::Status run(const std::wstring& line);
  // Of a command that wants more input; says so. Does nothing when there is none, and while a command runs.
  void cancelPrompt();

 private:
  cad::Host& host_;
  InputQueue& input_;
  Hands hands_;
};

}  // namespace cadhost
