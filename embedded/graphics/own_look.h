#pragma once
// Lineweight, linetype, true colour and transparency of an object: what it says itself, and what a reference
// and layers make of it.

#include "embedded/graphics/scene.h"

namespace cad {

struct LayerLook;

// Where a value comes from: the object, the reference that shows it, or that one's layer.
enum class LookFrom : std::uint8_t { kSelf, kReference, kReferenceLayer };

struct OwnLook {
  SceneLook look;
  LookFrom color = LookFrom::kSelf, weight = LookFrom::kSelf;
  LookFrom linetype = LookFrom::kSelf, opacity = LookFrom::kSelf;

  SceneLook resolved(const SceneLook& reference, const SceneLook& referenceLayer) const;
};

// What the object says, and its layer where it goes by that. On layer "0" the layer is left open.
OwnLook ownLook(const Drawing& drawing, RecordId entity, const LayerLook& layer);

// Of a layer's record.
SceneLook layerLook(const Drawing& drawing, RecordId layer);

}  // namespace cad
