// Block definitions and references that the host makes.

#include <cmath>

#include "embedded/dxf/attribute_writer.h"
#include "embedded/dxf/block_copier.h"
#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/record_tools.h"
#include "embedded/dxf/shape_writer.h"

namespace cad::dxf {

base::Result<RecordId> DxfStorage::defineBlock(Drawing& drawing, std::wstring_view name,
                                               std::span<const Shape> shapes) {
  Drawing::ChangeScope scope(drawing);
  BlockWriter block(drawing, *this);
  if (const base::Status status = block.open(name, {}); !status.ok()) {
    scope.rollBack();
    return status.failure();
  }
  for (const Shape& shape : shapes) writeShape(drawing, block, shape);
  return block.close();
}

base::Result<RecordId> DxfStorage::defineBlock(Drawing& drawing, std::wstring_view name,
                                               const Drawing& source) {
  const DxfStorage* from = dxfStorage(source);
  if (from == nullptr) return failure(name, L"Blocks are copied from DXF drawings only");
  Drawing::ChangeScope scope(drawing);
  BlockCopier copier(drawing, *this, source, *from);
  base::Result<RecordId> block = copier.copyModelSpace(name);
  if (const base::Status unchanged = from->source_->checkUnchanged(); block.ok() && !unchanged)
    block = unchanged.failure();
  if (!block.ok()) scope.rollBack();
  return block;
}

base::Result<RecordId> DxfStorage::addInsert(Drawing& drawing, RecordId space, std::wstring_view name,
                                             Point at, double scale, double rotationDegrees,
                                             std::span<const std::wstring> attributes) {
  if (drawing.find(Table::kBlock, name) == kNoRecord)
    return failure(name, L"The drawing has no block of this name");
  if (!std::isfinite(scale) || scale == 0 || !std::isfinite(rotationDegrees))
    return failure(name, L"The scale must not be 0");
  Drawing::ChangeScope scope(drawing);
  const bool active = space == drawing.modelSpace() || space == drawing.paperSpace();
  base::Result<RecordId> before =
      active ? drawing.endOfSection(Section::kEntities) : drawing.endOfBlock(space);
  if (!before.ok() || before.value() == kNoRecord) {
    scope.rollBack();
    return before.ok() ? failure(name, L"The space has no end") : before.failure();
  }
  RecordBuilder builder(*this);
  builder.stored(0, "INSERT");
  if (const std::optional<Handle> handle = drawing.takeHandle()) builder.handle(5, *handle);
  const std::optional<Handle> owner = ownerHandleOf(drawing, space);
  if (owner && writesOwners(drawing, *this)) builder.handle(330, *owner);
  builder.subclass("AcDbEntity");
  if (space == drawing.paperSpace()) builder.integer(67, 1);
  // A file may hold the variable under another type's code.
  const std::optional<Variable> current = headerVariable(drawing, "CLAYER");
  const auto* named = current ? std::get_if<std::wstring>(&*current) : nullptr;
  const std::wstring layer = named != nullptr ? *named : L"0";
  builder.text(8, layer).subclass("AcDbBlockReference");
  if (!attributes.empty()) builder.integer(66, 1);
  builder.text(2, name).point(10, at);
  if (scale != 1) builder.real(41, scale).real(42, scale).real(43, scale);
  if (rotationDegrees != 0) builder.real(50, rotationDegrees);
  const RecordId made =
      drawing.insertRecord({RecordKind::kEntity, Table::kNone, before.value(), space, builder.take()});
  if (!attributes.empty())
    addAttributes(drawing, *this, {made, before.value(), layer, at, scale, rotationDegrees}, attributes);
  return made;
}

}  // namespace cad::dxf
