#include "platform/headless/desktop.h"

#include <algorithm>
#include <utility>

namespace kiv::headless {
namespace {

// Not a static object: dialogs may outlive those of the library.
Desktop* theDesktop = nullptr;

}  // namespace

Desktop& desktop() {
  if (!theDesktop) theDesktop = new Desktop;
  return *theDesktop;
}

void releaseIdleDesktop() {
  if (theDesktop && theDesktop->isIdle()) delete std::exchange(theDesktop, nullptr);
}

MemoryWindow* findWindow(NativeWindow window) {
  return theDesktop && window ? theDesktop->find(window) : nullptr;
}

void Desktop::remove(std::unique_ptr<MemoryWindow> window) {
  std::erase(windows_, window.get());
  for (MemoryWindow* each : windows_) {
    if (each->owner() == window.get()) each->forgetOwner();
  }
  if (active_ == window.get()) {
    active_ = window->owner();
    activateAnother();
  }
  window->detach();
  if (depth_ > 0) removed_.push_back(std::move(window));
}

MemoryWindow* Desktop::find(NativeWindow window) const {
  const auto found = std::find(windows_.begin(), windows_.end(), window);
  return found == windows_.end() ? nullptr : *found;
}

std::vector<MemoryWindow*> Desktop::shown() const {
  std::vector<MemoryWindow*> result;
  std::copy_if(windows_.rbegin(), windows_.rend(), std::back_inserter(result),
               [](const MemoryWindow* each) { return each->isShown(); });
  return result;
}

std::vector<MemoryWindow*> Desktop::ownedBy(const MemoryWindow& owner) const {
  std::vector<MemoryWindow*> result;
  std::copy_if(windows_.begin(), windows_.end(), std::back_inserter(result),
               [&owner](const MemoryWindow* each) { return each->owner() == &owner; });
  return result;
}

// The owner of what has gone is next, else the newest window that takes input.
void Desktop::activateAnother() {
  if (active_ && active_->takesInput()) return;
  const auto windows = shown();
  const auto next = std::find_if(windows.begin(), windows.end(),
                                 [](const MemoryWindow* each) { return each->takesInput(); });
  active_ = next == windows.end() ? nullptr : *next;
}

void Desktop::shownChanged(MemoryWindow& window) {
  if (window.isShown()) {
    std::erase(windows_, &window);
    windows_.push_back(&window);
    if (window.isWindowEnabled()) active_ = &window;
  } else if (active_ == &window) {
    active_ = window.owner();
    activateAnother();
  }
}

void Desktop::post(const MemoryWindow& window, int command) {
  posted_.push_back({&window, window.serial(), command});
}

void Desktop::runPosted() {
  while (!posted_.empty()) {
    const Posted next = posted_.front();
    posted_.pop_front();
    const MemoryWindow* window = find(const_cast<MemoryWindow*>(next.window));
    if (window && window->serial() == next.serial && window->dialog()) {
      window->dialog()->onCommand(next.command);
    }
  }
}

void Desktop::runTimers() {
  for (MemoryWindow* window : shown())
    if (find(window) && window->dialog() && window->hasTimer()) window->dialog()->onTimer();
}

void Desktop::run(const std::function<void()>& action) {
  ++depth_;
  action();
  if (depth_ == nestedAt_ + 1) runPosted();
  leave();
}

void Desktop::runAlone(const std::function<void()>& action) {
  ++depth_;
  action();
  leave();
}

// This object may be gone afterwards.
void Desktop::leave() {
  if (--depth_ > 0) return;
  removed_.clear();
  releaseIdleDesktop();
}

void Desktop::runNested(const std::function<void()>& action) {
  auto waiting = std::exchange(posted_, {});
  const int outer = std::exchange(nestedAt_, ++depth_);
  action();
  --depth_;
  nestedAt_ = outer;
  posted_.insert(posted_.begin(), waiting.begin(), waiting.end());
}

OwnerDisabled::OwnerDisabled(NativeWindow owner) {
  MemoryWindow* window = findWindow(owner);
  if (!window || !window->isWindowEnabled()) return;
  window->enableWindow(false);
  owner_ = owner;
}

OwnerDisabled::~OwnerDisabled() {
  MemoryWindow* window = findWindow(owner_);
  if (!window) return;
  window->enableWindow(true);
  window->activate();
}

}  // namespace kiv::headless
