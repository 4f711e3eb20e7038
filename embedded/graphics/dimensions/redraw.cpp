#include "embedded/graphics/dimensions/redraw.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <unordered_set>

#include "base/fold.h"
#include "embedded/graphics/dimensions/entities.h"

namespace cad {
namespace {

// How far computing moves a place, as part of its coordinates.
constexpr double kRounding = 64 * std::numeric_limits<double>::epsilon();

bool isDrawn(DimensionGeometry::Kind kind) { return kind < DimensionGeometry::Kind::kArcLength; }

// Old files need not name it; in later ones no name means Standard.
bool isStyleKnown(const Drawing& drawing, RecordId dimension) {
  if (drawing.reference(dimension, Property::kDimStyle) != kNoRecord) return true;
  return drawing.facts().version >= Version::kR13 &&
         drawing.text(dimension, Property::kDimStyle).value_or(std::wstring()).empty();
}

bool isByLayer(const std::wstring& linetype) {
  return linetype.empty() || base::equalFolded(linetype, L"ByLayer");
}

// Whether a part has numbers that can be drawn.
struct IsFinite {
  static bool all(std::initializer_list<double> values) {
    return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
  }
  bool operator()(const PlaneLine& line) const {
    return all({line.from.x, line.from.y, line.to.x, line.to.y});
  }
  bool operator()(const PlaneArc& arc) const {
    return all({arc.centre.x, arc.centre.y, arc.radius, arc.start, arc.end}) && arc.radius > 0;
  }
  bool operator()(const PlaneArea& area) const {
    return all({area.left.x, area.left.y, area.right.x, area.right.y, area.tip.x, area.tip.y});
  }
  bool operator()(const PlaneArrow& arrow) const {
    return all({arrow.tip.x, arrow.tip.y, arrow.rotation, arrow.size});
  }
  bool operator()(const PlaneText& text) const { return all({text.middle.x, text.middle.y, text.rotation}); }
  bool operator()(DimPoint) const { return true; }
};

bool isFinite(const DimPicture& picture) {
  return std::ranges::all_of(picture, [](const DimPart& part) { return std::visit(IsFinite(), part.shape); });
}

// Where the record is to have the middle of its text: a text that the variables have placed takes it along.
std::optional<Point> textMiddle(const DimSource& source, const DimPicture& picture) {
  if (source.geometry.userText) return std::nullopt;
  for (const DimPart& part : picture) {
    const auto* text = std::get_if<PlaneText>(&part.shape);
    if (text == nullptr) continue;
    if (distance(text->middle, source.figure.text) <= nearness(text->middle)) return std::nullopt;
    return Point{text->middle.x, text->middle.y, source.elevation};
  }
  return std::nullopt;
}

double roundingOf(const std::vector<BlockEntity>& entities) {
  double most = 1;
  const auto reach = [&](const Point& at) {
    most = std::max({most, std::abs(at.x), std::abs(at.y), std::abs(at.z)});
  };
  for (const BlockEntity& entity : entities) {
    if (const auto* point = std::get_if<PointGeometry>(&entity.geometry.shape)) reach(point->at);
    if (const auto* line = std::get_if<LineGeometry>(&entity.geometry.shape))
      reach(line->from), reach(line->to);
  }
  return kRounding * most;
}

// Moves the contents of a block from one layer to another, and lets what has no linetype of its own follow.
class ContentMove {
 public:
  ContentMove(Drawing& drawing, BlockUses& uses, RecordId dimension, const Record& former)
      : drawing_(drawing),
        uses_(uses),
        from_(drawing.referenceOf(former, Property::kLayer)),
        to_(drawing.reference(dimension, Property::kLayer)),
        // Definition points do not stand there because the dimension does.
        keepsPoints_(from_ == drawing.find(Table::kLayer, std::wstring_view(definitionPointLayer(drawing)))),
        hadOwn_(isOwnLinetype(drawing.referenceOf(former, Property::kLinetype))),
        hasOwn_(isOwnLinetype(drawing.reference(dimension, Property::kLinetype))) {}

  base::Status run(RecordId block) {
    if (!moved_.insert(block).second) return {};
    const std::vector<RecordId> content = drawing_.entitiesOf(block);
    base::Status status;
    for (const RecordId id : content) {
      if (drawing_.record(id).erased()) continue;
      if (status) status = move(id);
      for (const RecordId part : drawing_.subRecordsOf(id))
        if (status) status = move(part);
      if (const RecordId nested = ownBlockOf(id, block); status && nested != kNoRecord) status = run(nested);
    }
    return status;
  }

 private:
  bool isOwnLinetype(RecordId linetype) const {
    return linetype != kNoRecord && !isByLayer(drawing_.names().text(drawing_.recordName(linetype)));
  }

