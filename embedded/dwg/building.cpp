// New blocks and entities.

#include "embedded/drawing/drawing.h"
#include "embedded/dwg/block_builder.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/geometry_changes.h"
#include "embedded/dwg/special_properties.h"
#include "embedded/dwg/text_background.h"

namespace cad::dwg {
namespace {

constexpr int kWeightByBlock = -2;
constexpr std::int64_t kColorByBlock = 0;

bool isText(std::string_view type) { return type == "TEXT" || type == "MTEXT" || type == "ATTDEF"; }

// Entities in the form in which the host writes those of the blocks that it draws itself.
class EntityWriter {
 public:
  EntityWriter(Drawing& drawing, DwgStorage& storage)
      : drawing_(drawing), storage_(storage), builder_(drawing, storage) {}

  base::Status resume(RecordId block) { return builder_.resume(block); }

  base::Status add(const BlockEntity& entity) {
    FieldChanges values;
    base::Status status = addLooks(values, entity);
    if (!status) return status;
    const base::Result<ObjectKind> kind = builder_.addGeometry(values, entity.type, entity.geometry);
    if (!kind.ok()) return kind.failure();
    if (isText(entity.type)) status = builder_.setStyle(values, entity.textStyle);
    const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape);
    if (status && text != nullptr && text->multiline)
      status = addBackground(drawing_, storage_, *text, values);
    if (!status) return status;
    const base::Result<RecordId> made =
        builder_.enter(kind.value(), std::move(values), signatureOf(entity, isText(entity.type)));
    return made.ok() ? base::Status() : made.failure();
  }

 private:
  base::Status addLooks(FieldChanges& values, const BlockEntity& entity) {
    base::Status status = builder_.addCommon(values);
    if (status) status = builder_.setLayer(values, entity.layer.empty() ? L"0" : entity.layer);
    if (status) status = builder_.setLinetype(values, entity.linetype);
    if (!status) return status;
    Color color = colorOf(entity.color);
    if (storage_.version() >= Version::kR2004) {
      color.rgb = entity.trueColor;
      if (entity.transparency != 0)
        values.set("color", Value(std::int64_t{entity.transparency}), 0, Part::kTransparency);
    }
    values.setColor("color", color);
    if (storage_.version() >= Version::kR2000)
      values.set("lineweight", Value(storedLineWeight(entity.lineWeight).value_or(kByLayerWeight)));
    return {};
  }

  SignatureId signatureOf(const BlockEntity& entity, bool isText) {
    NamePool& names = drawing_.names();
    Signature signature;
    signature.type = names.intern(entity.type);
    const auto named = [&](const std::wstring& name, std::string_view otherwise) {
      return name.empty() ? names.intern(otherwise) : names.intern(std::wstring_view(name));
    };
    signature.layer = named(entity.layer, "0");
    signature.linetype = named(entity.linetype, "ByLayer");
    if (isText) signature.style = named(entity.textStyle, "Standard");
    signature.color = entity.color;
    return drawing_.intern(signature);
  }

  static constexpr std::int64_t kByLayerWeight = 29;

  Drawing& drawing_;
  DwgStorage& storage_;
  BlockBuilder builder_;
};

// A shape of the host itself takes colour, linetype and lineweight from the reference.
base::Status addShape(BlockBuilder& builder, const DwgStorage& storage, const Shape& shape) {
  Geometry geometry;
  std::string_view type;
  dwg::addShape(shape, geometry, type);
  FieldChanges values;
  base::Status status = builder.addCommon(values);
  if (status) status = builder.setLinetype(values, L"ByBlock");
  if (!status) return status;
  values.setColor("color", colorOf(kColorByBlock));
  if (storage.version() >= Version::kR2000)
    values.set("lineweight", Value(storedLineWeight(kWeightByBlock).value_or(0)));
  const base::Result<ObjectKind> kind = builder.addGeometry(values, type, geometry);
  if (!kind.ok()) return kind.failure();
  const base::Result<RecordId> made = builder.enter(kind.value(), std::move(values));
  return made.ok() ? base::Status() : made.failure();
}

}  // namespace

base::Result<RecordId> DwgStorage::defineBlock(Drawing& drawing, std::wstring_view name,
                                               const BlockHead& head, std::span<const Shape> shapes) {
  Drawing::ChangeScope scope(drawing);
  BlockBuilder builder(drawing, *this);
  base::Status status = builder.open(name, head);
  for (const Shape& shape : shapes)
    if (status) status = addShape(builder, *this, shape);
  if (status) return builder.block();
  scope.rollBack();
  return status.failure();
}

base::Status DwgStorage::addEntities(Drawing& drawing, RecordId block,
                                     std::span<const BlockEntity> entities) {
  EntityWriter writer(drawing, *this);
  base::Status status = writer.resume(block);
  for (const BlockEntity& entity : entities)
    if (status) status = writer.add(entity);
  return status;
}

base::Result<RecordId> DwgStorage::addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                             const Geometry& geometry) {
  Drawing::ChangeScope scope(drawing);
  BlockBuilder builder(drawing, *this);
  FieldChanges values;
  base::Status status = builder.resume(block);
  if (status) status = builder.addCommon(values);
  if (status && isText(type)) status = builder.setStyle(values, {});
  if (status) {
    const base::Result<ObjectKind> kind = builder.addGeometry(values, type, geometry);
    base::Result<RecordId> made =
        kind.ok() ? builder.enter(kind.value(), std::move(values)) : base::Result<RecordId>(kind.failure());
    if (made.ok()) return made;
    status = made.failure();
  }
  scope.rollBack();
  return status.failure();
}

base::Result<EditId> DwgStorage::setLastVertex(const Record& leader, const Point& at) {
  const std::uint32_t count = fields(leader).count("vertex");
  if (count == 0) return base::Failure{L"LEADER", L"The leader has no vertices"};
  FieldChanges changes;
  changes.set("vertex", Value(at), count - 1);
  return changed(leader, changes);
}

EditId DwgStorage::setTextMiddle(const Record& dimension, const Point& at) {
  FieldChanges changes;
  changes.set("text midpoint", Value(Point{at.x, at.y, 0}));
  changes.set("elevation", Value(at.z));
  const base::Result<EditId> state = changed(dimension, changes);
  return state.ok() ? state.value() : dimension.edits;
}

}  // namespace cad::dwg
