// Blocks copied from one DWG file into another, field by field.

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "base/fold.h"
#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/block_builder.h"
#include "embedded/dwg/dim_lists.h"

namespace cad::dwg {
namespace {

// What tells of an entity's place in its own drawing, or of objects there that are not copied.
constexpr std::string_view kOfItsDrawing[] = {"entity mode",
                                              "owner",
                                              "reactor count",
                                              "reactor",
                                              "no dictionary",
                                              "dictionary",
                                              "no links",
                                              "previous",
                                              "next",
                                              "has graphics",
                                              "graphics size",
                                              "graphics",
                                              "has binary data",
                                              "plot style flags",
                                              "plot style",
                                              "material flags",
                                              "material",
                                              "has full visual style",
                                              "full visual style",
                                              "has face visual style",
                                              "face visual style",
                                              "has edge visual style",
                                              "edge visual style",
                                              "boundary"};

bool isOfItsDrawing(std::string_view name) {
  return std::ranges::find(kOfItsDrawing, name) != std::end(kOfItsDrawing);
}

bool isColorPart(Part part) {
  return part == Part::kRgb || part == Part::kMarks || part == Part::kColorName || part == Part::kBookName ||
         part == Part::kReference;
}

bool hasDimStyle(std::string_view type) { return takesDimOverrides(type); }

class BlockCopier final : public BlockCopy {
 public:
  BlockCopier(Drawing& target, DwgStorage& to, const Drawing& source, const DwgStorage& from)
      : BlockCopy(target, source), to_(to), from_(from) {}

 protected:
  base::Status need(RecordId entity) override;
  base::Result<RecordId> copyEntities(const std::vector<RecordId>& entities, std::wstring_view name,
                                      const BlockHead& head) override;

 private:
  base::Status checkType(RecordId record) const;
  base::Status needNames(RecordId record);
  base::Status copyEntity(BlockBuilder& builder, RecordId entity);
  base::Result<NewObject> copied(RecordId record);
  void copyField(const Fields& fields, const Field& field, FieldChanges& values);
  base::Status copyExtended(RecordId record, FieldChanges& values);
  base::Result<ExtendedData> copiedData(RecordId record, const ExtendedData& data);
  base::Status checkVersion(std::string_view type, const Fields& fields, ObjectKind kind) const;
  void fitVersion(RecordId record, const Fields& fields, ObjectKind kind, FieldChanges& values) const;
  void setWithoutPartners(const Fields& fields, ObjectKind kind, FieldChanges& values) const;
  Handle counterpart(Handle handle);
  std::wstring nameOf(RecordId record) const;
  bool sharesTexts() const;  // both drawings encode them alike
  Value recoded(const Value& text) const;

