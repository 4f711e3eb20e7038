#pragma once
// The shapes of a block, or of a single entity, in the plan of the block's own system, before it is known
// what a reference makes of their place, colour and layer.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "embedded/graphics/layer_looks.h"
#include "embedded/graphics/own_look.h"
#include "embedded/graphics/scene.h"
#include "embedded/graphics/text_styles.h"
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
  // In a detailed scene, as a SceneItem has them; of the first two the numbers within the block's shapes.
  std::uint32_t look = 0, pattern = 0;
  double width = 0;
};

struct BlockShapes {
  std::vector<Part> parts;
  std::vector<SceneLoop> loops;
  std::vector<ScenePoint> points;
  std::vector<SceneText> texts;
  std::vector<BlockReference> references;
  std::vector<OwnLook> looks;
  std::vector<std::vector<SceneHatchLine>> hatches;
  void clear();
};

class ShapeReader {
 public:
  // With `styles`, which outlive the reader, shapes are those of a detailed scene.
  ShapeReader(const Drawing& drawing, LayerLooks& layers, TextStyles* styles = nullptr)
      : drawing_(drawing), layers_(layers), styles_(styles) {}
  // Appends the shapes of a main entity and of its attributes, nothing when it is not shown. In a block an
  // attribute definition is shown only when it is constant.
  void add(RecordId entity, bool inBlock, BlockShapes& to);
  // The shape alone, whatever the look of what has it.
  static void addPlain(const Geometry& geometry, BlockShapes& to);
  // In detail: the types that have no shape, and how many objects of each were met.
  const std::map<std::string, std::size_t, std::less<>>& undrawn() const { return undrawn_; }

 private:
  void addOne(RecordId entity, bool inBlock, BlockShapes& to);
  const TextStyles::Style& styleOf(RecordId entity, Geometry& geometry);

  const Drawing& drawing_;
  LayerLooks& layers_;
  TextStyles* styles_;
  std::map<std::string, std::size_t, std::less<>> undrawn_;
};

}  // namespace cad
