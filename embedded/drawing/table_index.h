#pragma once
// The records of one symbol table, found by name.

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/record.h"

namespace cad {

class TableIndex {
 public:
  void add(RecordId id) {
    members_.push_back(id);
    fresh_ = false;
  }
  void invalidate() { fresh_ = false; }  // a member was renamed, erased or came back
  bool fresh() const { return fresh_; }
  const std::vector<RecordId>& members() const { return members_; }  // erased ones included
  const std::vector<RecordId>& live() const { return live_; }        // valid while fresh

  void beginRefresh();
  void put(RecordId id, std::wstring folded);  // of equal names the first counts
  void endRefresh() { fresh_ = true; }
  // A member at the end of a fresh index.
  void append(RecordId id, std::wstring folded);

  RecordId find(const std::wstring& folded) const;
  RecordId* slot(NameId name);  // what find() gave for a name; kNotAsked before

  static constexpr RecordId kNotAsked = 0xFFFFFFFE;

 private:
  std::vector<RecordId> members_, live_;
  std::unordered_map<std::wstring, RecordId> byName_;
  std::vector<RecordId> byId_;
  bool fresh_ = false;
};

}  // namespace cad
