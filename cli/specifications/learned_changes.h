#pragma once
// What a person changed in a drawing, value by value, and what of it a conversion did not make as well.

#include <map>
#include <string>
#include <tuple>
#include <unordered_set>
#include <vector>

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/drawing_diff.h"

namespace kivcli {

// One value of one object, or an object that only one of the drawings has. Words are in English whatever
// language the user has.
struct HandMadeChange {
  std::wstring object;  // "1A3 LINE", "LAYER WALL"; empty: the drawing, of its variables
  std::wstring what;    // a property, "added", "removed"
  std::wstring before, after;
};

struct MadeValue {
  std::wstring what;  // a property, or "entities that differ"; empty: the changed one
  std::wstring value;
};

struct LeftChange {
  HandMadeChange change;
  bool isByHand = true;                  // false: the conversion made it and the person did not
  std::vector<MadeValue> made;           // by hand: what the conversion made of it instead; empty: nothing
  cad::RecordId after = cad::kNoRecord;  // of the second drawing; kNoRecord: it has none
};

// Names differ in their case, but not where they refer to a record, nor do those of font files. What shows a
// dimension, and the handles and other data of records that the conversion has made itself, do not count.
class HandMadeChanges {
 public:
  // The drawings must outlive it.
  HandMadeChanges(const cad::Drawing& before, const cad::Drawing& after,
                  const cad::DrawingDifferences& differences);

  std::size_t count() const { return changes_.size(); }
  // `converted`: the first drawing, opened once more and converted. One that differs nowhere leaves nothing.
  std::vector<LeftChange> leftBy(const cad::Drawing& converted) const;

 private:
  enum class Kind { kEntity, kNewEntity, kRecord, kNewRecord, kVariable };
  using Key = std::tuple<Kind, cad::RecordId, std::string>;
  using Left = std::map<Key, LeftChange>;

  void takeNewBlocks(const cad::DrawingDifferences& differences);
  void addAll(const cad::DrawingDifferences& differences);
  void add(Key key, const cad::RecordDifference& difference, std::wstring what);
  bool isOfNewBlock(const cad::RecordDifference& difference, const cad::Drawing& before) const;
  bool isMade(cad::RecordId record) const { return record != cad::kNoRecord && record >= recordCount_; }
  void leave(Left& left, const Key& key, LeftChange change) const;
  void leaveRecord(Left& left, bool isEntity, const cad::RecordDifference& difference,
                   const cad::Drawing& converted) const;
  void leaveNewBlocks(Left& left, const cad::Drawing& converted) const;

  const cad::Drawing& after_;
  std::size_t recordCount_;                      // of the first drawing
  std::unordered_set<cad::RecordId> newBlocks_;  // of the second one
  std::map<Key, HandMadeChange> changes_;
};

}  // namespace kivcli
