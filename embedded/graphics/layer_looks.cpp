#include "embedded/graphics/layer_looks.h"

#include "embedded/graphics/own_look.h"

#include <cstdlib>

namespace cad {

LayerLook LayerLooks::of(RecordId entity) {
  const NameId layer = drawing_.name(entity, Property::kLayer);
  if (layer == kNoName) return {};
  if (layer >= known_.size()) {
    known_.resize(layer + std::size_t{1});
    read_.resize(known_.size());
  }
  if (!read_[layer]) {
    known_[layer] = read(layer);
    read_[layer] = true;
  }
  return known_[layer];
}

LayerLook LayerLooks::lookOf(const Drawing& drawing, RecordId layer) {
  LayerLook look;
  const std::int64_t color = drawing.integer(layer, Property::kLayerColor).value_or(7);
  look.off = color < 0;
  look.frozen = (drawing.integer(layer, Property::kStandardFlags).value_or(0) & LayerFlag::kFrozen) != 0;
  const std::int64_t index = std::llabs(color);
  if (index >= 1 && index <= 255) look.color = static_cast<std::uint8_t>(index);
  return look;
}

LayerLook LayerLooks::read(NameId layer) const {
  const RecordId record = drawing_.find(Table::kLayer, layer);
  LayerLook look = record == kNoRecord ? LayerLook{} : lookOf(drawing_, record);
  if (frozen_.contains(record)) look.frozen = true;
  if (detailed_ && record != kNoRecord) look.look = layerLook(drawing_, record);
  look.zero = drawing_.names().text(layer) == L"0";
  return look;
}

}  // namespace cad
