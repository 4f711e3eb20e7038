#include "embedded/dwg/state_store.h"

#include <algorithm>
#include <cstring>

namespace cad::dwg {

EditId StateStore::add(std::string_view data, std::uint64_t handleBits) {
  constexpr std::size_t kChunk = std::size_t{1} << 16;
  if (size_ - used_ < data.size()) {
    size_ = std::max(kChunk, data.size());
    used_ = 0;
    chunks_.push_back(std::make_unique_for_overwrite<char[]>(size_));
  }
  char* const place = chunks_.empty() ? nullptr : chunks_.back().get() + used_;
  if (!data.empty()) std::memcpy(place, data.data(), data.size());
  used_ += data.size();
  states_.push_back({{place, data.size()}, handleBits});
  return static_cast<EditId>(states_.size() - 1);
}

}  // namespace cad::dwg
