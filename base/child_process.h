#pragma once
// Child processes of this program that take requests and give answers, a line each. A child may crash, be
// killed or hang without harm to this process. Children end with this process, however that ends.

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace base {

// A child's end of the line.
class RequestChannel {
 public:
  virtual ~RequestChannel() = default;
  virtual std::optional<std::string> receive() = 0;  // waits; nothing: there will be no more
  virtual bool answer(std::string_view line) = 0;    // false: nobody listens any more
};

// Requests come on standard input, answers go to standard output.
std::unique_ptr<RequestChannel> standardRequestChannel();

// What a child does. Where processes can be copied it is a copy of this one, at the moment at which it is
// started, that calls `work`; this process must have one thread only. Elsewhere it is this program, started
// anew with `words` on its command line.
struct ChildWork {
  std::function<int(RequestChannel&)> work;  // gives the exit status
  std::vector<std::wstring> words;
};

struct ChildEnd {
  int signal = 0;  // that ended it; 0: none
  std::wstring signalName;
  unsigned long exitStatus = 0;
};

struct ChildMessage {
  int child = 0;
  std::string line;             // without its end
  std::optional<ChildEnd> end;  // the child's last message; it has no line
};

// One group at a time. While it lives, what would end this process (SIGINT, SIGTERM and SIGHUP, on Windows
// Ctrl-C and Ctrl-Break) is noted the first time (interruption()), and reaches no child. The second time it
// ends the children, which may take them two seconds, and this process.
class ChildGroup {
 public:
  static std::unique_ptr<ChildGroup> create(ChildWork work);
  virtual ~ChildGroup() = default;  // ends those that are left, at once

  virtual Result<int> start() = 0;  // the child's number; the failure has no place
  // A child that is gone takes nothing: its last message says so. `line` has no line end.
  virtual void send(int child, std::string_view line) = 0;
  virtual void kill(int child) = 0;  // its last message is still to come
  // All children; what one has begun to write it removes first, where the system does not. One that does not
  // end has to be killed.
  virtual void end() = 0;
  virtual unsigned long processOf(int child) const = 0;

  // The next message of any child, or nothing when the time has passed or this process is interrupted.
  // Without a time: waits for ever.
  virtual std::optional<ChildMessage> wait(std::optional<std::chrono::milliseconds> time) = 0;
};

// The signal that a group of this process has noted; 0: none.
int interruption();

// Ends this process by that signal, so that whoever started it sees that it was interrupted. Returns where
// none was noted, and on Windows. Standard streams are flushed, no destructor runs.
void endAsInterrupted();

// How many processors this process may use: its own limits and those of the container that it runs in.
int usableProcessors();

}  // namespace base
