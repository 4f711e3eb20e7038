#pragma once
// What a file tells of an entity outside of its record: the objects that belong to it, and the lists of the
// references to each block. They follow, when the drawing is saved, the entities that were erased and added.

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "embedded/dxf/dxf_storage.h"

namespace cad::dxf {

class Traces {
 public:
  Traces(const DxfStorage& storage, std::span<const Record> records);

  // Whether the object belongs to an erased entity and to nobody else.
  bool goes(RecordId object) const { return going_.contains(object); }
  // The table entry of a block with other references in its list; absent: it is what it was.
  std::optional<std::string> entryOf(RecordId block) const;

 private:
  using Trees = std::unordered_map<RecordId, RecordId>;  // objects, and the first of those they belong to

  void note(const Record& record);
  void findGoing();
  void takeTree(RecordId root, Trees& trees) const;
  std::vector<RecordId> ownedBy(const Record& object) const;
  std::unordered_set<RecordId> neededTrees(const Trees& trees) const;

  const DxfStorage& storage_;
  std::span<const Record> records_;
  std::unordered_map<Handle, RecordId> objects_;
  std::vector<Handle> extensions_;                               // dictionaries of erased entities
  std::unordered_set<RecordId> going_;                           // objects
  std::unordered_set<Handle> erased_;                            // references
  std::unordered_map<std::wstring, std::vector<Handle>> added_;  // references, by upper-cased name
};

}  // namespace cad::dxf