  DwgStorage& to_;
  const DwgStorage& from_;
  std::unordered_map<Handle, Handle> handles_;  // of what is copied, and of the copies
};

// --- What the entities need -------------------------------------------------------------------------------

base::Status BlockCopier::checkType(RecordId record) const {
  const std::string_view type = source_.typeName(record);
  const ObjectKind kind = from_.typeOf(source_.record(record)).kind;
  const bool isTied =
      kind == ObjectKind::kOther || kind == ObjectKind::kViewport || kind == ObjectKind::kTable;
  if (isTied) return refusedType(type, L"Entities of this type are not copied between drawings");
  const Fields& fields = from_.fields(source_.record(record));
  if (!fields.intact()) return refusedType(type, L"A value of the entity is broken");
  return checkVersion(type, fields, kind);
}

base::Status BlockCopier::checkVersion(std::string_view type, const Fields& fields, ObjectKind kind) const {
  const bool ofLines = fields.integer("attribute type", 1) > 1;
  if ((ofLines && to_.version() < Version::kR2018) || !numberOf(kind, to_.version(), to_.classes()))
    return refusedType(type, L"The drawing's version cannot hold entities of this type");
  return {};
}

base::Status BlockCopier::needNames(RecordId record) {
  base::Status status = symbols_.needNamed(record);
  const std::string_view type = source_.typeName(record);
  if (status && hasDimStyle(type)) {
    status = needStyle(source_.text(record, Property::kDimStyle).value_or(std::wstring()));
    if (status) status = needDimVariables(record);
  }
  for (const Property property : {Property::kBlockName, Property::kDimBlock}) {
    const std::wstring name = source_.text(record, property).value_or(std::wstring());
    if (status && !name.empty()) status = needBlock(name);
  }
  return status;
}

base::Status BlockCopier::need(RecordId entity) {
  base::Status status = checkType(entity);
  if (status) status = needNames(entity);
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    if (status) status = checkType(sub);
    if (status) status = needNames(sub);
  }
  return status;
}

// --- References and texts ---------------------------------------------------------------------------------

std::wstring BlockCopier::nameOf(RecordId record) const {
  const NameId name = source_.recordName(record);
  return name == kNoName ? std::wstring() : source_.names().text(name);
}

// 0: the drawing that is copied into has none.
Handle BlockCopier::counterpart(Handle handle) {
  if (const auto copy = handles_.find(handle); copy != handles_.end()) return copy->second;
  if (const RecordId block = from_.blockOf(handle); block != kNoRecord) {
    const auto name = blockNames_.find(base::upper(nameOf(block)));
    if (name == blockNames_.end()) return 0;
    const RecordId here = target_.find(Table::kBlock, std::wstring_view(name->second));
    return here == kNoRecord ? 0 : to_.entryOf(target_.record(here));
  }
  const RecordId named = from_.recordOf(handle);
  if (named == kNoRecord || source_.record(named).kind != RecordKind::kTableRecord) return 0;
  const std::wstring name = nameOf(named);
  const Table table = source_.record(named).table;
  if (table == Table::kAppId) {
    const base::Result<Handle> application = applicationHandle(target_, name);
    return application.ok() ? application.value() : 0;
  }
  const RecordId here = target_.find(table, std::wstring_view(name));
  if (here == kNoRecord || !target_.materialise(here)) return 0;
  return target_.handle(here).value_or(0);
}

bool BlockCopier::sharesTexts() const {
  const bool wide = hasWideTexts(from_.version());
  if (wide != hasWideTexts(to_.version())) return false;
  return wide || from_.facts().codePage == to_.facts().codePage;
}

Value BlockCopier::recoded(const Value& text) const {
  if (sharesTexts()) return text;
  return to_.fieldText(encodeStored(from_.text(text), to_.facts().codePage));
}

// --- Entities ---------------------------------------------------------------------------------------------

void BlockCopier::copyField(const Fields& fields, const Field& field, FieldChanges& values) {
  if (isOfItsDrawing(field.name) || isColorPart(field.part)) return;
  if (std::holds_alternative<HandleReference>(field.value)) {
    const Handle handle = fields.handle(field.name, field.index).value_or(0);
    values.setHandle(field.name, counterpart(handle), field.index);
  } else if (field.type == BitType::kText) {
    values.set(field.name, recoded(field.value), field.index, field.part);
  } else if (std::holds_alternative<std::monostate>(field.value)) {
    values.set(field.name, fields.bytes(field), field.index, field.part);
  } else {
    values.set(field.name, field.value, field.index, field.part);
  }
}

// A leader loses an annotation that is not copied; a hatch does not follow the boundaries of its old drawing.
void BlockCopier::setWithoutPartners(const Fields& fields, ObjectKind kind, FieldChanges& values) const {
  constexpr int kNoAnnotation = 3;
  if (kind == ObjectKind::kLeader && !handles_.contains(fields.handle("annotation").value_or(0)))
    values.set("annotation type", kNoAnnotation);
  if (kind != ObjectKind::kHatch) return;
  values.set("associative", false);
  for (std::uint32_t i = 0; i < fields.count("boundary count"); ++i) values.set("boundary count", 0, i);
}

// What older and newer versions tell otherwise.
void BlockCopier::fitVersion(RecordId record, const Fields& fields, ObjectKind kind,
                             FieldChanges& values) const {
  if (from_.version() == to_.version()) return;
  values.leaveUnknown();
  constexpr std::int64_t kHasIdentifiers = 0x400;
  if (kind == ObjectKind::kLwpolyline && to_.version() < Version::kR2010)
    values.set("flags", fields.integer("flags") & ~kHasIdentifiers);
  const bool byPoints = kind == ObjectKind::kSpline && fields.count("fit point") > 0;
  if (!byPoints || to_.version() >= Version::kR2013 || from_.version() < Version::kR2013) return;
  // Older versions know one manner of going through points only: the curve itself stays the same.
  const Geometry geometry = source_.geometry(record);
  const auto& spline = std::get<SplineGeometry>(geometry.shape);
  constexpr int kByControl = 1, kByPoints = 2;
  values.set("form", spline.control.empty() ? kByPoints : kByControl);
  values.set("knot count", Value(static_cast<std::int64_t>(spline.knots.size())));
  for (std::uint32_t i = 0; i < spline.knots.size(); ++i) values.set("knot", Value(spline.knots[i]), i);
  values.set("control count", Value(static_cast<std::int64_t>(spline.control.size())));
  for (std::uint32_t i = 0; i < spline.control.size(); ++i)
    values.set("control point", Value(spline.control[i]), i);
}

base::Result<NewObject> BlockCopier::copied(RecordId record) {
  const Fields fields = from_.fields(source_.record(record));
  const ObjectKind kind = from_.typeOf(source_.record(record)).kind;
  NewObject object{kind, handles_.at(from_.handle(source_.record(record)).value_or(0)), {}};
  for (const Field& field : fields.all()) copyField(fields, field, object.values);
  for (const Field& field : fields.all()) {
    const bool isColor = field.part == Part::kRgb || (field.name == "color" && field.part == Part::kWhole);
    if (!isColor) continue;
    Color color = fields.color(field.name, field.index);
    if (color.reference) color.rgb = source_.looks(record).trueColor;  // its name stays behind
    color.reference.reset();
    color.name = recoded(color.name), color.book = recoded(color.book);
    object.values.setColor(field.name, color, field.index);
  }
  setWithoutPartners(fields, kind, object.values);
  fitVersion(record, fields, kind, object.values);
  const base::Status extended = copyExtended(record, object.values);
  return extended ? base::Result<NewObject>(std::move(object)) : extended.failure();
}

base::Result<ExtendedData> BlockCopier::copiedData(RecordId record, const ExtendedData& data) {
  const Handle application = data.application.absolute(from_.handle(source_.record(record)).value_or(0));
  base::Result<std::vector<ExtendedValue>> values = decodeExtended(data.bytes, from_.version());
  if (!values.ok()) return values.failure();
  std::vector<ExtendedValue> all = std::move(values.value());
  // Overrides that name records of their drawing are set anew.
  if (isApplication(from_, application, L"ACAD") && hasDimStyle(source_.typeName(record))) {
    base::Result<DimList> present = readDimList(from_, source_.record(record));
    if (!present.ok()) return present.failure();
    DimList list = std::move(present.value());
    std::erase_if(list.pairs, [](const DimPair& pair) {
      return std::holds_alternative<HandleReference>(pair.value.value);
    });
    all = list.values(from_);
  }
  for (ExtendedValue& value : all) {
    if (auto* reference = std::get_if<HandleReference>(&value.value)) {
      reference->value = counterpart(reference->value);
    } else if (value.code == 1000) {
      if (!sharesTexts())
        value.value = to_.extendedText(encodeStored(from_.text(value.value), to_.facts().codePage));
      value.codePage = to_.codePageNumber();
    }
  }
  constexpr std::uint8_t kPointing = 5;
  ExtendedData copy{{kPointing, 0, counterpart(application)}, {}};
  if (all.empty() || copy.application.value == 0) return copy;
  base::Result<std::string> bytes = encodeExtended(all);
  if (!bytes.ok()) return bytes.failure();
  copy.bytes = std::move(bytes.value());
  return copy;
}

base::Status BlockCopier::copyExtended(RecordId record, FieldChanges& values) {
  const base::Result<ObjectFrame> frame = from_.frame(source_.record(record));
  if (!frame.ok()) return frame.failure();
  const base::Result<std::vector<ExtendedData>> list = readExtendedData(frame.value());
  if (!list.ok()) return list.failure();
  std::vector<ExtendedData> copies;
  for (const ExtendedData& data : list.value()) {
    base::Result<ExtendedData> copy = copiedData(record, data);
    if (!copy.ok()) return copy.failure();
    if (!copy.value().bytes.empty()) copies.push_back(std::move(copy.value()));
  }
  if (!copies.empty()) values.setExtendedData(std::move(copies));
  return {};
}

base::Status BlockCopier::copyEntity(BlockBuilder& builder, RecordId entity) {
  base::Result<NewObject> object = copied(entity);
  if (!object.ok()) return object.failure();
  std::vector<Handle> parts;
  for (const RecordId sub : source_.subRecordsOf(entity)) parts.push_back(handles_.at(*source_.handle(sub)));
  builder.setPlace(object.value().values);
  if (parts.size() > 1) {
    const bool ofInsert = source_.typeName(entity) == "INSERT";
    listParts(to_, parts, ofInsert ? kAttributeNames : kVertexNames, object.value().values);
  }
  const base::Result<RecordId> copy = builder.enter(object.value());
  if (!copy.ok()) return copy.failure();
  std::size_t at = 0;
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    base::Result<NewObject> part = copied(sub);
    if (!part.ok()) return part.failure();
    part.value().values.setHandle("owner", object.value().handle);
    linkPart(to_, parts, at++, part.value().values);
    const base::Result<RecordId> entered =
        to_.enter(target_, part.value(), {.kind = RecordKind::kSubEntity, .owner = copy.value()});
    if (!entered.ok()) return entered.failure();
  }
  if (hasDimStyle(source_.typeName(entity))) copyDimVariables(entity, copy.value());
  return {};
}

