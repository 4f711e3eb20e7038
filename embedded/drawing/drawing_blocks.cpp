#include "embedded/drawing/drawing_blocks.h"

#include <algorithm>
#include <utility>

namespace cad {

DrawingBlocks::DrawingBlocks(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded)
    : DrawingTables(std::move(storage), std::move(loaded)) {
  for (Record& record : records_) {
    if (record.owner == LoadedRecords::kInModelSpace) record.owner = modelSpace_;
    if (record.owner == LoadedRecords::kInPaperSpace) record.owner = paperSpace_;
  }
}

void DrawingBlocks::listAdded(RecordId id) {
  const Record& record = records_[id];
  if (record.kind == RecordKind::kEntity && record.owner != kNoRecord && blockLists_)
    (*blockLists_)[record.owner].push_back(id);
  if (record.kind == RecordKind::kSubEntity && subRecords_) subRecords_->push_back(id);
}

bool DrawingBlocks::isLayoutSpace(RecordId block) const {
  return block < records_.size() && (records_[block].flags & Record::kLayoutSpace) != 0;
}

const std::vector<RecordId>& DrawingBlocks::entitiesOf(RecordId block) const {
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

std::vector<RecordId> DrawingBlocks::attributeDefinitionsOf(RecordId block) const {
  std::vector<RecordId> out;
  for (const RecordId id : entitiesOf(block)) {
    if (records_[id].erased() || typeName(id) != "ATTDEF") continue;
    if ((integer(id, Property::kStandardFlags).value_or(0) & AttributeFlag::kConstant) == 0)
      out.push_back(id);
  }
  return out;
}

RecordId DrawingBlocks::blockOf(RecordId entity) const {
  const Record& record = records_[entity];
  if (record.kind != RecordKind::kSubEntity || record.owner == kNoRecord) return record.owner;
  return records_[record.owner].owner;
}

std::span<const RecordId> DrawingBlocks::subRecordsOf(RecordId entity) const {
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

RecordId DrawingBlocks::endOfBlock(RecordId block) const {
  for (std::size_t i = block + std::size_t{1}; i < records_.size(); ++i) {
    if (records_[i].kind == RecordKind::kBlockEnd && records_[i].owner == block)
      return static_cast<RecordId>(i);
  }
  return kNoRecord;
}

RecordId DrawingBlocks::lastEntity() const {
  for (std::size_t i = records_.size(); i-- > 0;) {
    const Record& record = records_[i];
    if (record.kind == RecordKind::kEntity && !record.erased() && isLayoutSpace(record.owner)) {
      return static_cast<RecordId>(i);
    }
  }
  return kNoRecord;
}

}  // namespace cad
