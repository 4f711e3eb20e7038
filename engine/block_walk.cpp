#include "engine/block_walk.h"

#include <memory>
#include <unordered_set>

#include "adscodes.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "engine/buffer_chain.h"
#include "engine/host_variables.h"
#include "engine/selection_set.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

AcDbObjectId currentSpace(AcDbDatabase& database) {
  const bool inModel = integerVariable(L"TILEMODE").value_or(1) != 0;
  AcDbBlockTablePointer table(&database, AcDb::kForRead);
  AcDbObjectId space;
  if (table.openStatus() == Acad::eOk) table->getAt(inModel ? ACDB_MODEL_SPACE : ACDB_PAPER_SPACE, space);
  return space;
}

class BlockWalk {
 public:
  BlockWalk(AcDbDatabase& database, BlockScope scope) : space_(currentSpace(database)), scope_(scope) {}

  std::vector<WorkRecord> run() {
    // The host finds the references faster than a walk over every entity of the space would.
    BufferChain filter;
    filter.text(RTDXF0, L"INSERT");
    const SelectionSet references(filter);
    for (int i = 0; i < references.size(); ++i) takeReference(references.at(i));
    // Not by recursion: a drawing decides how deep its blocks are nested.
    while (!pending_.empty()) {
      const AcDbObjectId block = pending_.back();
      pending_.pop_back();
      expand(block);
    }
    return std::move(records_);
  }

 private:
  void takeReference(AcDbObjectId id) {
    AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
    if (reference.openStatus() != Acad::eOk || reference->blockId() != space_) return;
    if (scope_ != BlockScope::kDefinitions) records_.push_back({id, summaryOf(*reference.object())});
    if (scope_ != BlockScope::kReferences) enqueue(reference->blockTableRecord());
  }

  void enqueue(AcDbObjectId block) {
    if (visited_.insert(block.asOldId()).second) pending_.push_back(block);
  }

  void expand(AcDbObjectId id) {
    AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
    AcDbBlockTableRecordIterator* made = nullptr;
    if (block.openStatus() != Acad::eOk || block->newIterator(made) != Acad::eOk) {
      printOnCommandLine(L"\nCannot open block table record!");
      return;
    }
    // The entities of a space are selected in their own right.
    const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
    if (block->isLayout()) return;
    for (; !entities->done(); entities->step()) takeEntity(*entities);
  }

  void takeEntity(const AcDbBlockTableRecordIterator& at) {
    AcDbEntity* opened = nullptr;
    if (at.getEntity(opened, AcDb::kForRead) != Acad::eOk) return;
    AcDbObjectPointer<AcDbEntity> entity;
    entity.acquire(opened);
    if (classes_.of(*entity.object()) == EntityClass::kBlockReference) {
      enqueue(static_cast<AcDbBlockReference*>(entity.object())->blockTableRecord());
    } else {
      records_.push_back({entity->objectId(), summaryOf(*entity.object())});
    }
  }

  AcDbObjectId space_;
  BlockScope scope_;
  EntityClasses classes_;
  std::vector<WorkRecord> records_;
  std::unordered_set<Adesk::Int64> visited_;
  std::vector<AcDbObjectId> pending_;
};

}  // namespace

std::vector<WorkRecord> collectBlockRecords(AcDbDatabase& database, BlockScope scope) {
  return BlockWalk(database, scope).run();
}

}  // namespace kiv
