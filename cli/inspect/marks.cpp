#include "cli/inspect/marks.h"

#include <unordered_map>
#include <vector>

namespace kivcli {
namespace {

using cad::Drawing;
using cad::RecordId;

class Marks {
 public:
  explicit Marks(const Drawing& drawing) : drawing_(drawing) {}

  void add(RecordId id) {
    const cad::Record& record = drawing_.record(id);
    const RecordId entity = record.kind == cad::RecordKind::kSubEntity ? record.owner : id;
    const RecordId block = drawing_.blockOf(entity);
    if (block == cad::kNoRecord || drawing_.isLayoutSpace(block)) {
      marked_.insert(entity);
    } else if (reached_.insert(block).second) {
      pending_.push_back(block);
    }
  }

  std::unordered_set<RecordId> take() {
    if (!pending_.empty()) listReferences();
    while (!pending_.empty()) {
      const RecordId block = pending_.back();
      pending_.pop_back();
      for (const RecordId reference : references_[block]) add(reference);
    }
    return std::move(marked_);
  }

 private:
  void listReferences() {
    for (const RecordId block : drawing_.tableRecords(cad::Table::kBlock)) {
      for (const RecordId entity : drawing_.entitiesOf(block)) {
        if (drawing_.record(entity).erased() || drawing_.typeName(entity) != "INSERT") continue;
        const RecordId shown =
            drawing_.find(cad::Table::kBlock, drawing_.name(entity, cad::Property::kBlockName));
        if (shown != cad::kNoRecord) references_[shown].push_back(entity);
      }
    }
  }

  const Drawing& drawing_;
  std::unordered_set<RecordId> marked_, reached_;
  std::vector<RecordId> pending_;  // blocks in which something differs
  std::unordered_map<RecordId, std::vector<RecordId>> references_;
};

}  // namespace

std::unordered_set<RecordId> markedEntities(const Drawing& drawing,
                                            const cad::DrawingDifferences& differences, DiffSide side) {
  Marks marks(drawing);
  for (const cad::RecordDifference& difference : differences.entities) {
    const RecordId id = side == DiffSide::kBefore ? difference.before : difference.after;
    if (id != cad::kNoRecord) marks.add(id);
  }
  return marks.take();
}

}  // namespace kivcli
