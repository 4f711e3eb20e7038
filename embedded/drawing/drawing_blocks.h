#pragma once
// The blocks of a drawing, the spaces among them: which entities each holds, and what belongs to these.

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/drawing_tables.h"

namespace cad {

class DrawingBlocks : public DrawingTables {
 public:
  // A block is known by its table record's id (tableRecords(Table::kBlock)). Model space and paper
  // space always exist, under the names "*Model_Space" and "*Paper_Space" whatever the file calls them.
  RecordId modelSpace() const { return modelSpace_; }
  RecordId paperSpace() const { return paperSpace_; }
  bool isLayoutSpace(RecordId block) const;  // model space or any paper space
  // Main entities of a block in drawing order, erased ones included (Record::erased()).
  const std::vector<RecordId>& entitiesOf(RecordId block) const;
  RecordId blockOf(RecordId entity) const;
  // Sub-records of an INSERT with attributes or of an old-style POLYLINE, the sequence end included.
  std::span<const RecordId> subRecordsOf(RecordId entity) const;
  // The block's definitions of attributes that vary from reference to reference, in their order.
  std::vector<RecordId> attributeDefinitionsOf(RecordId block) const;
  RecordId endOfBlock(RecordId block) const;  // of the kind kBlockEnd; kNoRecord when the file has none
  RecordId lastEntity() const;                // the newest entity of model or paper space that is not erased

 protected:
  DrawingBlocks(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded);
  ~DrawingBlocks() = default;
  void listAdded(RecordId id);  // the newest record

 private:
  using BlockLists = std::unordered_map<RecordId, std::vector<RecordId>>;
  mutable std::unique_ptr<BlockLists> blockLists_;
  mutable std::unique_ptr<std::vector<RecordId>> subRecords_;
};

}  // namespace cad
