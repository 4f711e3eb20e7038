#pragma once
// The windows in memory among each other: which is shown and active, what was posted, and what has to wait
// until a handler returns.

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "platform/headless/window.h"

namespace kiv::headless {

class Desktop {
 public:
  void add(MemoryWindow& window) { windows_.push_back(&window); }
  // Kept until no handler is at work, which might be one of this window.
  void remove(std::unique_ptr<MemoryWindow> window);
  // Null for a window that is not, or no longer, one of these.
  MemoryWindow* find(NativeWindow window) const;
  std::vector<MemoryWindow*> shown() const;  // the newest first
  std::vector<MemoryWindow*> ownedBy(const MemoryWindow& owner) const;

  MemoryWindow* active() const { return active_; }
  void setActive(MemoryWindow* window) { active_ = window; }
  void shownChanged(MemoryWindow& window);

  void post(const MemoryWindow& window, int command);
  // Something that handlers follow from. What they post runs afterwards, unless this is inside another such.
  void run(const std::function<void()>& action);
  // The same without what was posted: it waits for the next time.
  void runAlone(const std::function<void()>& action);
  // Inside: posted commands run though a handler may be at work outside; those that it has posted wait for
  // it.
  void runNested(const std::function<void()>& action);
  // onTimer() of each shown dialog that has set one.
  void runTimers();
  bool isIdle() const { return windows_.empty() && depth_ == 0; }

 private:
  struct Posted {
    const MemoryWindow* window;
    unsigned serial;  // another window may be at the same address later
    int command;
  };
  void runPosted();
  void leave();
  void activateAnother();

  std::vector<MemoryWindow*> windows_;  // in the order in which they were made or last shown
  std::vector<std::unique_ptr<MemoryWindow>> removed_;
  std::deque<Posted> posted_;
  MemoryWindow* active_ = nullptr;
  int depth_ = 0;
  int nestedAt_ = 0;  // the depth at which posted commands run
};

// There is one as long as there are windows. Releasing does nothing before that.
Desktop& desktop();
void releaseIdleDesktop();

// As Desktop::find.
MemoryWindow* findWindow(NativeWindow window);

// While it lives no key or click reaches the owner, which may be none or not one of the desktop's.
class OwnerDisabled {
 public:
  explicit OwnerDisabled(NativeWindow owner);
  ~OwnerDisabled();
  OwnerDisabled(const OwnerDisabled&) = delete;
  OwnerDisabled& operator=(const OwnerDisabled&) = delete;

 private:
  NativeWindow owner_ = nullptr;
};

}  // namespace kiv::headless
