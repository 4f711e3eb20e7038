#include "platform/headless/controls.h"

#include <algorithm>

namespace kiv::headless {

void Field::set(std::wstring_view text) {
  text_ = text;
  caret_ = 0;
  allSelected_ = false;
}

void Field::putCaretAtEnd() {
  caret_ = text_.size();
  allSelected_ = false;
}

void Field::insert(wchar_t character) {
  if (allSelected_) set({});
  text_.insert(caret_, 1, character);
  ++caret_;
}

bool Field::erase() {
  if (text_.empty() || (!allSelected_ && caret_ >= text_.size())) return false;
  if (allSelected_) {
    set({});
  } else {
    text_.erase(caret_, 1);
  }
  return true;
}

void MemoryCombo::clear() {
  entries_.clear();
  selected_ = -1;
}

void MemoryCombo::select(int entry) {
  selected_ = entry >= 0 && entry < count() ? entry : -1;
  field_->set(selected_ < 0 ? std::wstring() : entries_[static_cast<std::size_t>(selected_)]);
}

void MemoryList::clear() {
  rows_.clear();
  selected_.clear();
  focused_ = anchor_ = -1;
}

std::wstring MemoryList::cell(int row, int column) const {
  if (row < 0 || row >= rowCount() || column < 0) return {};
  const auto& cells = rows_[static_cast<std::size_t>(row)];
  const auto index = static_cast<std::size_t>(column);
  return index < cells.size() ? cells[index] : std::wstring();
}

void MemoryList::setCell(int row, int column, std::wstring_view text) {
  if (!has(row) || column < 0) return;
  auto& cells = rows_[static_cast<std::size_t>(row)];
  const auto index = static_cast<std::size_t>(column);
  if (index >= cells.size()) cells.resize(index + 1);
  cells[index] = text;
}

void MemoryList::select(int row) {
  selected_.clear();
  if (!has(row)) return;
  selected_.insert(row);
  focus(row);
}

void MemoryList::focus(int row) {
  if (has(row)) focused_ = anchor_ = row;
}

void MemoryList::selectRows(const std::vector<int>& rows) {
  selected_.clear();
  for (const int row : rows)
    if (has(row)) selected_.insert(row);
}

void MemoryList::extendTo(int row) {
  const auto [first, last] = std::minmax({anchor_ < 0 ? 0 : anchor_, row});
  selected_.clear();
  for (int each = first; each <= last; ++each) selected_.insert(each);
  focused_ = row;
}

void MemoryList::toggle(int row) {
  if (selected_.erase(row) == 0) selected_.insert(row);
  focus(row);
}

void MemoryGrid::setRowCount(int rows) {
  rows_.resize(static_cast<std::size_t>(std::max(rows, 0)));
  if (current_ >= rowCount()) current_ = rowCount() - 1;
  if (current_ < 0 && rowCount() > 0) current_ = 0;
}

std::wstring MemoryGrid::text(int row) const {
  return has(row) ? rows_[static_cast<std::size_t>(row)] : std::wstring();
}

void MemoryGrid::setText(int row, std::wstring_view text) {
  if (has(row)) rows_[static_cast<std::size_t>(row)] = text;
}

void MemoryGrid::setCurrentRow(int row) {
  if (has(row)) current_ = row;
}

}  // namespace kiv::headless