  // The block without a name that a reference in `within` shows, if nobody elsewhere shows it: old versions
  // have the text in such a one.
  RecordId ownBlockOf(RecordId insert, RecordId within) {
    if (drawing_.typeName(insert) != "INSERT") return kNoRecord;
    const RecordId block = drawing_.reference(insert, Property::kBlockName);
    if (block == kNoRecord || drawing_.isLayoutSpace(block)) return kNoRecord;
    const bool isNameless = drawing_.names().text(drawing_.recordName(block)).starts_with(L'*');
    return isNameless && !uses_.isShared(drawing_, block, insert, within) ? block : kNoRecord;
  }

  base::Status move(RecordId id) {
    base::Status status;
    const bool stays = keepsPoints_ && drawing_.typeName(id) == "POINT";
    if (from_ != to_ && !stays && drawing_.reference(id, Property::kLayer) == from_)
      status = drawing_.setReference(id, Property::kLayer, to_);
    const NameId linetype = drawing_.name(id, Property::kLinetype);
    if (status && hadOwn_ != hasOwn_ && linetype != kNoName &&
        base::equalFolded(drawing_.names().text(linetype), hadOwn_ ? L"ByBlock" : L"ByLayer"))
      status = drawing_.setText(id, Property::kLinetype, hasOwn_ ? L"ByBlock" : L"ByLayer");
    return status;
  }

  Drawing& drawing_;
  BlockUses& uses_;
  RecordId from_, to_;
  bool keepsPoints_, hadOwn_, hasOwn_;
  std::unordered_set<RecordId> moved_;
};

}  // namespace

// --- Who shows a block -------------------------------------------------------------------------------------

bool BlockUses::isShared(const Drawing& drawing, RecordId block, RecordId user, RecordId within) {
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
    if (other == user || (within != kNoRecord && drawing.record(other).owner == within)) {
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
  if (!isStyleKnown(drawing_, dimension)) return {.outcome = DimOutcome::kNoStyle};
  DimSource source;
  gather(drawing_, dimension, former, kept, styles_, faces_, source);
  if (!isDrawn(source.geometry.kind)) return {.outcome = DimOutcome::kOtherKind};
  const DimPicture picture = drawDimension(source.figure);
  if (picture.empty() || !isFinite(picture)) return {.outcome = DimOutcome::kNothingDrawn};
  return {DimOutcome::kDrawn, pictureEntities(drawing_, dimension, source, picture, kept),
          textMiddle(source, picture)};
}

DimRedraw::Result DimRedraw::picture(RecordId dimension, const Record& former) {
  const RecordId block = drawing_.reference(dimension, Property::kDimBlock);
  if (block == kNoRecord || drawing_.isLayoutSpace(block)) return {.outcome = DimOutcome::kNoBlock};
  return pictureFor(dimension, former, blockEntities(drawing_, block));
}

base::Result<DimOutcome> DimRedraw::redraw(RecordId dimension, const Record& former) {
  RecordId block = drawing_.reference(dimension, Property::kDimBlock);
  if (block != kNoRecord && drawing_.isLayoutSpace(block)) block = kNoRecord;
  std::vector<BlockEntity> kept;
  if (block != kNoRecord) {
    kept = blockEntities(drawing_, block, BlockReading::kTexts);
  } else if (!drawing_.canHold(dimension, Property::kDimBlock)) {
    return DimOutcome::kNoBlock;
  }
  const Result result = pictureFor(dimension, former, kept);
  if (result.outcome != DimOutcome::kDrawn) return result.outcome;
  const double tolerance = roundingOf(result.entities);
  if (block != kNoRecord && !differAtAGlance(result.entities, kept, tolerance) &&
      samePicture(result.entities, blockEntities(drawing_, block), tolerance))
    return DimOutcome::kSame;
  if (const base::Status status = write(dimension, block, result); !status) return status.failure();
  return DimOutcome::kDrawn;
}

base::Status DimRedraw::write(RecordId dimension, RecordId block, const Result& result) {
  Drawing::ChangeScope scope(drawing_);
  base::Status status = writeContents(dimension, block, result.entities);
  if (!status) {
    scope.rollBack();
  } else if (result.textMiddle) {
    drawing_.setTextMiddle(dimension, *result.textMiddle);
  }
  return status;
}

base::Status DimRedraw::writeContents(RecordId dimension, RecordId block,
                                      const std::vector<BlockEntity>& entities) {
  base::Status status = needDefinitionPointLayer(entities);
  const bool isOwn = block != kNoRecord && !uses_.isShared(drawing_, block, dimension);
  if (status && isOwn) status = drawing_.redefineContents(block, entities);
  if (status && !isOwn) {
    const base::Result<RecordId> own = drawing_.addDimensionBlock(entities);
    status = own.ok() ? drawing_.setReference(dimension, Property::kDimBlock, own.value())
                      : base::Status(own.failure());
  }
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
  const base::Status status = ContentMove(drawing_, uses_, dimension, former).run(block);
  if (status) return true;
  scope.rollBack();
  return status.failure();
}

}  // namespace cad
