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

  bool waiting = false;  // acedEntSel waits for a point

 private:
  std::unique_ptr<Scene> scene_;
  const Drawing* drawing_ = nullptr;
  std::uint64_t revision_ = 0;
  std::function<void(RecordId)> observer_;
  RecordId highlighted_ = kNoRecord;
};

}  // namespace cad
