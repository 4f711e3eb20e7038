// Blocks, their entities and what belongs to these.

#include <algorithm>

#include "embedded/drawing/drawing.h"

namespace cad {

RecordId Drawing::modelSpace() const { return modelSpace_; }
RecordId Drawing::paperSpace() const { return paperSpace_; }

bool Drawing::isLayoutSpace(RecordId block) const {
  return block < records_.size() && (records_[block].flags & Record::kLayoutSpace) != 0;
}

const std::vector<RecordId>& Drawing::entitiesOf(RecordId block) const {
  if (!blockLists_) {
    blockLists_ = std::make_unique<BlockLists>();
    RecordId last = kNoRecord;
    std::vector<RecordId>* list = nullptr;
    for (RecordId id = 0; id < records_.size(); ++id) {
      const Record& record = records_[id];
      if (record.kind != RecordKind::kEntity || record.owner == kNoRecord) continue;
      if (list == nullptr || record.owner != last) list = &(*blockLists_)[last = record.owner];
      list->push_back(id);
    }
  }
  return (*blockLists_)[block];
}

std::vector<RecordId> Drawing::attributeDefinitionsOf(RecordId block) const {
  constexpr std::int64_t kConstant = 2;
  std::vector<RecordId> out;
  for (const RecordId id : entitiesOf(block)) {
    if (records_[id].erased() || typeName(id) != "ATTDEF") continue;
    if ((integer(id, Property::kStandardFlags).value_or(0) & kConstant) == 0) out.push_back(id);
  }
  return out;
}

RecordId Drawing::blockOf(RecordId entity) const {
  const Record& record = records_[entity];
  if (record.kind != RecordKind::kSubEntity || record.owner == kNoRecord) return record.owner;
  return records_[record.owner].owner;
}

std::span<const RecordId> Drawing::subRecordsOf(RecordId entity) const {
  const RecordId first = entity + 1;
  if (first >= records_.size() || records_[first].kind != RecordKind::kSubEntity ||
      records_[first].owner != entity) {
    return {};
  }
  if (!subRecords_) {
    subRecords_ = std::make_unique<std::vector<RecordId>>();
    for (RecordId id = 0; id < records_.size(); ++id) {
      if (records_[id].kind == RecordKind::kSubEntity) subRecords_->push_back(id);
    }
  }
  const auto begin = std::ranges::lower_bound(*subRecords_, first);
  const auto end =
      std::find_if(begin, subRecords_->end(), [&](RecordId id) { return records_[id].owner != entity; });
  return {begin, end};
}

RecordId Drawing::endOfBlock(RecordId block) const {
  for (std::size_t i = block + std::size_t{1}; i < records_.size(); ++i) {
    if (records_[i].kind == RecordKind::kBlockEnd && records_[i].owner == block)
      return static_cast<RecordId>(i);
  }
  return kNoRecord;
}

void Drawing::eraseOne(RecordId id, bool erased) {
  const Record& record = records_[id];
  if (record.erased() == erased) return;
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kState, record.flags});
  const std::uint8_t flags =
      static_cast<std::uint8_t>(erased ? record.flags | Record::kErased : record.flags & ~Record::kErased);
  setState(id, record.edits, record.signature, flags);
}

base::Status Drawing::setErased(RecordId id, bool erased) {
  const Record& record = records_[id];
  ChangeScope scope(*this);
  switch (record.kind) {
    case RecordKind::kEntity: {
      const auto subRecords = subRecordsOf(id);
      const std::vector<RecordId> parts(subRecords.begin(), subRecords.end());
      eraseOne(id, erased);
      for (const RecordId part : parts) eraseOne(part, erased);
      return {};
    }
    case RecordKind::kTableRecord:
      if (record.implied()) break;
      eraseOne(id, erased);
      return {};
    case RecordKind::kBlockBegin: {
      if (isLayoutSpace(id)) break;
      const std::vector<RecordId> entities = entitiesOf(id);
      for (const RecordId entity : entities) {
        if (const base::Status status = setErased(entity, erased); !status) return status;
      }
      const RecordId entry = find(Table::kBlockRecord, name(id, Property::kName));
      if (entry != kNoRecord) eraseOne(entry, erased);
      if (const RecordId end = endOfBlock(id); end != kNoRecord) eraseOne(end, erased);
      eraseOne(id, erased);
      return {};
    }
    default:
      break;
  }
  return base::Failure{{}, L"Records of this kind cannot be erased"};
}

RecordId Drawing::lastEntity() const {
  for (std::size_t i = records_.size(); i-- > 0;) {
    const Record& record = records_[i];
    if (record.kind == RecordKind::kEntity && !record.erased() && isLayoutSpace(record.owner)) {
      return static_cast<RecordId>(i);
    }
  }
  return kNoRecord;
}

}  // namespace cad
