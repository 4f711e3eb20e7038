#include "embedded/drawing/table_index.h"

#include <utility>

namespace cad {

void TableIndex::beginRefresh() {
  live_.clear();
  byName_.clear();
  byId_.clear();
  askedAs_.clear();
  absent_.clear();
  equalNames_ = false;
}

void TableIndex::put(RecordId id, std::wstring folded) {
  live_.push_back(id);
  if (!byName_.try_emplace(std::move(folded), id).second) equalNames_ = true;
}

void TableIndex::append(RecordId id, std::wstring folded) {
  members_.push_back(id);
  put(id, std::move(folded));
  forgetAbsent();
}

void TableIndex::rename(RecordId id, const std::wstring& from, std::wstring to) {
  if (byName_.contains(to) || !takeName(id, from)) return invalidate();
  byName_.emplace(std::move(to), id);
  forgetAbsent();
}

void TableIndex::remove(RecordId id, const std::wstring& folded) {
  if (!takeName(id, folded)) return invalidate();
  std::erase(live_, id);
}

// False, and nothing done, when a member of an equal name would be found from now on.
bool TableIndex::takeName(RecordId id, const std::wstring& folded) {
  const auto found = byName_.find(folded);
  if (equalNames_ || found == byName_.end() || found->second != id) return false;
  byName_.erase(found);
  if (const auto names = askedAs_.extract(id)) {
    for (const NameId name : names.mapped()) byId_[name] = kNotAsked;
  }
  return true;
}

void TableIndex::forgetAbsent() {
  for (const NameId name : absent_) byId_[name] = kNotAsked;
  absent_.clear();
}

RecordId TableIndex::find(const std::wstring& folded) const {
  const auto found = byName_.find(folded);
  return found == byName_.end() ? kNoRecord : found->second;
}

RecordId TableIndex::known(NameId name) const { return name < byId_.size() ? byId_[name] : kNotAsked; }

void TableIndex::remember(NameId name, RecordId answer) {
  if (name >= byId_.size()) byId_.resize(name + std::size_t{1}, kNotAsked);
  byId_[name] = answer;
  (answer == kNoRecord ? absent_ : askedAs_[answer]).push_back(name);
}

}  // namespace cad
