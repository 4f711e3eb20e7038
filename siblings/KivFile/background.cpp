#include "siblings/KivFile/background.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

#include "base/dynamic_library.h"

namespace kiv {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(200);

}  // namespace

struct Background::Life {
  std::atomic<bool> stop = false;
  std::mutex mutex;
  std::condition_variable change;
  bool hasEnded = false;
};

Background::Background(Work work) : life_(std::make_shared<Life>()) {
  try {
    thread_ = std::thread([life = life_, work = std::move(work)]() mutable {
      try {
        work(life->stop);
      } catch (...) {
        // Nobody is above it. Whoever waits finds the end without what the work should have left.
      }
      work = nullptr;
      const std::lock_guard<std::mutex> guard(life->mutex);
      life->hasEnded = true;
      life->change.notify_all();
    });
  } catch (const std::system_error&) {
    life_->hasEnded = true;
  }
}

Background::~Background() {
  if (!thread_.joinable()) return;
  stop();
  bool hasEnded = false;
  {
    std::unique_lock<std::mutex> lock(life_->mutex);
    hasEnded = life_->change.wait_until(lock, *patienceEnds_, [this] { return life_->hasEnded; });
  }
  static const char anchor = 0;
  if (hasEnded || !base::keepLoaded(&anchor)) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

void Background::stop() {
  life_->stop = true;
  if (!patienceEnds_) patienceEnds_ = std::chrono::steady_clock::now() + kPatience;
}

bool Background::hasEnded() const {
  const std::lock_guard<std::mutex> guard(life_->mutex);
  return life_->hasEnded;
}

}  // namespace kiv
