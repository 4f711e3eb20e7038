#include "siblings/KivFile/background.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
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
  thread_ = std::thread([life = life_, work = std::move(work)]() mutable {
    try {
      work(life->stop);
    } catch (const std::exception&) {
      // What has been found so far is all there is.
    }
    work = nullptr;
    const std::lock_guard<std::mutex> guard(life->mutex);
    life->hasEnded = true;
    life->change.notify_all();
  });
}

Background::~Background() {
  life_->stop = true;
  bool hasEnded = false;
  {
    std::unique_lock<std::mutex> lock(life_->mutex);
    hasEnded = life_->change.wait_for(lock, kPatience, [this] { return life_->hasEnded; });
  }
  if (hasEnded) {
    thread_.join();
    return;
  }
  static const char anchor = 0;
  base::keepLoaded(&anchor);
  thread_.detach();
}

}  // namespace kiv
