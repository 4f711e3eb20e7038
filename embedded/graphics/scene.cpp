#include "embedded/graphics/scene.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>

#include "embedded/graphics/block_shapes.h"
#include "embedded/graphics/bulge_arc.h"

namespace cad {
namespace {

// What blocks may expand into. Blocks in blocks multiply; a small file can ask for more than any memory.
constexpr std::size_t kMostPoints = 8'000'000;
constexpr std::size_t kMostReferences = 1'000'000;

// What a reference hands down to the objects of its block.
struct Inherited {
  RecordId entity = kNoRecord;
  std::uint8_t byBlock = 7, ofLayer = 7;
  bool layerShown = true;
};

struct Block {
  BlockShapes shapes;
  Point base;
  bool open = false;  // being expanded: a block inside itself ends here
};

class SceneBuilder {
 public:
  explicit SceneBuilder(const Drawing& drawing)
      : drawing_(drawing), layers_(drawing), maker_(drawing, layers_) {}

  Scene build() {
    const auto tilemode = drawing_.headerVariable("TILEMODE");
    const auto* model = tilemode ? std::get_if<std::int64_t>(&*tilemode) : nullptr;
    const RecordId space = model != nullptr && *model == 0 ? drawing_.paperSpace() : drawing_.modelSpace();
    BlockShapes shapes;
    for (const RecordId entity : drawing_.entitiesOf(space)) {
      if (drawing_.record(entity).erased()) continue;
      shapes.clear();
      maker_.add(entity, false, shapes);
      if (shapes.parts.empty()) continue;
      expand(shapes, Transform{}, fromLayer(entity));
    }
    for (const SceneItem& item : scene_.items) scene_.extents.add(item.box);
    return std::move(scene_);
  }

 private:
  Inherited fromLayer(RecordId entity) {
    const LayerLook layer = layers_.of(entity);
    if (layer.zero) return {entity, 7, layer.color, layer.shown()};
    return {entity, 7, zeroLook().color, zeroLook().shown()};
  }

  // Attributes may lie on layer "0" though their reference does not.
  const LayerLook& zeroLook() {
    if (!zero_) {
      zero_ = std::make_unique<LayerLook>();
      const RecordId record = drawing_.find(Table::kLayer, std::wstring_view(L"0"));
      if (record != kNoRecord) *zero_ = LayerLooks::lookOf(drawing_, record);
    }
    return *zero_;
  }

  static std::uint8_t resolved(std::int16_t color, const Inherited& from) {
    if (color == Part::kByBlock) return from.byBlock;
    return color == Part::kOfLayer ? from.ofLayer : static_cast<std::uint8_t>(color);
  }

  void expand(const BlockShapes& shapes, const Transform& place, const Inherited& from) {
    const Placer placer(place);
    for (const Part& part : shapes.parts) {
      if (part.reference) {
        follow(shapes.references[part.first], part, place, from);
      } else if (!part.onLayerZero || from.layerShown) {
        emit(shapes, part, placer, from);
      }
    }
  }

  // A transform with what is asked of it for every loop.
  struct Placer {
    explicit Placer(const Transform& place)
        : transform(place), keepsCircles(place.keepsCircles()), mirrors(place.mirrors()) {}
    Transform transform;
    bool keepsCircles, mirrors;
  };

  Block& block(RecordId id) {
    std::unique_ptr<Block>& known = blocks_[id];
    if (known) return *known;
    known = std::make_unique<Block>();
    const Geometry base = drawing_.geometry(id);
    if (const auto* at = std::get_if<PointGeometry>(&base.shape)) known->base = at->at;
    for (const RecordId entity : drawing_.entitiesOf(id)) {
      if (!drawing_.record(entity).erased()) maker_.add(entity, true, known->shapes);
    }
    return *known;
  }

  void follow(const BlockReference& reference, const Part& part, const Transform& place,
              const Inherited& from) {
    const bool zero = reference.layer.zero;
    Inherited handed{from.entity, resolved(part.color, from), from.ofLayer, from.layerShown};
    if (!zero) {
      handed.ofLayer = reference.layer.color;
      handed.layerShown = reference.layer.shown();
    }
    Block& target = block(reference.block);
    if (target.open || target.shapes.parts.empty()) return;
    target.open = true;
    const InsertGeometry& insert = reference.insert;
    for (int row = 0; row < insert.rows && !full(); ++row) {
      for (int column = 0; column < insert.columns && !full(); ++column) {
        ++references_;
        const Transform cell =
            reference.inPlace ? place
                              : place.after(placement(insert, reference.normal, target.base, column, row));
        expand(target.shapes, cell, handed);
      }
    }
    target.open = false;
  }

