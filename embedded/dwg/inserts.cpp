// Block references that the host makes, with their attributes.

#include <cmath>

#include "embedded/drawing/insert_place.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/block_builder.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {
namespace {

// What an attribute takes from its definition besides its place.
constexpr std::string_view kCopied[] = {"elevation",
                                        "extrusion",
                                        "thickness",
                                        "oblique angle",
                                        "width factor",
                                        "generation",
                                        "text",
                                        "tag",
                                        "field length",
                                        "flags",
                                        "lock position",
                                        "linetype scale",
                                        "invisible",
                                        "lineweight",
                                        "horizontal alignment",
                                        "linetype flags",
                                        "linetype by layer",
                                        "layer",
                                        "linetype",
                                        "vertical alignment",
                                        "style"};

class AttributeBuilder {
 public:
  AttributeBuilder(Drawing& drawing, DwgStorage& storage, const NewInsert& insert, Handle owner)
      : drawing_(drawing),
        storage_(storage),
        place_{insert.at, drawing.basePoint(insert.block), insert.scale, insert.rotation},
        owner_(owner) {}

  NewObject make(RecordId definition, Handle handle, const std::wstring* value) const {
    const Fields fields = storage_.fields(drawing_.record(definition));
    NewObject object{ObjectKind::kAttrib, handle, {}};
    FieldChanges& values = object.values;
    for (const std::string_view name : kCopied)
      if (const Field* field = fields.find(name)) copy(fields, *field, values);
    values.setColor("color", fields.color("color"));
    values.set("entity mode", 0);
    values.setHandle("owner", owner_);
    values.set("height", Value(fields.real("height", 1) * std::fabs(place_.scale)));
    values.set("rotation", Value(fields.real("rotation") + place_.turn() * kRadiansPerDegree));
    const double z = place_.of({0, 0, fields.real("elevation")}).z;
    values.set("elevation", Value(z));
    for (const std::string_view name : {"insertion point", "alignment point"})
      if (fields.find(name) != nullptr) values.set(name, Value(flat(place_.of(fields.point(name)))));
    if (value != nullptr)
      values.set("text", storage_.fieldText(encodeStored(*value, storage_.facts().codePage)));
    return object;
  }

 private:
  static void copy(const Fields& fields, const Field& field, FieldChanges& values) {
    if (std::holds_alternative<HandleReference>(field.value))
      values.setHandle(field.name, fields.handle(field.name).value_or(0));
    else
      values.set(field.name, field.value);
  }

  static Point flat(const Point& point) { return {point.x, point.y, 0}; }

  Drawing& drawing_;
  DwgStorage& storage_;
  InsertPlace place_;
  Handle owner_;
};

// Attributes and the end of their sequence, in the order in which they stand.
std::vector<Handle> takeHandles(DwgStorage& storage, std::size_t count) {
  std::vector<Handle> handles(count);
  for (Handle& handle : handles) handle = storage.takeHandle();
  return handles;
}

}  // namespace

base::Result<RecordId> DwgStorage::addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) {
  Drawing::ChangeScope scope(drawing);
  BlockBuilder builder(drawing, *this);
  NewObject object{ObjectKind::kInsert, takeHandle(), {}};
  base::Status status = builder.resume(space);
  if (status) status = builder.addCommon(object.values);
  const std::optional<Variable> current = headerVariable(drawing, "CLAYER");
  const auto* named = current ? std::get_if<std::wstring>(&*current) : nullptr;
  const std::wstring layer = named != nullptr ? *named : L"0";
  if (status) status = builder.setLayer(object.values, layer);
  const double scale = insert.scale;
  const InsertGeometry shape{insert.block, insert.at, {scale, scale, scale}, insert.rotation};
  if (status) {
    const base::Result<ObjectKind> kind = builder.addGeometry(object.values, "INSERT", {shape});
    if (!kind.ok()) status = kind.failure();
  }
  std::vector<RecordId> definitions;
  if (!insert.attributes.empty()) definitions = drawing.attributeDefinitionsOf(insert.block);
  std::vector<Handle> handles;
  if (!definitions.empty()) {
    handles = takeHandles(*this, definitions.size() + 1);
    object.values.set("has attributes", true);
    listParts(*this, handles, kAttributeNames, object.values);
  }
  base::Result<RecordId> made = base::Failure{};
  if (status) {
    made = enter(drawing, object, {.kind = RecordKind::kEntity, .owner = space});
    if (!made.ok()) status = made.failure();
  }
  const AttributeBuilder attributes(drawing, *this, insert, object.handle);
  for (std::size_t i = 0; status && i < handles.size(); ++i) {
    NewObject part{ObjectKind::kSeqend, handles[i], {}};
    if (i < definitions.size())
      part = attributes.make(definitions[i], handles[i],
                             i < insert.attributes.size() ? &insert.attributes[i] : nullptr);
    else
      status = builder.setLayer(part.values, layer);
    part.values.set("entity mode", 0);
    part.values.setHandle("owner", object.handle);
    linkPart(*this, handles, i, part.values);
    if (!status) break;
    const base::Result<RecordId> entered =
        enter(drawing, part, {.kind = RecordKind::kSubEntity, .owner = made.value()});
    if (!entered.ok()) status = entered.failure();
  }
  if (status) return made;
  scope.rollBack();
  return status.failure();
}

}  // namespace cad::dwg
