#include "embedded/dwg/arranger.h"

#include <algorithm>
#include <functional>
#include <iterator>
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

bool isPart(ObjectKind kind) {
  return kind == ObjectKind::kAttrib || kind == ObjectKind::kSeqend ||
         (kind >= ObjectKind::kVertex2d && kind <= ObjectKind::kVertexPfaceFace);
}
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

Arranger::Place Arranger::placeOf(Handle handle, Place likely) const {
  const auto places = file_.places();
  return likely < places.size() && places[likely].handle == handle ? likely : placeOf(handle);
}

void Arranger::readObjects() {
  objects_.resize(file_.places().size());
  for (Place place = 0; place < objects_.size(); ++place) {
    const ObjectPlace& at = file_.places()[place];
    const ObjectBytes bytes = file_.objectOf(at);
    ObjectFrame frame;
    if (readFrame(frame, bytes.data, bytes.handleBits, file_.version(), classes_) != nullptr) continue;
    if (frame.handle != at.handle) continue;
    Object& object = objects_[place];
    object.intact = true;
    object.number = frame.type.number;
    object.isEntity = frame.type.isEntity;
    if (object.isEntity) {
      readEntity(place, frame);
    } else {
      others_.push_back(place);
    }
  }
}

void Arranger::readEntity(Place place, const ObjectFrame& frame) {
  const EntityHead head = readEntityHead(frame);
  Object& object = objects_[place];
  object.signature = signatureOf(frame.type, head);
  object.isPlain = head.intact && head.plainColor;
  object.isPart = isPart(frame.type.kind), object.isBlockFrame = isBlockFrame(frame.type.kind);
  if (object.isPart) hasParts_ = true;
  if (head.mode == EntityMode::kModelSpace) object.owner = kInModel;
  if (head.mode == EntityMode::kPaperSpace) object.owner = kInPaper;
  const Place before = place > 0 ? objects_[place - 1].owner : kNowhere;
  if (head.mode == EntityMode::kOwned) object.owner = placeOf(head.owner, before);
  if (head.next != 0) object.next = placeOf(head.next, place + 1);
}