  bool full() {
    if (scene_.points.size() + scene_.texts.size() < kMostPoints && references_ < kMostReferences)
      return false;
    scene_.truncated = true;
    return true;
  }

  void emit(const BlockShapes& shapes, const Part& part, const Placer& placer, const Inherited& from) {
    SceneItem item;
    item.entity = from.entity;
    item.kind = part.kind;
    item.color = resolved(part.color, from);
    item.count = part.count;
    if (part.kind == SceneItemKind::kText) {
      item.first = static_cast<std::uint32_t>(scene_.texts.size());
      for (std::uint32_t i = 0; i < part.count; ++i) emitText(shapes.texts[part.first + i], placer, item);
    } else {
      item.first = static_cast<std::uint32_t>(scene_.loops.size());
      for (std::uint32_t i = 0; i < part.count; ++i) emitLoop(shapes, part.first + i, placer, item);
    }
    // Coordinates that are no numbers would spoil the extents of all.
    if (std::isfinite(item.box.right - item.box.left) && std::isfinite(item.box.top - item.box.bottom)) {
      scene_.items.push_back(item);
    }
  }

  void emitText(const SceneText& text, const Placer& placer, SceneItem& item) {
    SceneText placed = text;
    placed.origin = placer.transform.point(text.origin);
    placed.along = placer.transform.vector(text.along);
    placed.up = placer.transform.vector(text.up);
    for (const double a : {0.0, 1.0}) {
      for (const double u : {0.0, 1.0}) {
        item.box.add(placed.origin.x + a * placed.along.x + u * placed.up.x,
                     placed.origin.y + a * placed.along.y + u * placed.up.y);
      }
    }
    scene_.texts.push_back(std::move(placed));
  }

  void emitLoop(const BlockShapes& shapes, std::size_t number, const Placer& placer, SceneItem& item) {
    SceneLoop loop = shapes.loops[number];
    const std::span<const ScenePoint> points(shapes.points.data() + loop.first, loop.count);
    const std::size_t first = scene_.points.size();
    if (placer.keepsCircles) {
      for (const ScenePoint& point : points) {
        scene_.points.push_back(placer.transform.point(point));
        if (placer.mirrors) scene_.points.back().bulge = -point.bulge;
      }
    } else {
      // Circles become ellipses: their pieces are placed one by one.
      pieces_.clear();
      flatten(points, loop.closed, finenessOf(points), pieces_);
      for (const ScenePoint& point : pieces_) scene_.points.push_back(placer.transform.point(point));
      loop.closed = false;
    }
    loop.first = static_cast<std::uint32_t>(first);
    loop.count = static_cast<std::uint32_t>(scene_.points.size() - first);
    scene_.loops.push_back(loop);
    const std::span<const ScenePoint> placed(scene_.points.data() + first, loop.count);
    if (loop.count == 1) item.box.add(placed[0].x, placed[0].y);
    for (std::size_t i = 1; i < placed.size(); ++i) addPiece(item.box, placed[i - 1], placed[i]);
    if (loop.closed && loop.count > 1) addPiece(item.box, placed.back(), placed.front());
  }

  const Drawing& drawing_;
  LayerLooks layers_;
  ShapeReader maker_;
  std::unique_ptr<LayerLook> zero_;
  std::unordered_map<RecordId, std::unique_ptr<Block>> blocks_;
  std::vector<ScenePoint> pieces_;
  std::size_t references_ = 0;
  Scene scene_;
};

}  // namespace

void SceneBox::add(double x, double y) {
  left = std::min(left, x), right = std::max(right, x);
  bottom = std::min(bottom, y), top = std::max(top, y);
}

void SceneBox::add(const SceneBox& other) {
  left = std::min(left, other.left), right = std::max(right, other.right);
  bottom = std::min(bottom, other.bottom), top = std::max(top, other.top);
}

bool SceneBox::contains(double x, double y, double margin) const {
  return x >= left - margin && x <= right + margin && y >= bottom - margin && y <= top + margin;
}

bool SceneBox::meets(const SceneBox& other) const {
  return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
}

Scene buildScene(const Drawing& drawing) { return SceneBuilder(drawing).build(); }

}  // namespace cad
