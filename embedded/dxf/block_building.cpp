// Block definitions and references that the host makes.

#include "embedded/dxf/attribute_writer.h"
#include "embedded/dxf/block_copier.h"
#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/header_variables.h"
#include "embedded/dxf/record_tools.h"
#include "embedded/dxf/shape_writer.h"

namespace cad::dxf {

base::Result<RecordId> DxfStorage::defineBlock(Drawing& drawing, std::wstring_view name,
                                               const BlockHead& head, std::span<const Shape> shapes) {
  Drawing::ChangeScope scope(drawing);
  BlockWriter block(drawing, *this);
  if (const base::Status status = block.open(name, head); !status.ok()) {
    scope.rollBack();
    return status.failure();
  }
  for (const Shape& shape : shapes) writeShape(drawing, block, shape);
  return block.close();
}

std::optional<base::Result<RecordId>> DxfStorage::copyBlock(Drawing& drawing, std::wstring_view name,
                                                            const Drawing& source) {
  const DxfStorage* from = dxfStorage(source);
  if (from == nullptr) return std::nullopt;
  Drawing::ChangeScope scope(drawing);
  BlockCopier copier(drawing, *this, source, *from);
  base::Result<RecordId> block = copier.copyModelSpace(name);
  if (const base::Status unchanged = from->source_->checkUnchanged(); block.ok() && !unchanged)
    block = unchanged.failure();
  if (!block.ok()) scope.rollBack();
  return block;
}

Point DxfStorage::basePoint(const Drawing& drawing, RecordId block) const {
  if (block == drawing.modelSpace()) return headerPoint(drawing, *this, "INSBASE").value_or(Point{});
  const RecordGroups groups(*this, drawing.record(block));
  const auto coordinate = [&](int code) {
    const Group* group = groups.find(code);
    return group == nullptr ? 0.0 : realValue(*group, dialect_).value_or(0);
  };
  return {coordinate(10), coordinate(20), coordinate(30)};
}

base::Result<RecordId> DxfStorage::addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) {
  const std::wstring name = blockName(drawing, insert.block);
  Drawing::ChangeScope scope(drawing);
  const bool active = space == drawing.modelSpace() || space == drawing.paperSpace();
  base::Result<RecordId> before =
      active ? endOfSection(drawing, Section::kEntities) : drawing.endOfBlock(space);
  if (!before.ok() || before.value() == kNoRecord) {
    scope.rollBack();
    return before.ok() ? failure(name, L"The space has no end") : before.failure();
  }
  RecordBuilder builder(*this);
  builder.stored(0, "INSERT");
  if (const std::optional<Handle> handle = takeHandle(drawing)) builder.handle(5, *handle);
  const std::optional<Handle> owner = ownerHandleOf(drawing, space);
  if (owner && writesOwners(drawing, *this)) builder.handle(330, *owner);
  builder.subclass("AcDbEntity");
  if (space == drawing.paperSpace()) builder.integer(67, 1);
  // A file may hold the variable under another type's code.
  const std::optional<Variable> current = headerVariable(drawing, "CLAYER");
  const auto* named = current ? std::get_if<std::wstring>(&*current) : nullptr;
  const std::wstring layer = named != nullptr ? *named : L"0";
  builder.text(8, layer).subclass("AcDbBlockReference");
  if (!insert.attributes.empty()) builder.integer(66, 1);
  builder.text(2, name).point(10, insert.at);
  const double scale = insert.scale;
  if (scale != 1) builder.real(41, scale).real(42, scale).real(43, scale);
  if (insert.rotation != 0) builder.real(50, insert.rotation);
  const RecordId made =
      this->insert(drawing, {RecordKind::kEntity, Table::kNone, before.value(), space, builder.take()});
  if (!insert.attributes.empty()) {
    const NewReference reference{made, before.value(), layer, insert.at, scale, insert.rotation};
    addAttributes(drawing, *this, reference, insert.attributes);
  }
  return made;
}

}  // namespace cad::dxf
