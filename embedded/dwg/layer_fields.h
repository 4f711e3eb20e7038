#pragma once
// What a layer's record says in bits: fields of their own until R14, one field since R2000.

#include "embedded/dwg/fields/object_fields.h"

namespace cad::dwg {

struct LayerBits {
  bool frozen = false, off = false, frozenInNew = false, locked = false;
  bool plotted = true;  // since R2000, as the next
  int lineWeight = -3;  // as Property::kLineWeight
};

LayerBits layerBits(const Fields& layer);
// False: there is no such lineweight.
bool setLayerBits(const Fields& layer, const LayerBits& bits, FieldChanges& changes);

}  // namespace cad::dwg
