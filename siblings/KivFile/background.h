#pragma once
// Work on a thread of its own that may hang for minutes, as a folder of an unreachable server does, without
// the one who waits for it hanging too.

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace kiv {

class Background {
 public:
  // `work` looks at `stop` often and returns soon once it is true. It owns whatever it uses: it may outlive
  // this object.
  using Work = std::function<void(const std::atomic<bool>& stop)>;
  explicit Background(Work work);
  // Waits for the end of the work for a moment only. Work that hangs then keeps this library loaded.
  ~Background();
  Background(const Background&) = delete;
  Background& operator=(const Background&) = delete;

 private:
  struct Life;
  std::shared_ptr<Life> life_;
  std::thread thread_;
};

}  // namespace kiv