Arranger::Place Arranger::controlOf(ObjectKind kind) const {
  const auto found = std::ranges::find_if(others_, [&](Place place) { return typeAt(place).kind == kind; });
  return found == others_.end() ? kNowhere : *found;
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

Arranger::Place Arranger::ownerOf(Place place) const {
  const Place owner = objects_[place].owner;
  return owner == kInModel ? model_ : owner == kInPaper ? paper_ : owner;
}

Arranger::Members Arranger::collected(bool areParts) const {
  Members members;
  members.begins.resize(objects_.size() + 2);
  const auto forEach = [&](const auto& visit) {
    for (Place place = 0; place < objects_.size(); ++place) {
      if (!objects_[place].isEntity) continue;
      const Place owner = objects_[place].isBlockFrame ? kNowhere : ownerOf(place);
      if (owner != kNowhere && objects_[place].isPart == areParts) visit(owner, place);
    }
  };
  // Each list begins two further on until it is filled.
  forEach([&](Place owner, Place) { ++members.begins[owner + 2]; });
  for (std::size_t i = 1; i < members.begins.size(); ++i) members.begins[i] += members.begins[i - 1];
  members.places.resize(members.begins.back());
  forEach([&](Place owner, Place place) { members.places[members.begins[owner + 1]++] = place; });
  return members;
}

// The members of an owner in its own order: along their chain, or as it lists them; then those that it does
// not have there.
std::vector<Arranger::Place> Arranger::ordered(const Members& members, Place owner, const Fields& fields,
                                               std::string_view singular) const {
  const std::span<const Place> own = members.of(owner);
  std::vector<Place> left(own.begin(), own.end()), order;
  order.reserve(own.size());
  std::size_t likely = 0;  // mostly they stand in the file as they follow each other
  const auto take = [&](Place place) {
    if (place == kNowhere) return false;
    if (likely >= own.size() || own[likely] != place)
      likely = static_cast<std::size_t>(std::ranges::lower_bound(own, place) - own.begin());
    if (likely == own.size() || own[likely] != place || left[likely] == kNowhere) return false;
    order.push_back(place);
    left[likely++] = kNowhere;
    return true;
  };
  for (const Place place : listed(fields, singular)) take(place);
  Place place = named(fields, "first " + std::string(singular));
  const Place last = named(fields, "last " + std::string(singular));
  while (take(place) && place != last) place = objects_[place].next;
  std::ranges::copy_if(left, std::back_inserter(order), [](Place each) { return each != kNowhere; });
  const auto isEnd = [&](Place each) { return typeAt(each).kind == ObjectKind::kSeqend; };
  if (&members == &parts_) std::stable_partition(order.begin(), order.end(), std::not_fn(isEnd));
  return order;
}

// --- Records ---------------------------------------------------------------------------------------------

RecordId Arranger::add(Place place, RecordKind kind, Table table, RecordId owner) {
  Record record;
  record.offset = place;
  record.length = objects_[place].number;
  record.kind = kind;
  record.table = table;
  record.owner = owner;
  record.signature = objects_[place].signature;
  const bool isEntity = kind == RecordKind::kEntity || kind == RecordKind::kSubEntity;
  if (isEntity && objects_[place].isPlain) record.flags = kPlainEntity;
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
    return records_.byPlace[place] == kNoRecord && objects_[place].intact && typeAt(place).name == type;
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
  for (const Place place : others_)
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
  if (parts_.of(place).empty()) return;
  const base::Result<ObjectFrame> frame = frameAt(place);
  if (!frame.ok()) return;
  const std::string_view type = typeAt(place).name;
  for (const Place part : ordered(parts_, place, readFields(frame.value()), partName(type)))
    if (records_.byPlace[part] == kNoRecord) add(part, RecordKind::kSubEntity, Table::kNone, entity);
}

void Arranger::addContent(Place entry, const Fields& fields) {
  const auto block = records_.blockOfEntry.find(file_.places()[entry].handle);
  if (block == records_.blockOfEntry.end()) return;
  for (const Place place : ordered(entities_, entry, fields, "entity")) addEntity(place, block->second);
}

void Arranger::addSpace(Place entry) {
  if (entry == kNowhere) return;
  const base::Result<ObjectFrame> frame = frameAt(entry);
  if (frame.ok()) addContent(entry, readFields(frame.value()));
}

void Arranger::addBlock(Place entry, bool withContent) {
  const base::Result<ObjectFrame> frame = frameAt(entry);
  if (!frame.ok()) return;
  const Fields fields = readFields(frame.value());
  const Place begin = named(fields, kBlockBegin), end = named(fields, kBlockEnd);
  const auto isOf = [&](Place place, ObjectKind kind) {
    return place != kNowhere && records_.byPlace[place] == kNoRecord && typeAt(place).kind == kind;
  };
  if (!isOf(begin, ObjectKind::kBlock)) return;
  const RecordId block = add(begin, RecordKind::kBlockBegin, Table::kBlock, kNoRecord);
  records_.blockOfEntry[file_.places()[entry].handle] = block;
  records_.entryOfBlock[file_.places()[begin].handle] = file_.places()[entry].handle;
  records_.beginOfEntry[file_.places()[entry].handle] = file_.places()[begin].handle;
  records_.names[file_.places()[entry].handle] = storedName(fields);
  noteSpace(entry, fields, block);
  if (withContent) addContent(entry, fields);
  if (isOf(end, ObjectKind::kEndblk)) add(end, RecordKind::kBlockEnd, Table::kNone, block);
}

void Arranger::noteSpace(Place entry, const Fields& fields, RecordId block) {
  if (entry == model_) loaded_.modelSpace = block;
  if (entry == paper_) loaded_.paperSpace = block;
  const auto isPaperSpace = [&] {
    const std::string stored = storedName(fields);
    return stored.starts_with('*') && base::upper(decodeStored(stored, file_.facts().codePage))
                                          .starts_with(base::upper(kPaperSpaceName));
  };
  if (entry == model_ || entry == paper_ || isPaperSpace())
    loaded_.records[block].flags |= Record::kLayoutSpace;
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
  entities_ = collected(false);
  if (hasParts_) parts_ = collected(true);
  for (const TableForm& form : kTables) addTable(form.table, form.control, form.type);
  std::vector<Place> entries;
  for (const Record& record : loaded_.records)
    if (record.table == Table::kBlockRecord && record.kind == RecordKind::kTableRecord)
      entries.push_back(static_cast<Place>(record.offset));
  for (const Place entry : entries) addBlock(entry, entry != model_ && entry != paper_);
  for (const Place space : {model_, paper_}) addSpace(space);
  for (Place place = 0; place < objects_.size(); ++place) {
    if (records_.byPlace[place] != kNoRecord) continue;
    const Object& object = objects_[place];
    const bool isObject = object.intact && !object.isEntity;
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

SignatureId Arranger::signatureOf(const ObjectType& type, const EntityHead& head) {
  const bool named = head.linetypeKind == LinetypeKind::kNamed;
  const std::uint64_t linetype =
      (named ? head.linetype : 0) << 2 | static_cast<std::uint64_t>(head.linetypeKind);
  const std::uint64_t number = std::uint64_t{type.number} << 16 | static_cast<std::uint16_t>(head.color);
  const std::uint64_t key[4] = {number, head.layer, linetype, head.style};
  std::uint64_t hash = 0;
  for (const std::uint64_t part : key) hash = (hash ^ part) * 0x9E3779B97F4A7C15u;
  KnownSignature& known = known_[hash >> 52];
  if (known.id != 0 && std::ranges::equal(known.key, key)) return known.id;
  Signature signature;
  signature.type = loaded_.names.intern(type.name);
  signature.layer = nameOf(head.layer, "0");
  const std::string_view kind = linetypeName(head.linetypeKind);
  signature.linetype = named ? nameOf(head.linetype, kind) : loaded_.names.intern(kind);
  if (hasTextStyle(type.kind)) signature.style = nameOf(head.style, "Standard");
  signature.color = head.color;
  std::ranges::copy(key, known.key);
  return known.id = loaded_.signatures.intern(signature);
}

}  // namespace cad::dwg
