#include "embedded/graphics/scene.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "embedded/drawing/current_space.h"
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
  SceneLook look = {}, layerLook = {};  // in a detailed scene
};

struct Block {
  BlockShapes shapes;
  Point base;
  bool open = false;  // being expanded: a block inside itself ends here
};

// A space of the drawing, as it is seen from the scene.
struct SpaceView {
  RecordId space = kNoRecord;
  Transform place = {};
  std::uint32_t clip = kNoClip;
  double linetypeScale = 1;
  std::unordered_set<RecordId> frozenLayers = {};
};

class SceneBuilder {
 public:
  // Adds what the view shows to the scene, in detail where there are styles.
  SceneBuilder(const Drawing& drawing, SpaceView view, TextStyles* styles, Scene& scene)
      : drawing_(drawing),
        view_(std::move(view)),
        styles_(styles),
        layers_(styles == nullptr ? LayerLooks(drawing) : LayerLooks(drawing, view_.frozenLayers)),
        maker_(drawing, layers_, styles),
        scene_(scene) {}

  void build() {
    const bool mayHaveViewports = styles_ != nullptr && view_.space != drawing_.modelSpace();
    BlockShapes shapes;
    for (const RecordId entity : drawing_.entitiesOf(view_.space)) {
      if (drawing_.record(entity).erased()) continue;
      if (mayHaveViewports && drawing_.typeName(entity) == "VIEWPORT") seeThrough(entity);
      shapes.clear();
      maker_.add(entity, false, shapes);
      if (shapes.parts.empty()) continue;
      expand(shapes, view_.place, fromLayer(entity));
    }
    for (const auto& [type, count] : maker_.undrawn()) scene_.undrawn[type] += count;
  }

 private:
  // Model space as a viewport shows it. A viewport whose layer is not shown has no edge, but shows all the
  // same.
  void seeThrough(RecordId entity) {
    const Geometry geometry = drawing_.geometry(entity);
    const auto* shape = std::get_if<ViewportGeometry>(&geometry.shape);
    if (shape == nullptr) return;  // whose storage cannot read it; counted as undrawn
    const ViewportGeometry& window = *shape;
    if (window.isSpace || !window.on || !(window.viewHeight > 0) || !(window.height > 0)) return;
    if (window.direction.x != 0 || window.direction.y != 0 || window.direction.z <= 0) {
      ++scene_.obliqueViews;
      return;
    }
    const double scale = window.height / window.viewHeight;
    SpaceView view{drawing_.modelSpace()};
    view.place = viewOf(window, scale);
    view.clip = clipOf(window);
    view.frozenLayers.insert(window.frozenLayers.begin(), window.frozenLayers.end());
    const auto scaled = drawing_.headerVariable("PSLTSCALE");
    const auto* flag = scaled ? std::get_if<std::int64_t>(&*scaled) : nullptr;
    const bool isPaperScale = flag == nullptr || *flag != 0;
    view.linetypeScale = view_.linetypeScale * (isPaperScale ? 1 : scale);
    SceneBuilder(drawing_, std::move(view), styles_, scene_).build();
  }

  static Transform viewOf(const ViewportGeometry& window, double scale) {
    const double turn = window.twist * kRadiansPerDegree;
    const double cosine = scale * std::cos(turn), sine = scale * std::sin(turn);
    const Transform turned{cosine, sine, -sine, cosine};
    const ScenePoint target = turned.point({window.target.x, window.target.y});
    Transform view = turned;
    view.x0 = window.centre.x - scale * window.viewCentre.x - target.x;
    view.y0 = window.centre.y - scale * window.viewCentre.y - target.y;
    return view;
  }

  std::uint32_t clipOf(const ViewportGeometry& window) {
    BlockShapes edge;
    if (window.boundary != kNoRecord) boundaryOf(window.boundary, edge);
    if (edge.loops.empty()) {
      const double x = window.width / 2, y = window.height / 2;
      const Point& at = window.centre;
      edge.points = {{at.x - x, at.y - y}, {at.x + x, at.y - y}, {at.x + x, at.y + y}, {at.x - x, at.y + y}};
      edge.loops = {{0, 4, true}};
    }
    SceneItem area;
    area.first = static_cast<std::uint32_t>(scene_.loops.size());
    for (std::size_t i = 0; i < edge.loops.size(); ++i) {
      edge.loops[i].closed = true;
      emitLoop(edge, i, Placer(view_.place), area);
    }
    scene_.clips.push_back({area.first, static_cast<std::uint32_t>(edge.loops.size()), area.box});
    return static_cast<std::uint32_t>(scene_.clips.size() - 1);
  }

  // A boundary cuts whatever its layer is.
  void boundaryOf(RecordId entity, BlockShapes& edge) const {
    if (drawing_.record(entity).erased()) return;
    ShapeReader::addPlain(drawing_.geometry(entity), edge);
  }

  Inherited fromLayer(RecordId entity) {
    const LayerLook layer = layers_.of(entity);
    if (layer.zero) return {entity, 7, layer.color, layer.shown(), {}, layer.look};
    return {entity, 7, zeroLook().color, zeroLook().shown(), {}, zeroLook().look};
  }

