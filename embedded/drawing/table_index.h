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
  void invalidate() { fresh_ = false; }  // a member came back, or what it is called is not known
  bool fresh() const { return fresh_; }
  const std::vector<RecordId>& members() const { return members_; }  // erased ones included
  const std::vector<RecordId>& live() const { return live_; }        // valid while fresh

  void beginRefresh();
  void put(RecordId id, std::wstring folded);  // of equal names the first counts
  void endRefresh() { fresh_ = true; }
  // A member at the end of a fresh index.
  void append(RecordId id, std::wstring folded);
  // A live member of a fresh index got another name, or was erased. The index is no longer fresh when
  // another member may have to take its place.
  void rename(RecordId id, const std::wstring& from, std::wstring to);
  void remove(RecordId id, const std::wstring& folded);

  RecordId find(const std::wstring& folded) const;
  RecordId known(NameId name) const;            // what find() gave for a name; kNotAsked before
  void remember(NameId name, RecordId answer);  // an answer of find()

  static constexpr RecordId kNotAsked = 0xFFFFFFFE;

 private:
  bool takeName(RecordId id, const std::wstring& folded);
  void forgetAbsent();

  std::vector<RecordId> members_, live_;
  std::unordered_map<std::wstring, RecordId> byName_;
  std::vector<RecordId> byId_;
  std::unordered_map<RecordId, std::vector<NameId>> askedAs_;  // the names that byId_ answers with a record
  std::vector<NameId> absent_;                                 // remembered as kNoRecord
  bool fresh_ = false;
  bool equalNames_ = false;
};

}  // namespace cad
