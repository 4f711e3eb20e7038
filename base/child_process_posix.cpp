#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <list>

#include "base/child_process.h"
#include "base/codepage.h"
#include "base/file_errors.h"
#include "base/line_buffer.h"

namespace base {
namespace {

constexpr std::array kEndingSignals = {SIGINT, SIGTERM, SIGHUP};
constexpr int kMostChildren = 1024;

// What the handler reads; it must not allocate or lock.
std::array<std::atomic<pid_t>, kMostChildren> livingChildren;
std::array<struct sigaction, kEndingSignals.size()> actionsBefore;
std::atomic<int> interruptedBy;

// What children have begun to write they can still remove.
void endChildren() {
  constexpr int kTries = 200;
  constexpr timespec kPause = {0, 10'000'000};
  for (const auto& child : livingChildren) {
    if (child > 0) ::kill(child, SIGTERM);
  }
  for (auto& child : livingChildren) {
    for (int tries = 0; child > 0; ++tries) {
      const pid_t ended = ::waitpid(child, nullptr, WNOHANG);
      if (ended != 0) {
        child = 0;
      } else if (tries == kTries) {
        ::kill(child, SIGKILL);
      } else {
        ::nanosleep(&kPause, nullptr);
      }
    }
  }
}

extern "C" void noteInterruption(int number) {
  if (interruptedBy.exchange(number) == 0) return;
  endChildren();
  const auto at = std::find(kEndingSignals.begin(), kEndingSignals.end(), number) - kEndingSignals.begin();
  const auto before = actionsBefore[static_cast<std::size_t>(at)].sa_handler;
  if (before != SIG_DFL) return before(number);
  ::signal(number, SIG_DFL);
  ::raise(number);  // comes when the handler has returned
}

class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : kEndingSignals) sigaddset(&set, number);
    ::sigprocmask(SIG_BLOCK, &set, &before_);
  }
  ~SignalsBlocked() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t before_;
};

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

