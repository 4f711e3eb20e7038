#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>

#include "base/process_facts.h"
#include "base/temporary_files.h"

namespace base {
namespace {

// What the handler reads, which must not allocate, lock or follow pointers that others change.
struct Slot {
  std::atomic<bool> taken{false}, set{false};
  char path[PATH_MAX] = {};
};
constexpr int kSlots = 8;
std::array<Slot, kSlots> slots;

extern "C" void removeFilesAndEnd(int number) {
  for (const Slot& slot : slots) {
    if (slot.set.load()) ::unlink(slot.path);
  }
  ::signal(number, SIG_DFL);
  ::raise(number);  // comes when the handler has returned
}

}  // namespace

TemporaryFileMark::TemporaryFileMark(const std::filesystem::path& path) {
  const std::string& name = path.native();
  if (name.size() >= PATH_MAX) return;
  for (int i = 0; i < kSlots && slot_ < 0; ++i) {
    if (!slots[static_cast<std::size_t>(i)].taken.exchange(true)) slot_ = i;
  }
  if (slot_ < 0) return;
  Slot& slot = slots[static_cast<std::size_t>(slot_)];
  std::memcpy(slot.path, name.c_str(), name.size() + 1);
  slot.set = true;
}

TemporaryFileMark::~TemporaryFileMark() {
  if (slot_ < 0) return;
  Slot& slot = slots[static_cast<std::size_t>(slot_)];
  slot.set = false;
  slot.taken = false;
}

void removeTemporaryFilesOnSignals() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = removeFilesAndEnd;
    ::sigaction(number, &action, nullptr);
  }
  ::signal(SIGXFSZ, SIG_IGN);
}

std::string machineName() {
  char name[256] = {};
  return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
}

unsigned long ownProcess() { return static_cast<unsigned long>(::getpid()); }

bool processLives(unsigned long process) {
  return ::kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
}

bool removeUnlessOpen(const std::filesystem::path& path) {
  const int number = ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
  if (number < 0) return false;
  // Who writes the file holds its lock; a file system without locks has none to ask for.
  const bool isHeld = ::flock(number, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  const bool removed = !isHeld && ::unlink(path.c_str()) == 0;
  ::close(number);
  return removed;
}

}  // namespace base
