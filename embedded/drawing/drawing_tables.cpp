// Symbol tables: lookup by name, records that the file implies, renaming.

#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/stored_text.h"

namespace cad {
namespace {

std::size_t index(Table table) { return static_cast<std::size_t>(table); }

// Older files spell the layouts' blocks "$MODEL_SPACE" and "$PAPER_SPACE".
bool isSpaceName(const std::wstring& folded, std::wstring_view space) {
  return !folded.empty() && (folded[0] == L'*' || folded[0] == L'$') &&
         folded.compare(1, space.size(), space) == 0;
}

}  // namespace

void Drawing::buildTables() {
  for (RecordId id = 0; id < records_.size(); ++id) {
    Record& record = records_[id];
    if (record.kind == RecordKind::kTableRecord) tables_[index(record.table)].add(id);
    if (record.kind != RecordKind::kBlockBegin) continue;
    tables_[index(Table::kBlock)].add(id);
    const NameId name = tableName(id);
    if (name == kNoName) continue;
    const std::wstring& folded = names_.folded(name);
    const bool model = isSpaceName(folded, L"MODEL_SPACE"), paper = isSpaceName(folded, L"PAPER_SPACE");
    if (model || paper) record.flags |= Record::kLayoutSpace;
    if (model && modelSpace_ == kNoRecord) modelSpace_ = id;
    // "*Paper_Space" is the active layout; others have a number behind.
    if (paper && folded.size() == 12 && paperSpace_ == kNoRecord) paperSpace_ = id;
  }
  addImpliedRecords();
}

void Drawing::addImpliedRecords() {
  if (modelSpace_ == kNoRecord) modelSpace_ = addImpliedBlock(L"*Model_Space");
  if (paperSpace_ == kNoRecord) paperSpace_ = addImpliedBlock(L"*Paper_Space");
  for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"}) addImplied(Table::kLinetype, name);
  addImplied(Table::kTextStyle, L"Standard");
  addImplied(Table::kDimStyle, L"Standard");
  addImplied(Table::kLayer, L"0");
  for (const Signature& signature : signatures_.all()) {
    if (signature.layer != kNoName) addImplied(Table::kLayer, names_.text(signature.layer));
  }
}

void Drawing::addImplied(Table table, std::wstring_view name) {
  const NameId id = names_.intern(name);
  if (find(table, id) != kNoRecord) return;
  Record record;
  record.kind = RecordKind::kTableRecord;
  record.table = table;
  record.flags = Record::kImplied;
  const RecordId added = append(record);
  impliedNames_[added] = id;
  tables_[index(table)].append(added, names_.folded(id));
}

RecordId Drawing::addImpliedBlock(std::wstring_view name) {
  Record record;
  record.kind = RecordKind::kBlockBegin;
  record.table = Table::kBlock;
  record.flags = Record::kImplied | Record::kLayoutSpace;
  const RecordId added = append(record);
  impliedNames_[added] = names_.intern(name);
  tables_[index(Table::kBlock)].add(added);
  return added;
}

RecordId Drawing::append(Record record) {
  records_.push_back(record);
  return static_cast<RecordId>(records_.size() - 1);
}

NameId Drawing::tableName(RecordId id) const {
  const auto implied = impliedNames_.find(id);
  const std::uint8_t flags = records_[id].flags;
  if (implied != impliedNames_.end() && (flags & Record::kAdded) == 0) return implied->second;
  // The layouts' blocks go by one name, however the file spells it.
  if (id == modelSpace_) return names_.intern(std::wstring_view(L"*Model_Space"));
  if (id == paperSpace_) return names_.intern(std::wstring_view(L"*Paper_Space"));
  return name(id, Property::kName);
}

const TableIndex& Drawing::table(Table table) const {
  TableIndex& index = tables_[static_cast<std::size_t>(table)];
  if (index.fresh()) return index;
  index.beginRefresh();
  for (const RecordId id : index.members()) {
    if (records_[id].erased()) continue;
    const NameId name = tableName(id);
    index.put(id, name == kNoName ? std::wstring() : names_.folded(name));
  }
  index.endRefresh();
  return index;
}

const std::vector<RecordId>& Drawing::tableRecords(Table wanted) const { return table(wanted).live(); }

RecordId Drawing::find(Table wanted, std::wstring_view name) const {
  return table(wanted).find(base::upper(name));
}

RecordId Drawing::find(Table wanted, NameId name) const {
  if (name == kNoName) return kNoRecord;
  table(wanted);
  TableIndex& members = tables_[index(wanted)];
  RecordId found = members.known(name);
  if (found == TableIndex::kNotAsked) members.remember(name, found = members.find(names_.folded(name)));
  return found;
}

RecordId Drawing::findStored(Table wanted, std::string_view name) const {
  return find(wanted, names_.intern(name));
}

bool Drawing::isLayerLocked(NameId layer) const {
  if (layer == kNoName) return false;
  if (layer >= locked_.size()) locked_.resize(layer + std::size_t{1}, -1);
  if (locked_[layer] < 0) {
    const RecordId id = find(Table::kLayer, layer);
    const std::int64_t flags = id == kNoRecord ? 0 : integer(id, Property::kStandardFlags).value_or(0);
    locked_[layer] = (flags & 4) != 0 ? 1 : 0;
  }
  return locked_[layer] != 0;
}

base::Status Drawing::renameLayer(RecordId layer, std::wstring_view newName) {
  const RecordId other = find(Table::kLayer, newName);
  const NameId from = tableName(layer);
  if (newName.empty() || records_[layer].table != Table::kLayer || from == kNoName) {
    return base::Failure{std::wstring(newName), L"This is no name for a layer"};
  }
  if (names_.folded(from) == L"0") return base::Failure{L"0", L"The layer cannot be renamed"};
  if (other != kNoRecord && other != layer) {
    return base::Failure{std::wstring(newName), L"The drawing has a layer of this name"};
  }
  if (names_.text(from) == newName) return {};
  ChangeScope scope(*this);
  base::Status status = materialise(layer);
  if (status) status = setName(layer, Property::kName, names_.intern(newName));
  if (status) status = renameReferences(from, newName);
  if (!status) scope.rollBack();
  return status;
}

// The records that name the layer, which the caller renames. All layers are looked up at once, because those
// who rename one mostly rename more.
std::vector<RecordId> Drawing::takeLayerUses(const std::wstring& folded) {
  if (!layerUses_) {
    layerUses_ = std::make_unique<std::unordered_map<std::wstring, std::vector<RecordId>>>();
    for (RecordId id = 0; id < records_.size(); ++id) {
      const Record& record = records_[id];
      const NameId layer = record.signature == 0 ? kNoName : signatures_[record.signature].layer;
      if (layer != kNoName) (*layerUses_)[names_.folded(layer)].push_back(id);
      if ((record.flags & Record::kLayerNames) == 0) continue;
      for (const std::wstring& name : storage_->layersInExtendedData(record))
        (*layerUses_)[name].push_back(id);
    }
  }
  const auto found = layerUses_->extract(folded);
  return found.empty() ? std::vector<RecordId>() : std::move(found.mapped());
}

base::Status Drawing::renameReferences(NameId from, std::wstring_view to) {
  const std::string stored = encodeStored(to, facts().codePage);
  const std::wstring old = names_.folded(from);
  const std::vector<RecordId> uses = takeLayerUses(old);
  renaming_ = true;
  base::Status status;
  for (const RecordId id : uses) {
    const Record& record = records_[id];
    const NameId layer = record.signature == 0 ? kNoName : signatures_[record.signature].layer;
    if (layer != kNoName && names_.folded(layer) == old) status = setStored(id, Property::kLayer, stored);
    if (!status) break;
    if ((record.flags & Record::kLayerNames) != 0) {
      setEdits(id, storage_->renameLayerInExtendedData(records_[id], names_, from, stored));
    }
  }
  renaming_ = false;
  if (!status) {
    layerUses_.reset();
    return status;
  }
  std::vector<RecordId>& moved = (*layerUses_)[base::upper(to)];
  moved.insert(moved.end(), uses.begin(), uses.end());
  const auto current = headerVariable("CLAYER");
  const auto* currentName = current ? std::get_if<std::wstring>(&*current) : nullptr;
  if (currentName == nullptr || base::upper(*currentName) != old) return {};
  return setHeaderVariable("CLAYER", std::wstring(to));
}

}  // namespace cad
