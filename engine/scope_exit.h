#pragma once
// Work that is done when a scope is left, in whatever way.

#include <utility>

namespace kiv {

template <class Work>
class ScopeExit {
 public:
  explicit ScopeExit(Work work) : work_(std::move(work)) {}
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;
  ~ScopeExit() {
    try {
      work_();
    } catch (...) {  // the error that leaves the scope is the one to tell
    }
  }

 private:
  Work work_;
};

}  // namespace kiv