base::Result<RecordId> BlockCopier::copyEntities(const std::vector<RecordId>& entities,
                                                 std::wstring_view name, const BlockHead& head) {
  BlockBuilder builder(target_, to_);
  base::Status status = builder.open(name, head);
  if (!status) return status.failure();
  for (const RecordId entity : entities) {
    handles_[source_.handle(entity).value_or(0)] = to_.takeHandle();
    for (const RecordId sub : source_.subRecordsOf(entity))
      handles_[source_.handle(sub).value_or(0)] = to_.takeHandle();
  }
  for (const RecordId entity : entities)
    if (status) status = copyEntity(builder, entity);
  return status ? base::Result<RecordId>(builder.block()) : status.failure();
}

}  // namespace

// From and into the versions before 2000 the geometry and the properties are copied that both know.
std::unique_ptr<BlockCopy> DwgStorage::copierFrom(Drawing& drawing, const Drawing& source) {
  const auto* from = dynamic_cast<const DwgStorage*>(&source.storage());
  if (from == nullptr) return nullptr;
  const bool alike = from->version() >= Version::kR2000 && version() >= Version::kR2000;
  if (from->version() != version() && !alike) return nullptr;
  return std::make_unique<BlockCopier>(drawing, *this, source, *from);
}

}  // namespace cad::dwg
