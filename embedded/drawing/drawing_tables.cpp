// Symbol tables: lookup by name, records that the file implies, renaming.

#include "base/fold.h"
#include "embedded/drawing/drawing.h"

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
    const NameId name = nameInFile(id);
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

NameId Drawing::recordName(RecordId id) const {
  const auto [known, isNew] = recordNames_.try_emplace(id, kNoName);
  if (isNew) known->second = nameInFile(id);
  return known->second;
}

NameId Drawing::nameInFile(RecordId id) const {
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
    const NameId name = recordName(id);
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
  const NameId from = recordName(layer);
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
  if (status) status = storage_->renameLayer(*this, layer, newName);
  if (!status) scope.rollBack();
  return status;
}

void Drawing::layerRenamed(NameId from, NameId to) {
  const std::wstring old = names_.folded(from);
  std::unordered_map<SignatureId, SignatureId> renamed;
  for (RecordId id = 0; id < records_.size(); ++id) {
    const Record& record = records_[id];
    if (record.signature == 0) continue;
    Signature signature = signatures_[record.signature];
    if (signature.layer == kNoName || names_.folded(signature.layer) != old) continue;
    signature.layer = to;
    const auto [known, isNew] = renamed.try_emplace(record.signature);
    if (isNew) known->second = signatures_.intern(signature);
    journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kState, record.flags});
    setState(id, record.edits, known->second, record.flags);
  }
}

}  // namespace cad
