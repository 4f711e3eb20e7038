#pragma once
// The shapes of a block, or of a single entity, in the plan of the block's own system, before it is known
// what a reference makes of their place, colour and layer.

#include <cstdint>
#include <vector>

#include "embedded/graphics/layer_looks.h"
#include "embedded/graphics/scene.h"
#include "embedded/graphics/transform.h"

namespace cad {

struct BlockReference {
  RecordId block = kNoRecord;
  InsertGeometry insert;
  Point normal{0, 0, 1};
  bool inPlace = false;  // a dimension's block: not moved, not scaled
  LayerLook layer;
};

struct Part {
  static constexpr std::int16_t kByBlock = 0, kOfLayer = 256;
  std::uint32_t first = 0, count = 0;  // loops, texts, or the number of a reference
  SceneItemKind kind = SceneItemKind::kOutline;
  bool reference = false;
  bool onLayerZero = false;       // visible as the reference's layer is
  std::int16_t color = kByBlock;  // kOfLayer: of the reference's layer
};

struct BlockShapes {
  std::vector<Part> parts;
  std::vector<SceneLoop> loops;
  std::vector<ScenePoint> points;
  std::vector<SceneText> texts;
  std::vector<BlockReference> references;
  void clear();
};

class ShapeReader {
 public:
  ShapeReader(const Drawing& drawing, LayerLooks& layers) : drawing_(drawing), layers_(layers) {}
  // Appends the shapes of a main entity and of its attributes, nothing when it is not shown. In a block an
  // attribute definition is shown only when it is constant.
  void add(RecordId entity, bool inBlock, BlockShapes& to);

 private:
  void addOne(RecordId entity, bool inBlock, BlockShapes& to);

  const Drawing& drawing_;
  LayerLooks& layers_;
};

}  // namespace cad
