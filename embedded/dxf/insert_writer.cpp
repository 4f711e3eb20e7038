// Block references that the host makes, with their attributes.

#include <cmath>

#include "embedded/drawing/insert_place.h"
#include "embedded/dxf/geometry_groups.h"
#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

struct NewReference {
  RecordId record, before;  // its attributes follow it, in front of the record `before`
  std::wstring layer;
  Point at;
  double scale, rotation;  // degrees
};

class AttributeWriter {
 public:
  AttributeWriter(Drawing& drawing, DxfStorage& storage, const NewReference& reference)
      : drawing_(drawing),
        storage_(storage),
        reference_(reference),
        owner_(drawing.handle(reference.record)) {
    block_ = drawing.find(Table::kBlock, drawing.name(reference.record, Property::kBlockName));
    const Point base = GeometryGroups(storage, drawing.record(block_)).point(10);
    place_ = {reference.at, base, reference.scale, reference.rotation};
  }

  RecordId block() const { return block_; }

  void add(RecordId definition, const std::wstring* value) {
    RecordBuilder builder(storage_);
    begin(builder, "ATTRIB");
    const Record& record = drawing_.record(definition);
    const RecordGroups groups(storage_, record);
    const GeometryGroups geometry(storage_, record);
    at_ = place_.of(geometry.point(10));
    second_ = place_.of(geometry.point(11));
    bool isApplicationData = false;
    for (std::size_t i = 1; i < groups.plainCount(); ++i) {
      const Group& group = groups.all()[i];
      if (group.code == kEmbeddedObject) break;
      const bool isMark = group.code == kApplicationMark;
      if (isMark) isApplicationData = group.value.starts_with("{");
      if (!isMark && !isApplicationData) copy(builder, groups, group, geometry, value);
    }
    keep(builder);
  }

  void end() {
    RecordBuilder builder(storage_);
    begin(builder, "SEQEND");
    builder.subclass("AcDbEntity");
    addSpace(builder);
    builder.text(8, reference_.layer);
    keep(builder);
  }

 private:
  static constexpr int kEmbeddedObject = 101, kApplicationMark = 102;

  void begin(RecordBuilder& builder, std::string_view type) {
    builder.stored(0, type);
    if (const std::optional<Handle> handle = storage_.takeHandle(drawing_)) builder.handle(5, *handle);
    if (owner_ && writesOwners(drawing_, storage_)) builder.handle(330, *owner_);
  }

  void addSpace(RecordBuilder& builder) {
    if (drawing_.blockOf(reference_.record) == drawing_.paperSpace()) builder.integer(67, 1);
  }

  void copy(RecordBuilder& builder, const RecordGroups& groups, const Group& group,
            const GeometryGroups& geometry, const std::wstring* value) {
    const auto unchanged = [&] { builder.raw(groups.bytes().substr(group.begin, group.end - group.begin)); };
    switch (group.code) {
      case 3:  // the prompt
      case 5:
      case 50:
      case 67:
      case 330:
      case 360:
        return;
      case 1:
        if (value == nullptr) return unchanged();
        builder.text(1, *value);
        return;
      case 8:
        addSpace(builder);
        return unchanged();
      case 10:
        builder.point(10, at_);
        return;
      case 11:
        builder.point(11, second_);
        return;
      case 20:
      case 21:
      case 30:
      case 31:
        return;  // came with 10 and 11
      case 40:
        builder.real(40, geometry.real(40) * std::fabs(reference_.scale));
        if (const double angle = geometry.real(50) + place_.turn(); angle != 0) builder.real(50, angle);
        return;
      case 100:
        if (!equalNoCase(trimmed(group.value), "AcDbAttributeDefinition")) return unchanged();
        builder.stored(100, "AcDbAttribute");
        return;
      default:
        unchanged();
    }
  }

  void keep(RecordBuilder& builder) {
    storage_.insert(drawing_, {RecordKind::kSubEntity, Table::kNone, reference_.before, reference_.record,
                               builder.take()});
  }

  Drawing& drawing_;
  DxfStorage& storage_;
  const NewReference& reference_;
  std::optional<Handle> owner_;
  RecordId block_ = kNoRecord;
  InsertPlace place_;
  Point at_, second_;
};

// Adds an attribute for each of the block's varying definitions, moved with the reference, and the end of the
// sequence. A definition without a value keeps its default.
void addAttributes(Drawing& drawing, DxfStorage& storage, const NewReference& reference,
                   std::span<const std::wstring> values) {
  AttributeWriter writer(drawing, storage, reference);
  std::size_t next = 0;
  for (const RecordId definition : drawing.attributeDefinitionsOf(writer.block())) {
    writer.add(definition, next < values.size() ? &values[next] : nullptr);
    ++next;
  }
  writer.end();
}

}  // namespace

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
