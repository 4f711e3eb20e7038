#pragma once
// What the user has typed and pointed at, and who gets it: the command that waits for input, or the command
// line when none is running. Knows no windows.

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "embedded/editor/host.h"

namespace cadhost {

inline constexpr int kCancelKey = 3, kEnterKey = 13;

// Stands among the lines where the user has cancelled: the prompt that is open by then is closed.
inline constexpr std::wstring_view kCancelLine = L"\x03";

class InputQueue {
 public:
  // --- From the keyboard, the copied-data messages and the script ---------------------------------------
  // Types a text behind the unfinished line and returns the line that is then unfinished. The character
  // 3 cancels: it drops the unfinished line and ends what waits, or the prompt that the lines before it leave
  // open. A line end enters the line.
  std::wstring type(std::wstring_view text, std::wstring unfinished);
  // A whole line. An empty one is the Enter key for a command that waits.
  void enter(std::wstring line);
  // For a command that waits; otherwise nobody misses it.
  void pressKey(int key);
  // Ends what waits; a command that is running without waiting is asked to stop; else as the character 3.
  void cancel();

  // --- From the drawing; for a command that waits ---------------------------------------------------------
  void click(double x, double y);  // drawing units
  void moveTo(double x, double y);
  // How far from the point an entity may lie to be picked; drawing units.
  void setPickRadius(double radius) { pickRadius_ = radius; }
  // Lets a waiting command look around though nothing has happened in the drawing.
  void wake() { moveTo(lastX_, lastY_); }

  // --- For the command ------------------------------------------------------------------------------------
  void beginCommand();
  void endCommand();
  bool isRunning() const { return running_; }

  class Waiting {
   public:
    explicit Waiting(InputQueue& queue) : queue_(queue) { ++queue_.waiting_; }
    ~Waiting() { --queue_.waiting_; }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

   private:
    InputQueue& queue_;
  };
  bool isWaiting() const { return waiting_ > 0; }

  // The next event. While an entity is picked, a typed point picks there and an empty line is Enter.
  std::optional<cad::InputEvent> takeEvent(bool picking);
  // True once the user has asked the running command to stop, until it has.
  bool isBreakWanted() const { return break_; }
  void forgetBreak() { break_ = false; }

  // The next line for the command line, or kCancelLine; none while a command is running.
  std::optional<std::wstring> takeLine();
  bool hasLine() const { return !lines_.empty(); }

 private:
  std::deque<cad::InputEvent> events_;
  std::deque<std::wstring> lines_;
  double pickRadius_ = 0, lastX_ = 0, lastY_ = 0;
  int waiting_ = 0;
  bool running_ = false, break_ = false;
};

}  // namespace cadhost
