#include "embedded/dwg/layer_fields.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kFrozen = 1, kOff = 2, kFrozenInNew = 4, kLocked = 8, kPlotted = 16;
constexpr std::int64_t kAllFlags = kFrozen | kOff | kFrozenInNew | kLocked | kPlotted;
constexpr int kWeightShift = 5;
constexpr std::int64_t kWeightMask = 0x1F;

bool hasFlags(const Fields& layer) { return layer.version() >= Version::kR2000; }

}  // namespace

LayerBits layerBits(const Fields& layer) {
  if (!hasFlags(layer)) {
    const auto bit = [&](std::string_view name) { return layer.integer(name) != 0; };
    return {bit("frozen"), bit("off"), bit("frozen in new"), bit("locked")};
  }
  const std::int64_t flags = layer.integer("flags");
  return {(flags & kFrozen) != 0, (flags & kOff) != 0,     (flags & kFrozenInNew) != 0,
          (flags & kLocked) != 0, (flags & kPlotted) != 0, lineWeightOf(flags >> kWeightShift & kWeightMask)};
}

bool setLayerBits(const Fields& layer, const LayerBits& bits, FieldChanges& changes) {
  if (!hasFlags(layer)) {
    const LayerBits present = layerBits(layer);
    const auto set = [&](std::string_view name, bool was, bool is) {
      if (was != is) changes.set(name, is);
    };
    set("frozen", present.frozen, bits.frozen);
    set("off", present.off, bits.off);
    set("frozen in new", present.frozenInNew, bits.frozenInNew);
    set("locked", present.locked, bits.locked);
    return true;
  }
  const std::int64_t flags = layer.integer("flags");
  std::int64_t weight = flags >> kWeightShift & kWeightMask;
  if (lineWeightOf(weight) != bits.lineWeight) {
    const std::optional<std::int64_t> stored = storedLineWeight(bits.lineWeight);
    if (!stored) return false;
    weight = *stored & kWeightMask;
  }
  std::int64_t wanted = (flags & ~(kAllFlags | kWeightMask << kWeightShift)) | weight << kWeightShift;
  if (bits.frozen) wanted |= kFrozen;
  if (bits.off) wanted |= kOff;
  if (bits.frozenInNew) wanted |= kFrozenInNew;
  if (bits.locked) wanted |= kLocked;
  if (bits.plotted) wanted |= kPlotted;
  if (wanted != flags) changes.set("flags", Value(wanted));
  return true;
}

}  // namespace cad::dwg
