#include "embedded/editor/selection_sets.h"

#include <algorithm>

#include "embedded/drawing/drawing.h"

namespace cad {

SelectionSet::SelectionSet(const Drawing& drawing, std::vector<RecordId> members)
    : drawing_(&drawing), members_(std::move(members)), living_(members_.size()) {
  for (std::size_t i = 0; i < members_.size(); i += kBlock)
    livingInBlock_.push_back(static_cast<std::uint32_t>(std::min(kBlock, members_.size() - i)));
}

RecordId SelectionSet::at(std::size_t index) const {
  if (living_ == members_.size()) return members_[index];
  std::size_t block = 0;
  for (; index >= livingInBlock_[block]; ++block) index -= livingInBlock_[block];
  std::size_t position = block * kBlock;
  for (;; ++position) {
    if (members_[position] == kNoRecord) continue;
    if (index-- == 0) return members_[position];
  }
}

void SelectionSet::index() const {
  if (indexed_) return;
  positions_.reserve(members_.size());
  for (std::size_t i = 0; i < members_.size(); ++i)
    if (members_[i] != kNoRecord) positions_.emplace(members_[i], static_cast<std::uint32_t>(i));
  indexed_ = true;
}

bool SelectionSet::contains(RecordId entity) const {
  index();
  return positions_.contains(entity);
}

void SelectionSet::add(RecordId entity) {
  if (contains(entity)) return;
  if (members_.size() % kBlock == 0) livingInBlock_.push_back(0);
  positions_.emplace(entity, static_cast<std::uint32_t>(members_.size()));
  members_.push_back(entity);
  ++livingInBlock_.back();
  ++living_;
}

bool SelectionSet::remove(RecordId entity) {
  index();
  const auto found = positions_.find(entity);
  if (found == positions_.end()) return false;
  members_[found->second] = kNoRecord;
  --livingInBlock_[found->second / kBlock];
  --living_;
  positions_.erase(found);
  return true;
}

bool SelectionSets::add(std::unique_ptr<SelectionSet> set, ads_name name) {
  if (isFull()) return false;
  sets_.emplace(++newest_, std::move(set));
  name[0] = newest_;
  name[1] = -1;
  return true;
}

SelectionSet* SelectionSets::find(const ads_name name) {
  if (name == nullptr || name[1] != -1) return nullptr;
  const auto found = sets_.find(name[0]);
  return found == sets_.end() ? nullptr : found->second.get();
}

bool SelectionSets::free(const ads_name name) {
  return name != nullptr && name[1] == -1 && sets_.erase(name[0]) != 0;
}

void SelectionSets::drop(const Drawing& drawing) {
  std::erase_if(sets_, [&](const auto& each) { return &each.second->drawing() == &drawing; });
}

}  // namespace cad