// Appends what is there, waiting for something. False at the end.
bool readSome(int file, LineBuffer& text) {
  char buffer[1 << 16];
  for (;;) {
    const ssize_t count = ::read(file, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    text.add({buffer, static_cast<std::size_t>(count)});
    return true;
  }
}

class PipeChannel : public RequestChannel {
 public:
  PipeChannel(int requests, int answers) : requests_(requests), answers_(answers) {}
  std::optional<std::string> receive() override {
    for (;;) {
      if (auto line = received_.take()) return line;
      if (!readSome(requests_, received_)) return std::nullopt;
    }
  }
  bool answer(std::string_view line) override { return writeAll(answers_, std::string(line) + '\n'); }

 private:
  int requests_, answers_;
  LineBuffer received_;
};

struct Child {
  int number = 0;
  pid_t process = 0;
  int requests = -1, answers = -1;  // this process's ends
  LineBuffer received;
};

ChildEnd endOf(int status) {
  ChildEnd end;
  if (WIFSIGNALED(status)) {
    end.signal = WTERMSIG(status);
    if (const char* name = ::sigabbrev_np(end.signal)) end.signalName = fromUtf8(std::string("SIG") + name);
  } else {
    end.exitStatus = static_cast<unsigned long>(WEXITSTATUS(status));
  }
  return end;
}

class ForkedGroup : public ChildGroup {
 public:
  explicit ForkedGroup(ChildWork work) : work_(std::move(work)) {
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
      ::sigaction(kEndingSignals[i], nullptr, &actionsBefore[i]);
      if (actionsBefore[i].sa_handler == SIG_IGN) continue;
      struct sigaction action {};
      action.sa_handler = noteInterruption;
      action.sa_flags = SA_RESTART;
      for (const int number : kEndingSignals) sigaddset(&action.sa_mask, number);
      ::sigaction(kEndingSignals[i], &action, nullptr);
    }
  }
  ForkedGroup(const ForkedGroup&) = delete;
  ForkedGroup& operator=(const ForkedGroup&) = delete;
  ~ForkedGroup() override {
    const SignalsBlocked blocked;
    for (Child& child : children_) {
      ::kill(child.process, SIGKILL);
      static_cast<void>(ended(child));
    }
    restoreSignals();
  }

  Result<int> start() override {
    int requests[2], answers[2];
    if (::pipe2(requests, O_CLOEXEC) != 0) return systemFailure();
    if (::pipe2(answers, O_CLOEXEC) != 0) {
      const Failure failure = systemFailure();
      for (const int file : requests) ::close(file);
      return failure;
    }
    const auto slot = std::find(livingChildren.begin(), livingChildren.end(), 0);
    const SignalsBlocked blocked;
    const pid_t parent = ::getpid();
    const pid_t process = slot == livingChildren.end() ? (errno = EAGAIN, -1) : ::fork();
    if (process == 0) {
      ::close(requests[1]);
      ::close(answers[0]);
      runChild(parent, requests[0], answers[1]);
    }
    const Failure failure = systemFailure();
    ::close(requests[0]);
    ::close(answers[1]);
    if (process < 0) {
      ::close(requests[1]);
      ::close(answers[0]);
      return failure;
    }
    *slot = process;
    children_.push_back({++started_, process, requests[1], answers[0], {}});
    return started_;
  }

  void send(int number, std::string_view line) override {
    if (const Child* child = find(number))
      static_cast<void>(writeAll(child->requests, std::string(line) + '\n'));
  }

  void kill(int number) override {
    if (const Child* child = find(number)) ::kill(child->process, SIGKILL);
  }

  void end() override {
    for (const Child& child : children_) ::kill(child.process, SIGTERM);
  }

  unsigned long processOf(int number) const override {
    const auto child = std::ranges::find(children_, number, &Child::number);
    return child == children_.end() ? 0 : static_cast<unsigned long>(child->process);
  }

  std::optional<ChildMessage> wait(std::optional<std::chrono::milliseconds> time) override {
    using std::chrono::steady_clock;
    for (Child& child : children_) {
      if (auto line = child.received.take()) return ChildMessage{child.number, std::move(*line), {}};
    }
    const steady_clock::time_point end = steady_clock::now() + time.value_or(std::chrono::milliseconds(0));
    for (;;) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now());
      std::vector<pollfd> polled;
      for (const Child& child : children_) polled.push_back({child.answers, POLLIN, 0});
      const int longest = time ? std::max(0, static_cast<int>(left.count())) : -1;
      if (::poll(polled.data(), polled.size(), longest) <= 0) return std::nullopt;
      if (auto message = messageOf(polled)) return message;  // else a long line has come in part
    }
  }

 private:
  static Failure systemFailure() { return {L"", fileFailure({}, errno).reason}; }

  // `polled`: of the children, in their order.
  std::optional<ChildMessage> messageOf(const std::vector<pollfd>& polled) {
    auto child = children_.begin();
    for (const pollfd& file : polled) {
      const auto current = child++;
      if (file.revents == 0) continue;
      if (readSome(current->answers, current->received)) {
        if (auto line = current->received.take()) return ChildMessage{current->number, std::move(*line), {}};
        continue;
      }
      ChildMessage message{current->number, {}, ended(*current)};
      children_.erase(current);
      return message;
    }
    return std::nullopt;
  }

  Child* find(int number) {
    const auto child = std::ranges::find(children_, number, &Child::number);
    return child == children_.end() ? nullptr : &*child;
  }

  // Waits for the process, which is at its end.
  static ChildEnd ended(const Child& child) {
    const SignalsBlocked blocked;
    int status = 0;
    while (::waitpid(child.process, &status, 0) < 0 && errno == EINTR) {
    }
    const auto slot = std::find(livingChildren.begin(), livingChildren.end(), child.process);
    if (slot != livingChildren.end()) *slot = 0;
    ::close(child.requests);
    ::close(child.answers);
    return endOf(status);
  }

  static void restoreSignals() {
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
      ::sigaction(kEndingSignals[i], &actionsBefore[i], nullptr);
    }
  }

  [[noreturn]] void runChild(pid_t parent, int requests, int answers) {
    for (const Child& sibling : children_) {
      ::close(sibling.requests);  // or it would never see its end
      ::close(sibling.answers);
    }
    for (auto& child : livingChildren) child = 0;
    restoreSignals();
    // A terminal sends these to all its processes; its parent decides when it ends.
    for (const int number : {SIGINT, SIGHUP}) ::signal(number, SIG_IGN);
    sigset_t set;
    sigemptyset(&set);
    ::sigprocmask(SIG_SETMASK, &set, nullptr);
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parent) ::_exit(1);  // it was gone before
    PipeChannel channel(requests, answers);
    int status = 1;
    try {
      status = work_.work(channel);
    } catch (...) {
      ::abort();
    }
    // What the process began with is its parent's to end.
    ::_exit(status);
  }

  ChildWork work_;
  std::list<Child> children_;
  int started_ = 0;
};

}  // namespace

std::unique_ptr<ChildGroup> ChildGroup::create(ChildWork work) {
  return std::make_unique<ForkedGroup>(std::move(work));
}

int interruption() { return interruptedBy; }

void endAsInterrupted() {
  if (interruptedBy == 0) return;
  std::fflush(nullptr);
  ::signal(interruptedBy, SIG_DFL);
  ::raise(interruptedBy);
}

std::unique_ptr<RequestChannel> standardRequestChannel() {
  return std::make_unique<PipeChannel>(STDIN_FILENO, STDOUT_FILENO);
}

}  // namespace base
