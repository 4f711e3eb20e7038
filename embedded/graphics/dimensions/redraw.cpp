#include "embedded/graphics/dimensions/redraw.h"

#include <algorithm>
#include <cmath>

#include "base/fold.h"
#include "embedded/graphics/dimensions/entities.h"

namespace cad {
namespace {

// As parts of the picture's size.
constexpr double kSame = 1e-9;

bool isDrawn(DimensionGeometry::Kind kind) { return kind < DimensionGeometry::Kind::kArcLength; }

bool isByLayer(const std::wstring& linetype) {
  return linetype.empty() || base::equalFolded(linetype, L"ByLayer");
}

// Every number of the picture, and how far it reaches.
struct Reach {
  double most = 0;
  bool isFinite = true;
  void add(const Vec& at) {
    isFinite = isFinite && std::isfinite(at.x) && std::isfinite(at.y);
    most = std::max({most, std::abs(at.x), std::abs(at.y)});
  }
  void operator()(const PlaneLine& line) { add(line.from), add(line.to); }
  void operator()(const PlaneArc& arc) {
    add(arc.centre), add({arc.radius, 0}), add({arc.start, arc.end});
    isFinite = isFinite && arc.radius > 0;
  }
  void operator()(const PlaneArea& area) { add(area.left), add(area.right), add(area.tip); }
  void operator()(const PlaneArrow& arrow) {
    add(arrow.tip), add({arrow.rotation, 0});
    isFinite = isFinite && std::isfinite(arrow.size);
  }
  void operator()(const PlaneText& text) { add(text.middle), add({text.rotation, 0}); }
  void operator()(DimPoint) {}
};

Reach reachOf(const DimPicture& picture) {
  Reach reach;
  for (const DimPart& part : picture) std::visit(reach, part.shape);
  return reach;
}

double sizeOf(const std::vector<BlockEntity>& entities) {
  double most = 1;
  for (const BlockEntity& entity : entities) {
    if (const auto* line = std::get_if<LineGeometry>(&entity.geometry.shape))
      most = std::max(
          {most, std::abs(line->from.x), std::abs(line->from.y), std::abs(line->to.x), std::abs(line->to.y)});
  }
  return most;
}

}  // namespace

// --- Who shows a block -------------------------------------------------------------------------------------

bool BlockUses::isShared(const Drawing& drawing, RecordId block, RecordId user) {
  const auto blockOf = [&](RecordId id) {
    const std::string_view type = drawing.typeName(id);
    if (type == "INSERT") return drawing.reference(id, Property::kBlockName);
    return type.ends_with("DIMENSION") ? drawing.reference(id, Property::kDimBlock) : kNoRecord;
  };
  for (; known_ < drawing.recordCount(); ++known_) {
    const auto id = static_cast<RecordId>(known_);
    if (drawing.record(id).kind != RecordKind::kEntity) continue;
    if (const RecordId shown = blockOf(id); shown != kNoRecord) users_[shown].push_back(id);
  }
  // Those who have left the block go to the end, where they are not met again while others show it.
  std::vector<RecordId>& users = users_[block];
  std::size_t left = users.size();
  for (std::size_t i = 0; i < left;) {
    const RecordId other = users[i];
    if (other == user) {
      ++i;
      continue;
    }
    if (!drawing.record(other).erased() && blockOf(other) == block) return true;
    std::swap(users[i], users[--left]);
  }
  return false;
}

// --- The picture -------------------------------------------------------------------------------------------

DimRedraw::Result DimRedraw::pictureFor(RecordId dimension, const Record& former,
                                        const std::vector<BlockEntity>& kept) {
  const bool isOld = drawing_.facts().version < Version::kR13;
  if (isOld && drawing_.reference(dimension, Property::kDimStyle) == kNoRecord)
    return {DimOutcome::kNoStyle, {}};
  DimSource source;
  gather(drawing_, dimension, former, kept, styles_, faces_, source);
  if (!isDrawn(source.geometry.kind)) return {DimOutcome::kOtherKind, {}};
  const DimPicture picture = drawDimension(source.figure);
  if (picture.empty() || !reachOf(picture).isFinite) return {DimOutcome::kNothingDrawn, {}};
  return {DimOutcome::kDrawn, entitiesOf(drawing_, dimension, source, picture, kept)};
}

DimRedraw::Result DimRedraw::picture(RecordId dimension, const Record& former) {
  const RecordId block = drawing_.reference(dimension, Property::kDimBlock);
  if (block == kNoRecord || drawing_.isLayoutSpace(block)) return {DimOutcome::kNoBlock, {}};
  return pictureFor(dimension, former, blockEntities(drawing_, block));
}

base::Result<DimOutcome> DimRedraw::redraw(RecordId dimension, const Record& former) {
  const RecordId block = drawing_.reference(dimension, Property::kDimBlock);
  if (block == kNoRecord || drawing_.isLayoutSpace(block)) return DimOutcome::kNoBlock;
  const std::vector<BlockEntity> kept = blockEntities(drawing_, block, BlockReading::kTexts);
  const Result result = pictureFor(dimension, former, kept);
  if (result.outcome != DimOutcome::kDrawn) return result.outcome;
  const double tolerance = kSame * sizeOf(result.entities);
  if (!differAtAGlance(result.entities, kept, tolerance) &&
      samePicture(result.entities, blockEntities(drawing_, block), tolerance))
    return DimOutcome::kSame;
  if (const base::Status status = write(dimension, block, result.entities); !status) return status.failure();
  return DimOutcome::kDrawn;
}

base::Status DimRedraw::write(RecordId dimension, RecordId block, const std::vector<BlockEntity>& entities) {
  const bool isShared = uses_.isShared(drawing_, block, dimension);
  Drawing::ChangeScope scope(drawing_);
  base::Status status = needDefinitionPointLayer(entities);
  if (status && !isShared) status = drawing_.redefineContents(block, entities);
  if (status && isShared) {
    const base::Result<RecordId> own = drawing_.addDimensionBlock(entities);
    status = own.ok() ? drawing_.setReference(dimension, Property::kDimBlock, own.value())
                      : base::Status(own.failure());
  }
  if (!status) scope.rollBack();
  return status;
}

base::Status DimRedraw::needDefinitionPointLayer(const std::vector<BlockEntity>& entities) {
  const auto isPoint = [](const BlockEntity& entity) { return entity.type == "POINT"; };
  const std::wstring name = definitionPointLayer(drawing_);
  if (std::ranges::none_of(entities, isPoint) ||
      drawing_.find(Table::kLayer, std::wstring_view(name)) != kNoRecord)
    return {};
  const base::Result<RecordId> layer = drawing_.addTableRecord(Table::kLayer, name);
  if (!layer.ok()) return layer.failure();
  // What stands on this layer is not printed, whatever it is called otherwise.
  if (!drawing_.canHold(layer.value(), Property::kLayerPlottable)) return {};
  return drawing_.setInteger(layer.value(), Property::kLayerPlottable, 0);
}

// --- Without drawing ---------------------------------------------------------------------------------------

base::Result<bool> DimRedraw::follow(RecordId dimension, const Record& former) {
  const RecordId block = drawing_.reference(dimension, Property::kDimBlock);
  if (block == kNoRecord || drawing_.isLayoutSpace(block)) return true;
  if (uses_.isShared(drawing_, block, dimension)) return false;
  Drawing::ChangeScope scope(drawing_);
  const base::Status status = moveContents(dimension, block, former);
  if (status) return true;
  scope.rollBack();
  return status.failure();
}

base::Status DimRedraw::moveContents(RecordId dimension, RecordId block, const Record& former) {
  const RecordId from = drawing_.referenceOf(former, Property::kLayer);
  const RecordId to = drawing_.reference(dimension, Property::kLayer);
  const auto hasOwnLinetype = [&](RecordId linetype) {
    return linetype != kNoRecord && !isByLayer(drawing_.names().text(drawing_.recordName(linetype)));
  };
  const bool hadOwn = hasOwnLinetype(drawing_.referenceOf(former, Property::kLinetype));
  const bool hasOwn = hasOwnLinetype(drawing_.reference(dimension, Property::kLinetype));
  const wchar_t* const before = hadOwn ? L"ByBlock" : L"ByLayer";
  const wchar_t* const after = hasOwn ? L"ByBlock" : L"ByLayer";
  const auto move = [&](RecordId id) {
    base::Status status;
    if (from != to && drawing_.reference(id, Property::kLayer) == from)
      status = drawing_.setReference(id, Property::kLayer, to);
    const NameId linetype = drawing_.name(id, Property::kLinetype);
    if (status && hadOwn != hasOwn && linetype != kNoName &&
        base::equalFolded(drawing_.names().text(linetype), before))
      status = drawing_.setText(id, Property::kLinetype, after);
    return status;
  };
  const std::vector<RecordId> content = drawing_.entitiesOf(block);
  base::Status status;
  for (const RecordId id : content) {
    if (drawing_.record(id).erased()) continue;
    if (status) status = move(id);
    for (const RecordId part : drawing_.subRecordsOf(id))
      if (status) status = move(part);
  }
  return status;
}

}  // namespace cad
