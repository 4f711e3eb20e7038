#pragma once
// What the current drawing shows, kept until it changes, and which of its entities are highlighted.

#include <cstdint>
#include <functional>
#include <memory>

#include "embedded/graphics/scene.h"

namespace cad {

class Picking {
 public:
  // Builds the scene anew when the drawing is another one or has changed.
  const Scene& scene(const Drawing& drawing);
  void forget();  // the drawing goes away

  void setObserver(std::function<void(RecordId)> observer) { observer_ = std::move(observer); }
  // The observer hears of changes only.
  void highlight(RecordId entity);
  RecordId highlighted() const { return highlighted_; }

  // While one lives, a pick waits for its point.
  class Waiting {
   public:
    explicit Waiting(Picking& picking) : picking_(picking) { ++picking_.waiting_; }
    ~Waiting() { --picking_.waiting_; }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

   private:
    Picking& picking_;
  };
  bool isWaiting() const { return waiting_ > 0; }

 private:
  std::unique_ptr<Scene> scene_;
  const Drawing* drawing_ = nullptr;
  std::uint64_t revision_ = 0;
  std::function<void(RecordId)> observer_;
  RecordId highlighted_ = kNoRecord;
  int waiting_ = 0;
};

}  // namespace cad
