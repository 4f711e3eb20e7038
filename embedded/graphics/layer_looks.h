#pragma once
// What layers do to the objects on them, looked up once per layer.

#include <cstdint>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace cad {

struct LayerLook {
  std::uint8_t color = 7;
  bool off = false, frozen = false;
  bool zero = false;  // layer "0": in a block it stands for the layer of the reference
  bool shown() const { return !off && !frozen; }
};

class LayerLooks {
 public:
  explicit LayerLooks(const Drawing& drawing) : drawing_(drawing) {}
  LayerLook of(RecordId entity);
  static LayerLook lookOf(const Drawing& drawing, RecordId layer);  // of a layer's record; `zero` is not set

 private:
  LayerLook read(NameId layer) const;

  const Drawing& drawing_;
  std::vector<LayerLook> known_;
  std::vector<bool> read_;
};

}  // namespace cad
