#pragma once
// POSIX: a mapped file that another program may cut off. Reading a page that is gone ends a process with
// SIGBUS; of a guarded mapping such pages, and all behind them, become zeros, and lost() tells it.

#include <cstddef>
#include <memory>

namespace base {

class GuardedMapping {
 public:
  // Read-only; null when the file cannot be mapped or too many are already. `file` may be closed afterwards.
  static std::unique_ptr<GuardedMapping> map(int file, std::size_t size);
  ~GuardedMapping();
  GuardedMapping(const GuardedMapping&) = delete;
  GuardedMapping& operator=(const GuardedMapping&) = delete;

  const char* data() const;
  std::size_t size() const;
  bool lost() const;

 private:
  explicit GuardedMapping(int region) : region_(region) {}
  int region_;
};

}  // namespace base
