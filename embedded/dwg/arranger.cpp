#include "embedded/dwg/arranger.h"

#include <algorithm>
#include <string>

#include "base/fold.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/field_texts.h"

namespace cad::dwg {
namespace {

// The fields by which records hold each other together.
constexpr std::string_view kEntry = "entry", kModelSpace = "model space", kPaperSpace = "paper space",
                           kBlockBegin = "block", kBlockEnd = "end of block", kByBlock = "by block",
                           kByLayer = "by layer";

struct TableForm {
  Table table;
  ObjectKind control;
  std::string_view type;
};
constexpr TableForm kTables[] = {{Table::kViewport, ObjectKind::kVportControl, "VPORT"},
                                 {Table::kLinetype, ObjectKind::kLinetypeControl, "LTYPE"},
                                 {Table::kLayer, ObjectKind::kLayerControl, "LAYER"},
                                 {Table::kTextStyle, ObjectKind::kStyleControl, "STYLE"},
                                 {Table::kView, ObjectKind::kViewControl, "VIEW"},
                                 {Table::kUcs, ObjectKind::kUcsControl, "UCS"},
                                 {Table::kAppId, ObjectKind::kAppIdControl, "APPID"},
                                 {Table::kDimStyle, ObjectKind::kDimStyleControl, "DIMSTYLE"},
                                 {Table::kBlockRecord, ObjectKind::kBlockControl, "BLOCK_RECORD"}};

bool isPart(std::string_view type) { return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND"; }
bool isBlockFrame(ObjectKind kind) { return kind == ObjectKind::kBlock || kind == ObjectKind::kEndblk; }

// What an entity's parts are called in its fields: "first vertex", "vertex".
std::string_view partName(std::string_view type) { return type == "INSERT" ? "attribute" : "vertex"; }

std::string storedName(const Fields& fields) {
  const Field* name = fields.find("name");
  return name == nullptr ? std::string() : storedText(name->value);
}

}  // namespace

Arranger::Arranger(const DwgFile& file, const std::vector<FileClass>& classes)
    : file_(file), classes_(classes) {
  loaded_.names.setCodePage(file.facts().codePage);
}

// --- Objects ---------------------------------------------------------------------------------------------

base::Result<ObjectFrame> Arranger::frameAt(Place place) const {
  const base::Result<ObjectBytes> object = file_.objectAt(file_.places()[place].offset);
  if (!object.ok()) return object.failure();
  return readFrame(object.value().data, object.value().handleBits, file_.version(), classes_);
}

Arranger::Place Arranger::placeOf(Handle handle) const {
  const auto places = file_.places();
  const auto found = std::ranges::lower_bound(places, handle, {}, &ObjectPlace::handle);
  return found == places.end() || found->handle != handle ? kNowhere
                                                          : static_cast<Place>(found - places.begin());
}

void Arranger::readObjects() {
  objects_.resize(file_.places().size());
  for (Place place = 0; place < objects_.size(); ++place) {
    const base::Result<ObjectFrame> frame = frameAt(place);
    Object& object = objects_[place];
    if (!frame.ok() || frame.value().handle != file_.places()[place].handle) continue;
    object.intact = true;
    object.type = frame.value().type;
    if (object.type.isEntity) object.head = readEntityHead(frame.value());
  }
}

Arranger::Place Arranger::controlOf(ObjectKind kind) const {
  const auto found = std::ranges::find_if(
      objects_, [&](const Object& object) { return object.intact && object.type.kind == kind; });
  return found == objects_.end() ? kNowhere : static_cast<Place>(found - objects_.begin());
}

Arranger::Place Arranger::named(const Fields& fields, std::string_view name) const {
  const Handle handle = fields.handle(name).value_or(0);
  return handle == 0 ? kNowhere : placeOf(handle);
}

std::vector<Arranger::Place> Arranger::listed(const Fields& fields, std::string_view name) const {
  std::vector<Place> places;
  for (const Field& field : fields.all()) {
    const auto* reference = std::get_if<HandleReference>(&field.value);
    if (field.name != name || reference == nullptr) continue;
    const Handle handle = reference->absolute(fields.own());
    if (const Place place = handle == 0 ? kNowhere : placeOf(handle); place != kNowhere)
      places.push_back(place);
  }
  return places;
}

// --- Owners ----------------------------------------------------------------------------------------------

void Arranger::collectMembers() {
  for (Place place = 0; place < objects_.size(); ++place) {
    const Object& object = objects_[place];
    if (!object.intact || !object.type.isEntity || isBlockFrame(object.type.kind)) continue;
    const EntityHead& head = object.head;
    const Place owner = head.mode == EntityMode::kModelSpace   ? model_
                        : head.mode == EntityMode::kPaperSpace ? paper_
                                                               : placeOf(head.owner);
    if (owner == kNowhere) continue;
    (isPart(object.type.name) ? parts_ : entities_).push_back({owner, place});
  }
  for (Members* members : {&entities_, &parts_}) std::ranges::stable_sort(*members, {}, &Member::owner);
}

std::span<const Arranger::Member> Arranger::membersOf(const Members& members, Place owner) {
  return {std::ranges::lower_bound(members, owner, {}, &Member::owner),
          std::ranges::upper_bound(members, owner, {}, &Member::owner)};
}

// The members of an owner in its own order: along their chain, or as it lists them; then those that it does
// not have there.
std::vector<Arranger::Place> Arranger::ordered(const Members& members, Place owner, const Fields& fields,
                                               std::string_view singular) const {
  const std::span<const Member> own = membersOf(members, owner);
  std::vector<Place> left, order;
  for (const Member& member : own) left.push_back(member.place);
  const auto position = [&](Place place) {
    const auto found = std::ranges::lower_bound(own, place, {}, &Member::place);
    return found == own.end() || found->place != place ? left.size()
                                                       : static_cast<std::size_t>(found - own.begin());
  };
  const auto take = [&](Place place) {
    const std::size_t at = place == kNowhere ? left.size() : position(place);
    if (at == left.size() || left[at] == kNowhere) return false;
    order.push_back(place);
    left[at] = kNowhere;
    return true;
  };
  for (const Place place : listed(fields, singular)) take(place);
  Place place = named(fields, "first " + std::string(singular));
  const Place last = named(fields, "last " + std::string(singular));
  while (take(place) && place != last) place = placeOf(objects_[place].head.next);
  std::ranges::copy_if(left, std::back_inserter(order), [](Place each) { return each != kNowhere; });
  std::ranges::stable_partition(order, [&](Place each) { return objects_[each].type.name != "SEQEND"; });
  return order;
}

// --- Records ---------------------------------------------------------------------------------------------

RecordId Arranger::add(Place place, RecordKind kind, Table table, RecordId owner) {
  Record record;
  record.offset = place;
  record.length = objects_[place].type.number;
  record.kind = kind;
  record.table = table;
  record.owner = owner;
  if (objects_[place].intact && objects_[place].type.isEntity) record.signature = signatureOf(place);
  const auto id = static_cast<RecordId>(loaded_.records.size());
  loaded_.records.push_back(record);
  records_.byPlace[place] = id;
  return id;
}

void Arranger::addTable(Table table, ObjectKind control, std::string_view type) {
  const Place head = controlOf(control);
  if (head == kNowhere) return;
  records_.control[table] = add(head, RecordKind::kTable, table, kNoRecord);
  const auto takes = [&](Place place) {
    return records_.byPlace[place] == kNoRecord && objects_[place].intact &&
           objects_[place].type.name == type;
  };
  const base::Result<ObjectFrame> frame = frameAt(head);
  if (frame.ok()) {
    const Fields fields = readFields(frame.value());
    for (const Place first : {named(fields, kModelSpace), named(fields, kPaperSpace), named(fields, kByBlock),
                              named(fields, kByLayer)})
      if (first != kNowhere && takes(first)) add(first, RecordKind::kTableRecord, table, kNoRecord);
    for (const Place place : listed(fields, kEntry))
      if (takes(place)) add(place, RecordKind::kTableRecord, table, kNoRecord);
    if (table == Table::kBlockRecord) noteIndices(fields);
  }
  for (Place place = 0; place < objects_.size(); ++place)
    if (takes(place)) add(place, RecordKind::kTableRecord, table, kNoRecord);
}

void Arranger::noteIndices(const Fields& control) {
  for (const Field& field : control.all()) {
    const auto* reference = std::get_if<HandleReference>(&field.value);
    if (reference != nullptr && field.name == kEntry)
      records_.indexOfEntry[reference->absolute(control.own())] = field.index;
  }
}

void Arranger::addEntity(Place place, RecordId block) {
  if (records_.byPlace[place] != kNoRecord) return;
  const RecordId entity = add(place, RecordKind::kEntity, Table::kNone, block);
  if (membersOf(parts_, place).empty()) return;
  const base::Result<ObjectFrame> frame = frameAt(place);
  if (!frame.ok()) return;
  const std::string_view type = objects_[place].type.name;
  for (const Place part : ordered(parts_, place, readFields(frame.value()), partName(type)))
    if (records_.byPlace[part] == kNoRecord) add(part, RecordKind::kSubEntity, Table::kNone, entity);
}

void Arranger::addContent(Place entry) {
  const auto block = records_.blockOfEntry.find(file_.places()[entry].handle);
  const base::Result<ObjectFrame> frame = frameAt(entry);
  if (block == records_.blockOfEntry.end() || !frame.ok()) return;
  for (const Place place : ordered(entities_, entry, readFields(frame.value()), "entity"))
    addEntity(place, block->second);
}

void Arranger::addBlock(Place entry, bool withContent) {
  const base::Result<ObjectFrame> frame = frameAt(entry);
  if (!frame.ok()) return;
  const Fields fields = readFields(frame.value());
  const Place begin = named(fields, kBlockBegin), end = named(fields, kBlockEnd);
  const auto isOf = [&](Place place, ObjectKind kind) {
    return place != kNowhere && records_.byPlace[place] == kNoRecord && objects_[place].type.kind == kind;
  };
  if (!isOf(begin, ObjectKind::kBlock)) return;
  const RecordId block = add(begin, RecordKind::kBlockBegin, Table::kBlock, kNoRecord);
  records_.blockOfEntry[file_.places()[entry].handle] = block;
  records_.entryOfBlock[file_.places()[begin].handle] = file_.places()[entry].handle;
  records_.beginOfEntry[file_.places()[entry].handle] = file_.places()[begin].handle;
  noteSpace(entry, block);
  if (withContent) addContent(entry);
  if (isOf(end, ObjectKind::kEndblk)) add(end, RecordKind::kBlockEnd, Table::kNone, block);
}

void Arranger::noteSpace(Place entry, RecordId block) {
  const base::Result<ObjectFrame> frame = frameAt(entry);
  const std::wstring name =
      frame.ok() ? base::upper(decodeStored(storedName(readFields(frame.value())), file_.facts().codePage))
                 : std::wstring();
  if (entry == model_) loaded_.modelSpace = block;
  if (entry == paper_) loaded_.paperSpace = block;
  const bool isSpace = entry == model_ || entry == paper_ || name.starts_with(base::upper(kPaperSpaceName));
  if (isSpace) loaded_.records[block].flags |= Record::kLayoutSpace;
}

void Arranger::run() {
  readObjects();
  records_.byPlace.assign(objects_.size(), kNoRecord);
  loaded_.records.reserve(objects_.size() + 1);
  Record header;
  header.kind = RecordKind::kFrame;
  records_.header = 0;
  loaded_.records.push_back(header);
  if (const Place control = controlOf(ObjectKind::kBlockControl); control != kNowhere) {
    if (const base::Result<ObjectFrame> frame = frameAt(control); frame.ok()) {
      const Fields fields = readFields(frame.value());
      model_ = named(fields, kModelSpace), paper_ = named(fields, kPaperSpace);
    }
  }
  collectMembers();
  for (const TableForm& form : kTables) addTable(form.table, form.control, form.type);
  std::vector<Place> entries;
  for (const Record& record : loaded_.records)
    if (record.table == Table::kBlockRecord && record.kind == RecordKind::kTableRecord)
      entries.push_back(static_cast<Place>(record.offset));
  for (const Place entry : entries) addBlock(entry, entry != model_ && entry != paper_);
  for (const Place space : {model_, paper_})
    if (space != kNowhere) addContent(space);
  for (Place place = 0; place < objects_.size(); ++place) {
    if (records_.byPlace[place] != kNoRecord) continue;
    const Object& object = objects_[place];
    const bool isObject = object.intact && !object.type.isEntity;
    add(place, isObject ? RecordKind::kObject : RecordKind::kOther, Table::kNone, kNoRecord);
  }
}

// --- Signatures ------------------------------------------------------------------------------------------

NameId Arranger::nameOf(Handle record, std::string_view otherwise) {
  const Place place = record == 0 ? kNowhere : placeOf(record);
  if (place == kNowhere) return loaded_.names.intern(otherwise);
  const auto [known, isNew] = names_.try_emplace(record, kNoName);
  if (!isNew) return known->second;
  std::string name;
  if (const base::Result<ObjectFrame> frame = frameAt(place); frame.ok()) {
    const Fields fields = readFields(frame.value());
    name = storedName(fields);
    if (const Field* field = fields.find("name"); field != nullptr && endsWithZero(field->value))
      records_.textsEndWithZero = true;
  }
  return known->second = loaded_.names.intern(name.empty() ? otherwise : std::string_view(name));
}

SignatureId Arranger::signatureOf(Place place) {
  const Object& object = objects_[place];
  const EntityHead& head = object.head;
  const bool named = head.linetypeKind == LinetypeKind::kNamed;
  const std::uint64_t linetype =
      (named ? head.linetype : 0) << 2 | static_cast<std::uint64_t>(head.linetypeKind);
  const std::uint64_t number =
      std::uint64_t{object.type.number} << 16 | static_cast<std::uint16_t>(head.color);
  const std::uint64_t key[4] = {number, head.layer, linetype, head.style};
  std::uint64_t hash = 0;
  for (const std::uint64_t part : key) hash = (hash ^ part) * 0x9E3779B97F4A7C15u;
  KnownSignature& known = known_[hash >> 56];
  if (known.id != 0 && std::ranges::equal(known.key, key)) return known.id;
  Signature signature;
  signature.type = loaded_.names.intern(object.type.name);
  signature.layer = nameOf(head.layer, "0");
  const std::string_view kind = linetypeName(head.linetypeKind);
  signature.linetype = named ? nameOf(head.linetype, kind) : loaded_.names.intern(kind);
  if (hasTextStyle(object.type.kind)) signature.style = nameOf(head.style, "Standard");
  signature.color = head.color;
  std::ranges::copy(key, known.key);
  return known.id = loaded_.signatures.intern(signature);
}

}  // namespace cad::dwg
