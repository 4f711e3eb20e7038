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

// One group at a time. Interrupts of this process end its children first, which may take them two seconds.
class ChildGroup {
 public:
  static std::unique_ptr<ChildGroup> create(ChildWork work);
  virtual ~ChildGroup() = default;  // ends those that are left, at once

  virtual Result<int> start() = 0;  // the child's number; the failure has no place
  // A child that is gone takes nothing: its last message says so. `line` has no line end.
  virtual void send(int child, std::string_view line) = 0;
  virtual void kill(int child) = 0;  // its last message is still to come
  virtual unsigned long processOf(int child) const = 0;

  // The next message of any child, or nothing when the time has passed. Without a time: waits for ever.
  virtual std::optional<ChildMessage> wait(std::optional<std::chrono::milliseconds> time) = 0;
};

// How many processors this process may use: its own limits and those of the container that it runs in.
int usableProcessors();

}  // namespace base
