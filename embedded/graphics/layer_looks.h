#pragma once
// What layers do to the objects on them, looked up once per layer.

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "embedded/graphics/scene.h"

namespace cad {

struct LayerLook {
  std::uint8_t color = 7;
  bool off = false, frozen = false;
  bool zero = false;  // layer "0": in a block it stands for the layer of the reference
  SceneLook look;     // of what goes by the layer, when looks are asked for
  bool shown() const { return !off && !frozen; }
};

class LayerLooks {
 public:
  explicit LayerLooks(const Drawing& drawing) : drawing_(drawing) {}
  // With looks, and with these layers frozen as well.
  LayerLooks(const Drawing& drawing, std::unordered_set<RecordId> frozen)
      : drawing_(drawing), frozen_(std::move(frozen)), detailed_(true) {}
  LayerLook of(RecordId entity);
  static LayerLook lookOf(const Drawing& drawing, RecordId layer);  // of a layer's record; `zero` is not set

 private:
  LayerLook read(NameId layer) const;

  const Drawing& drawing_;
  std::unordered_set<RecordId> frozen_;
  bool detailed_ = false;
  std::vector<LayerLook> known_;
  std::vector<bool> read_;
};

}  // namespace cad
