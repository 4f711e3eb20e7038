#include "embedded/drawing/table_index.h"

#include <utility>

namespace cad {

void TableIndex::beginRefresh() {
  live_.clear();
  byName_.clear();
  byId_.clear();
}

void TableIndex::put(RecordId id, std::wstring folded) {
  live_.push_back(id);
  byName_.try_emplace(std::move(folded), id);
}

void TableIndex::append(RecordId id, std::wstring folded) {
  members_.push_back(id);
  put(id, std::move(folded));
  byId_.clear();
}

RecordId TableIndex::find(const std::wstring& folded) const {
  const auto found = byName_.find(folded);
  return found == byName_.end() ? kNoRecord : found->second;
}

RecordId* TableIndex::slot(NameId name) {
  if (name >= byId_.size()) byId_.resize(name + 1, kNotAsked);
  return &byId_[name];
}

}  // namespace cad
