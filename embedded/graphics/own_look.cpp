#include "embedded/graphics/own_look.h"

#include "base/fold.h"
#include "embedded/drawing/transparency.h"
#include "embedded/graphics/layer_looks.h"

namespace cad {
namespace {

constexpr std::int16_t kByLayerWeight = -1, kByBlockWeight = -2, kDefaultWeight = 25;

std::int16_t weightOf(std::int64_t weight) {
  return weight < 0 ? kDefaultWeight : static_cast<std::int16_t>(weight);
}

std::uint8_t opacityOf(std::int64_t transparency) {
  return (transparency & kTransparencyOwn) != 0 ? static_cast<std::uint8_t>(transparency & 0xFF) : 255;
}

std::wstring nameOf(const Drawing& drawing, RecordId record, Property property) {
  const NameId name = drawing.name(record, property);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

// Without a record for one that draws no pattern.
RecordId linetypeOf(const Drawing& drawing, std::wstring_view name) {
  if (name.empty() || base::equalFolded(name, L"Continuous")) return kNoRecord;
  return drawing.find(Table::kLinetype, name);
}

}  // namespace

SceneLook OwnLook::resolved(const SceneLook& reference, const SceneLook& referenceLayer) const {
  SceneLook out = look;
  const auto pick = [&](LookFrom from) {
    return from == LookFrom::kReference ? &reference : &referenceLayer;
  };
  if (color != LookFrom::kSelf) out.trueColor = pick(color)->trueColor;
  if (weight != LookFrom::kSelf) out.lineWeight = pick(weight)->lineWeight;
  if (linetype != LookFrom::kSelf) out.linetype = pick(linetype)->linetype;
  if (opacity != LookFrom::kSelf) out.opacity = pick(opacity)->opacity;
  return out;
}

OwnLook ownLook(const Drawing& drawing, RecordId entity, const LayerLook& layer) {
  const EntityLooks looks = drawing.looks(entity);
  const std::int64_t color = drawing.integer(entity, Property::kColorIndex).value_or(256);
  const std::wstring linetype = nameOf(drawing, entity, Property::kLinetype);
  const LookFrom byLayer = layer.zero ? LookFrom::kReferenceLayer : LookFrom::kSelf;
  OwnLook own;
  own.look = layer.look;
  own.look.linetypeScale = looks.linetypeScale;
  if (looks.trueColor) {
    own.look.trueColor = *looks.trueColor & 0xFFFFFF;
  } else if (color == 0) {
    own.color = LookFrom::kReference;
  } else if (color > 0 && color < 256) {
    own.look.trueColor = -1;
  } else {
    own.color = byLayer;
  }
  if (looks.lineWeight == kByBlockWeight) {
    own.weight = LookFrom::kReference;
  } else if (looks.lineWeight == kByLayerWeight) {
    own.weight = byLayer;
  } else {
    own.look.lineWeight = weightOf(looks.lineWeight);
  }
  if (base::equalFolded(linetype, L"ByBlock")) {
    own.linetype = LookFrom::kReference;
  } else if (linetype.empty() || base::equalFolded(linetype, L"ByLayer")) {
    own.linetype = byLayer;
  } else {
    own.look.linetype = linetypeOf(drawing, linetype);
  }
  if ((looks.transparency & kTransparencyOwn) != 0) {
    own.look.opacity = opacityOf(looks.transparency);
  } else {
    own.opacity = (looks.transparency & kTransparencyByBlock) != 0 ? LookFrom::kReference : byLayer;
  }
  return own;
}

SceneLook layerLook(const Drawing& drawing, RecordId layer) {
  const EntityLooks looks = drawing.looks(layer);
  SceneLook look;
  if (looks.trueColor) look.trueColor = *looks.trueColor & 0xFFFFFF;
  look.lineWeight = weightOf(looks.lineWeight);
  look.opacity = opacityOf(drawing.integer(layer, Property::kTransparency).value_or(0));
  look.linetype = linetypeOf(drawing, nameOf(drawing, layer, Property::kLayerLinetype));
  return look;
}

}  // namespace cad
