#pragma once
// Selection sets: entities in order, counted and indexed quickly while members are being removed.

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "adsdef.h"
#include "embedded/drawing/record.h"

namespace cad {

class Drawing;

class SelectionSet {
 public:
  SelectionSet(const Drawing& drawing, std::vector<RecordId> members);

  const Drawing& drawing() const { return *drawing_; }
  std::size_t size() const { return living_; }
  RecordId at(std::size_t index) const;  // index < size(); the order is kept when members go
  bool contains(RecordId entity) const;
  void add(RecordId entity);     // a repeated one is ignored
  bool remove(RecordId entity);  // false when it is no member

 private:
  static constexpr std::size_t kBlock = 1024;
  void index() const;

  const Drawing* drawing_;
  std::vector<RecordId> members_;  // kNoRecord where one was removed
  std::vector<std::uint32_t> livingInBlock_;
  std::size_t living_ = 0;
  // Built when first asked who is a member: most sets are only walked.
  mutable std::unordered_map<RecordId, std::uint32_t> positions_;
  mutable bool indexed_ = false;
};

class SelectionSets {
 public:
  static constexpr std::size_t kMost = 128;
  bool isFull() const { return sets_.size() >= kMost; }
  bool add(std::unique_ptr<SelectionSet> set, ads_name name);  // false when all are in use
  SelectionSet* find(const ads_name name);                     // null for a freed or foreign name
  bool free(const ads_name name);
  void drop(const Drawing& drawing);  // empties the slots of a drawing that closes
  void clear() { sets_.clear(); }

 private:
  std::unordered_map<std::int64_t, std::unique_ptr<SelectionSet>> sets_;  // by number, never reused
  std::int64_t newest_ = 0;
};

}  // namespace cad
