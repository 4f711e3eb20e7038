#include "embedded/dxf/edit_store.h"

namespace cad::dxf {

EditStore::EditStore() {
  edits_.emplace_back();  // number 0 is no edit
  texts_.emplace_back();
}

TextId EditStore::keepRecord(std::string bytes) {
  texts_.push_back(std::move(bytes));
  return static_cast<TextId>(texts_.size() - 1);
}

TextId EditStore::keepText(std::string_view bytes) {
  if (texts_[lastText_] == bytes) return lastText_;
  const auto found = shared_.find(bytes);
  if (found != shared_.end()) return lastText_ = found->second;
  lastText_ = keepRecord(std::string(bytes));
  shared_.emplace(texts_[lastText_], lastText_);
  return lastText_;
}

bool EditStore::isLong(EditId edit) const {
  int length = 0;
  while (edit != kNoEdit && edits_[edit].removed != kWhole) {
    ++length;
    edit = edits_[edit].previous;
  }
  return length >= kLongestChain;
}

EditId EditStore::add(EditId previous, std::uint32_t offset, std::uint32_t removed,
                      std::string_view replacement) {
  edits_.push_back({offset, removed, keepText(replacement), previous});
  return static_cast<EditId>(edits_.size() - 1);
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
