#include "embedded/dxf/edit_store.h"

#include <algorithm>

namespace cad::dxf {

EditStore::EditStore() {
  edits_.emplace_back();  // number 0 is no edit
  texts_.emplace_back();
}

TextId EditStore::keepRecord(std::string bytes) {
  texts_.push_back(std::move(bytes));
  return static_cast<TextId>(texts_.size() - 1);
}

TextId& EditStore::latestLike(std::string_view bytes) {
  std::size_t place = bytes.size();
  for (const char c : bytes.substr(bytes.size() - std::min<std::size_t>(bytes.size(), 4)))
    place = place * 5 + static_cast<unsigned char>(c);
  return latest_[place % latest_.size()];
}

TextId EditStore::keepText(std::string_view bytes) {
  TextId& latest = latestLike(bytes);
  if (texts_[latest] == bytes) return latest;
  const auto found = shared_.find(bytes);
  if (found != shared_.end()) return latest = found->second;
  latest = keepRecord(std::string(bytes));
  shared_.emplace(texts_[latest], latest);
  return latest;
}

bool EditStore::isLong(EditId edit) const {
  int length = 0;
  while (edit != kNoEdit && edits_[edit].removed != kWhole) {
    ++length;
    edit = edits_[edit].previous;
  }
  return length >= kLongestChain;
}

EditId EditStore::addWhole(EditId previous, std::string bytes) {
  edits_.push_back({0, kWhole, keepRecord(std::move(bytes)), previous});
  return static_cast<EditId>(edits_.size() - 1);
}

void EditStore::apply(EditId edit, std::string_view original, std::string& out) const {
  const Edit* chain[kLongestChain + 1];
  int length = 0;
  while (edit != kNoEdit && edits_[edit].removed != kWhole) {
    chain[length++] = &edits_[edit];
    edit = edits_[edit].previous;
  }
  const std::size_t base = out.size();
  out += edit == kNoEdit ? original : std::string_view(texts_[edits_[edit].text]);
  while (length-- > 0) {
    const Edit& next = *chain[length];
    out.replace(base + next.offset, next.removed, texts_[next.text]);
  }
}

}  // namespace cad::dxf
