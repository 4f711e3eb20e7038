#include "embedded/drawing/drawing_tables.h"

#include <utility>

#include "base/fold.h"

namespace cad {

DrawingTables::DrawingTables(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded)
    : DrawingRecords(std::move(storage), std::move(loaded)) {
  for (RecordId id = 0; id < records_.size(); ++id) {
    if (records_[id].hasTableName()) index(records_[id].table).add(id);
  }
  addImpliedRecords();
}

void DrawingTables::addImpliedRecords() {
  if (modelSpace_ == kNoRecord) modelSpace_ = addImpliedBlock(kModelSpaceName);
  if (paperSpace_ == kNoRecord) paperSpace_ = addImpliedBlock(kPaperSpaceName);
  for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"}) addImplied(Table::kLinetype, name);
  addImplied(Table::kTextStyle, L"Standard");
  addImplied(Table::kDimStyle, L"Standard");
  addImplied(Table::kLayer, L"0");
  for (const Signature& signature : signatures_.all()) {
    if (signature.layer != kNoName) addImplied(Table::kLayer, names_.text(signature.layer));
  }
}

void DrawingTables::addImplied(Table table, std::wstring_view name) {
  const NameId id = names_.intern(name);
  if (find(table, id) != kNoRecord) return;
  Record record;
  record.kind = RecordKind::kTableRecord;
  record.table = table;
  record.flags = Record::kImplied;
  const RecordId added = append(record);
  impliedNames_[added] = id;
  index(table).append(added, names_.folded(id));
}

RecordId DrawingTables::addImpliedBlock(std::wstring_view name) {
  Record record;
  record.kind = RecordKind::kBlockBegin;
  record.table = Table::kBlock;
  record.flags = Record::kImplied | Record::kLayoutSpace;
  const RecordId added = append(record);
  impliedNames_[added] = names_.intern(name);
  index(Table::kBlock).add(added);
  return added;
}

std::wstring DrawingTables::foldedName(NameId name) const {
  return name == kNoName ? std::wstring() : names_.folded(name);
}

void DrawingTables::tableRecordAdded(RecordId id) {
  const Table table = records_[id].table;
  if (index(table).fresh()) {
    index(table).append(id, foldedName(recordName(id)));
  } else {
    index(table).add(id);
  }
  if (table == Table::kLayer) locked_.clear();
}

void DrawingTables::tableRecordChanged(RecordId id, NameId before, bool wasErased) {
  recordNames_.erase(id);
  const Record& record = records_[id];
  if (record.table == Table::kLayer) locked_.clear();
  TableIndex& members = index(record.table);
  if (!members.fresh() || (wasErased && record.erased())) return;
  if (wasErased) return members.invalidate();
  if (record.erased()) return members.remove(id, foldedName(before));
  const NameId after = recordName(id);
  if (after == before) return;
  const std::wstring from = foldedName(before), to = foldedName(after);
  if (from != to) members.rename(id, from, to);
}

const TableIndex& DrawingTables::table(Table table) const {
  TableIndex& members = index(table);
  if (members.fresh()) return members;
  members.beginRefresh();
  for (const RecordId id : members.members()) {
    if (!records_[id].erased()) members.put(id, foldedName(recordName(id)));
  }
  members.endRefresh();
  return members;
}

const std::vector<RecordId>& DrawingTables::tableRecords(Table wanted) const { return table(wanted).live(); }

RecordId DrawingTables::find(Table wanted, std::wstring_view name) const {
  return table(wanted).find(base::upper(name));
}

RecordId DrawingTables::find(Table wanted, NameId name) const {
  if (name == kNoName) return kNoRecord;
  table(wanted);
  TableIndex& members = index(wanted);
  RecordId found = members.known(name);
  if (found == TableIndex::kNotAsked) members.remember(name, found = members.find(names_.folded(name)));
  return found;
}

RecordId DrawingTables::findStored(Table wanted, std::string_view name) const {
  return find(wanted, names_.intern(name));
}

RecordId DrawingTables::reference(RecordId id, Property property) const {
  const Table table = propertyInfo(property).names;
  return table == Table::kNone ? kNoRecord : find(table, name(id, property));
}

RecordId DrawingTables::referenceOf(const Record& state, Property property) const {
  const Table table = propertyInfo(property).names;
  return table == Table::kNone ? kNoRecord : find(table, nameOf(storage_->property(state, property)));
}

NameId DrawingTables::nameForReference(RecordId id, Table table) const {
  if (table == Table::kNone || id >= records_.size() || records_[id].table != table) return kNoName;
  if (!records_[id].hasTableName() || records_[id].erased()) return kNoName;
  const NameId name = recordName(id);
  return name == kNoName || names_.stored(name).empty() ? kNoName : name;
}

bool DrawingTables::canHold(RecordId id, Property property) const {
  const Record& record = records_[id];
  if (!record.implied()) return storage_->canHold(record, property);
  // What an implied record could hold is what any record of its table could.
  for (const RecordId other : tableRecords(record.table)) {
    if (!records_[other].implied()) return storage_->canHold(records_[other], property);
  }
  return true;
}

bool DrawingTables::isLayerLocked(NameId layer) const {
  if (layer == kNoName) return false;
  if (layer >= locked_.size()) locked_.resize(layer + std::size_t{1}, -1);
  if (locked_[layer] < 0) {
    const RecordId id = find(Table::kLayer, layer);
    const std::int64_t flags = id == kNoRecord ? 0 : integer(id, Property::kStandardFlags).value_or(0);
    locked_[layer] = (flags & LayerFlag::kLocked) != 0 ? 1 : 0;
  }
  return locked_[layer] != 0;
}

}  // namespace cad
