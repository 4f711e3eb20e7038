#include "embedded/dwg/block_builder.h"

#include "base/fold.h"
#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/entity_head.h"
#include "embedded/dwg/geometry_changes.h"

namespace cad::dwg {
namespace {

base::Failure failure(std::wstring_view place, const wchar_t* reason) {
  return {std::wstring(place), reason};
}

// In the table's entry an anonymous block has no number: "*D" of "*D12".
std::wstring_view listedName(std::wstring_view name) {
  if (!name.starts_with(L'*')) return name;
  return name.substr(0, name.find_last_not_of(L"0123456789") + 1);
}

}  // namespace

base::Result<Handle> BlockBuilder::handleOf(Table table, std::wstring_view name) {
  if (table == lastTable_ && name == lastName_) return lastHandle_;
  const RecordId id = drawing_.find(table, name);
  if (id == kNoRecord) return failure(name, L"The drawing has no record of this name");
  if (const base::Status status = drawing_.materialise(id); !status) return status.failure();
  lastTable_ = table;
  lastName_ = name;
  lastHandle_ = drawing_.handle(id).value_or(0);
  return lastHandle_;
}

base::Status BlockBuilder::setLayer(FieldChanges& values, std::wstring_view name) {
  const base::Result<Handle> layer = handleOf(Table::kLayer, name);
  if (!layer.ok()) return layer.failure();
  values.setHandle("layer", layer.value());
  return {};
}

base::Status BlockBuilder::setStyle(FieldChanges& values, std::wstring_view name) {
  const base::Result<Handle> style = handleOf(Table::kTextStyle, name.empty() ? L"Standard" : name);
  if (!style.ok()) return style.failure();
  values.setHandle("style", style.value());
  return {};
}

base::Status BlockBuilder::setLinetype(FieldChanges& values, std::wstring_view name) {
  const bool hasFlags = storage_.version() >= Version::kR2000;
  const std::wstring folded = base::upper(name);
  LinetypeKind kind = LinetypeKind::kNamed;
  if (folded.empty() || folded == L"BYLAYER") kind = LinetypeKind::kByLayer;
  if (folded == L"BYBLOCK" && hasFlags) kind = LinetypeKind::kByBlock;
  if (folded == L"CONTINUOUS" && hasFlags) kind = LinetypeKind::kContinuous;
  if (hasFlags)
    values.set("linetype flags", static_cast<int>(kind));
  else
    values.set("linetype by layer", kind == LinetypeKind::kByLayer);
  if (kind != LinetypeKind::kNamed) return {};
  const base::Result<Handle> linetype = handleOf(Table::kLinetype, name);
  if (!linetype.ok()) return linetype.failure();
  values.setHandle("linetype", linetype.value());
  return {};
}

base::Status BlockBuilder::addCommon(FieldChanges& values) {
  setPlace(values);
  return setLayer(values, L"0");
}

void BlockBuilder::setPlace(FieldChanges& values) const {
  const EntityMode mode = block_ == drawing_.modelSpace()   ? EntityMode::kModelSpace
                          : block_ == drawing_.paperSpace() ? EntityMode::kPaperSpace
                                                            : EntityMode::kOwned;
  values.set("entity mode", static_cast<int>(mode));
  if (mode == EntityMode::kOwned) values.setHandle("owner", entry_);
}

base::Result<ObjectKind> BlockBuilder::addGeometry(FieldChanges& values, std::string_view type,
                                                   const Geometry& geometry) {
  const std::optional<ObjectKind> kind = dwg::addGeometry(storage_, type, geometry, values);
  if (!kind) return refusedType(type, L"Entities of this type are not made here");
  if (const auto* insert = std::get_if<InsertGeometry>(&geometry.shape)) {
    const Handle entry = storage_.entryOf(drawing_.record(insert->block));
    if (entry == 0) return refusedType(type, L"The block has no table entry");
    values.setHandle("block", entry);
  }
  return *kind;
}

base::Result<RecordId> BlockBuilder::enter(ObjectKind kind, FieldChanges values, SignatureId signature) {
  return enter({kind, storage_.takeHandle(), std::move(values)}, signature);
}

base::Result<RecordId> BlockBuilder::enter(const NewObject& object, SignatureId signature) {
  return storage_.enter(drawing_, object,
                        {.kind = RecordKind::kEntity, .owner = block_, .signature = signature});
}

// --- Blocks ----------------------------------------------------------------------------------------------

base::Status BlockBuilder::resume(RecordId block) {
  block_ = block;
  entry_ = storage_.entryOf(drawing_.record(block));
  return entry_ != 0 ? base::Status() : base::Status(failure({}, L"The block has no table entry"));
}

base::Status BlockBuilder::open(std::wstring_view name, const BlockHead& head) {
  block_ = drawing_.find(Table::kBlock, name);
  if (block_ == kNoRecord) return openNew(name, head);
  if (drawing_.isLayoutSpace(block_)) return failure(name, L"A layout cannot be redefined");
  return empty(head);
}

base::Status BlockBuilder::openNew(std::wstring_view name, const BlockHead& head) {
  if (name.empty()) return failure(name, L"A name must not be empty");
  const RecordId control = storage_.control(Table::kBlockRecord);
  if (control == kNoRecord) return failure(name, L"The drawing does not have this table");
  const auto stored = [&](std::wstring_view text) {
    return storage_.fieldText(encodeStored(text, storage_.facts().codePage));
  };
  entry_ = storage_.takeHandle();
  NewObject begin{ObjectKind::kBlock, storage_.takeHandle(), {}};
  NewObject end{ObjectKind::kEndblk, storage_.takeHandle(), {}};
  NewObject entry{ObjectKind::kBlockHeader, entry_, {}};
  entry.values.set("name", stored(listedName(name)));
  entry.values.set("anonymous", name.front() == L'*');
  entry.values.set("has attributes", head.hasAttributes);
  entry.values.set("base point", Value(head.base));
  entry.values.setHandle("owner", drawing_.handle(control).value_or(0));
  entry.values.setHandle("block", begin.handle);
  entry.values.setHandle("end of block", end.handle);
  begin.values.set("name", stored(name));
  base::Status status = storage_.enlist(drawing_, Table::kBlockRecord, entry_);
  for (NewObject* object : {&begin, &end})
    if (status) status = addCommon(object->values);
  for (NewObject* object : {&entry, &begin, &end})
    if (status) status = storage_.keep(*object);
  if (!status) {
    storage_.forgetKept();
    return status;
  }
  storage_.announce(entry_, begin.handle);
  storage_.enterKept(drawing_, entry_, {.kind = RecordKind::kTableRecord, .table = Table::kBlockRecord});
  block_ =
      storage_.enterKept(drawing_, begin.handle, {.kind = RecordKind::kBlockBegin, .table = Table::kBlock});
  storage_.pair(entry_, block_);
  storage_.enterKept(drawing_, end.handle, {.kind = RecordKind::kBlockEnd, .owner = block_});
  return {};
}

base::Status BlockBuilder::empty(const BlockHead& head) {
  if (const base::Status status = resume(block_); !status) return status;
  const RecordId entry = storage_.recordOf(entry_);
  const Fields& fields = storage_.fields(drawing_.record(entry));
  if (fields.integer("external") != 0)
    return failure(drawing_.names().text(drawing_.recordName(block_)), L"The block is an external reference");
  const std::vector<RecordId> content = drawing_.entitiesOf(block_);
  for (const RecordId id : content) {
    if (drawing_.record(id).erased()) continue;
    if (const base::Status status = drawing_.setErased(id, true); !status) return status;
  }
  FieldChanges changes;
  changes.set("has attributes", head.hasAttributes);
  changes.set("base point", Value(head.base));
  return storage_.change(drawing_, entry, changes);
}

void listParts(const DwgStorage& storage, std::span<const Handle> parts, const PartNames& names,
               FieldChanges& values) {
  const std::size_t count = parts.size() - 1;
  values.setHandle("sequence end", parts.back());
  if (storage.version() < Version::kR2004) {
    values.setHandle(names.first, parts.front());
    values.setHandle(names.last, parts[count - 1]);
    return;
  }
  values.set(names.count, Value(static_cast<std::int64_t>(count)));
  for (std::uint32_t i = 0; i < count; ++i) values.setHandle(names.single, parts[i], i);
}

void linkPart(const DwgStorage& storage, std::span<const Handle> parts, std::size_t at,
              FieldChanges& values) {
  if (storage.version() >= Version::kR2004) return;
  const std::size_t count = parts.size() - 1;
  values.set("no links", false);
  values.setHandle("previous", at > 0 && at < count ? parts[at - 1] : 0);
  values.setHandle("next", at + 1 < count ? parts[at + 1] : 0);
}

}  // namespace cad::dwg
