#include "embedded/editor/picking.h"

#include <utility>

namespace cad {

const Scene& Picking::scene(const Drawing& drawing) {
  if (!scene_ || drawing_ != &drawing || revision_ != drawing.revision()) {
    scene_ = std::make_unique<Scene>(buildScene(drawing));
    drawing_ = &drawing;
    revision_ = drawing.revision();
  }
  return *scene_;
}

void Picking::forget() {
  scene_.reset();
  drawing_ = nullptr;
  highlight(kNoRecord);
}

void Picking::highlight(RecordId entity) {
  if (std::exchange(highlighted_, entity) != entity && observer_) observer_(entity);
}

}  // namespace cad
