#pragma once
// Work on a thread of its own that may hang for minutes, as a folder of an unreachable server does, without
// the one who waits for it hanging too.

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace kiv {

class Background {
 public:
  // `work` looks at `stop` often and returns soon once it is true. It owns whatever it uses: it may outlive
  // this object.
  using Work = std::function<void(const std::atomic<bool>& stop)>;
  explicit Background(Work work);
  // Waits for the end of the work until a moment after stop() only. Work that hangs then keeps this library
  // loaded.
  ~Background();
  // Several are stopped faster when all of them are told before the first one is destroyed.
  void stop();
  // However it came about: the work is done, has thrown, or could not begin as the system has no thread left.
  bool hasEnded() const;
  Background(const Background&) = delete;
  Background& operator=(const Background&) = delete;

 private:
  struct Life;
  std::shared_ptr<Life> life_;
  std::optional<std::chrono::steady_clock::time_point> patienceEnds_;  // once it is stopped
  std::thread thread_;
};

}  // namespace kiv