  // Attributes may lie on layer "0" though their reference does not.
  const LayerLook& zeroLook() {
    if (!zero_) {
      zero_ = std::make_unique<LayerLook>();
      const RecordId record = drawing_.find(Table::kLayer, std::wstring_view(L"0"));
      if (record != kNoRecord) *zero_ = LayerLooks::lookOf(drawing_, record);
      if (record != kNoRecord && styles_ != nullptr) zero_->look = layerLook(drawing_, record);
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
        follow(shapes.references[part.first], part, place, from,
               styles_ != nullptr ? resolved(shapes.looks[part.look], from) : SceneLook());
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

  static SceneLook resolved(const OwnLook& own, const Inherited& from) {
    return own.resolved(from.look, from.layerLook);
  }

  void follow(const BlockReference& reference, const Part& part, const Transform& place,
              const Inherited& from, const SceneLook& look) {
    const bool zero = reference.layer.zero;
    Inherited handed{from.entity,   resolved(part.color, from), from.ofLayer, from.layerShown, look,
                     from.layerLook};
    if (!zero) {
      handed.layerLook = reference.layer.look;
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
    if (styles_ != nullptr) addDetail(shapes, part, placer, from, item);
    if (part.kind == SceneItemKind::kText) {
      item.first = static_cast<std::uint32_t>(scene_.texts.size());
      for (std::uint32_t i = 0; i < part.count; ++i) emitText(shapes.texts[part.first + i], placer, item);
    } else {
      item.first = static_cast<std::uint32_t>(scene_.loops.size());
      for (std::uint32_t i = 0; i < part.count; ++i) emitLoop(shapes, part.first + i, placer, item);
    }
    // Coordinates that are no numbers would spoil the extents of all.
    if (!std::isfinite(item.box.right - item.box.left) || !std::isfinite(item.box.top - item.box.bottom))
      return;
    if (item.clip != kNoClip) {
      const SceneBox& window = scene_.clips[item.clip].box;
      if (!item.box.meets(window)) return dropPoints(item);
      item.box.cut(window);
    }
    scene_.items.push_back(item);
  }

  void addDetail(const BlockShapes& shapes, const Part& part, const Placer& placer, const Inherited& from,
                 SceneItem& item) {
    SceneLook look = resolved(shapes.looks[part.look], from);
    look.linetypeScale *= view_.linetypeScale;
    const auto [found, isNew] = looks_.try_emplace(look, static_cast<std::uint32_t>(scene_.looks.size()));
    if (isNew) scene_.looks.push_back(look);
    const Transform& place = placer.transform;
    item.look = found->second;
    item.clip = view_.clip;
    item.width =
        static_cast<float>(part.width * std::sqrt(std::abs(place.xx * place.yy - place.xy * place.yx)));
    if (part.kind != SceneItemKind::kPattern) return;
    item.pattern = static_cast<std::uint32_t>(scene_.hatches.size());
    std::vector<SceneHatchLine>& lines = scene_.hatches.emplace_back(shapes.hatches[part.pattern]);
    for (SceneHatchLine& line : lines) {
      line.base = place.point(line.base);
      line.along = place.vector(line.along);
      line.offset = place.vector(line.offset);
    }
  }

  // The last item does not come into the scene: neither do its points, which may be very many.
  void dropPoints(const SceneItem& item) {
    if (item.kind == SceneItemKind::kText) {
      scene_.texts.resize(item.first);
    } else {
      scene_.points.resize(item.count > 0 ? scene_.loops[item.first].first : scene_.points.size());
      scene_.loops.resize(item.first);
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
  SpaceView view_;
  TextStyles* styles_;
  LayerLooks layers_;
  ShapeReader maker_;
  std::unique_ptr<LayerLook> zero_;
  std::unordered_map<RecordId, std::unique_ptr<Block>> blocks_;
  std::map<SceneLook, std::uint32_t> looks_;
  std::vector<ScenePoint> pieces_;
  std::size_t references_ = 0;
  Scene& scene_;
};

double linetypeScale(const Drawing& drawing) {
  const auto variable = drawing.headerVariable("LTSCALE");
  const auto* scale = variable ? std::get_if<double>(&*variable) : nullptr;
  return scale != nullptr && *scale > 0 ? *scale : 1;
}

void addExtents(Scene& scene) {
  for (const SceneItem& item : scene.items) scene.extents.add(item.box);
}

}  // namespace

void SceneBox::add(double x, double y) {
  left = std::min(left, x), right = std::max(right, x);
  bottom = std::min(bottom, y), top = std::max(top, y);
}

void SceneBox::add(const SceneBox& other) {
  left = std::min(left, other.left), right = std::max(right, other.right);
  bottom = std::min(bottom, other.bottom), top = std::max(top, other.top);
}

void SceneBox::cut(const SceneBox& by) {
  left = std::max(left, by.left), right = std::min(right, by.right);
  bottom = std::max(bottom, by.bottom), top = std::min(top, by.top);
}

bool SceneBox::contains(double x, double y, double margin) const {
  return x >= left - margin && x <= right + margin && y >= bottom - margin && y <= top + margin;
}

bool SceneBox::meets(const SceneBox& other) const {
  return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
}

Scene buildScene(const Drawing& drawing) {
  Scene scene;
  SceneBuilder(drawing, {currentSpace(drawing)}, nullptr, scene).build();
  addExtents(scene);
  return scene;
}

Scene buildScene(const Drawing& drawing, const SceneDetail& detail) {
  Scene scene;
  TextStyles styles(drawing, *detail.fonts);
  SpaceView view{detail.space == kNoRecord ? currentSpace(drawing) : detail.space};
  view.linetypeScale = linetypeScale(drawing);
  SceneBuilder(drawing, std::move(view), &styles, scene).build();
  scene.missingFonts = styles.missing();
  addExtents(scene);
  return scene;
}

}  // namespace cad
