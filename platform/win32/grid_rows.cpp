#include "platform/win32/grid_rows.h"

#include <algorithm>

namespace kiv::win32 {

void GridRows::resize(int count) {
  texts_.resize(static_cast<std::size_t>(std::max(count, 0)));
  moveTo(std::max(current_, 0));
}

bool GridRows::setText(int row, std::wstring_view text) {
  if (!has(row) || texts_[static_cast<std::size_t>(row)] == text) return false;
  texts_[static_cast<std::size_t>(row)] = text;
  return true;
}

bool GridRows::moveTo(int row) {
  const int target = std::clamp(row, std::min(0, count() - 1), count() - 1);
  if (target == current_) return false;
  current_ = target;
  return true;
}

}  // namespace kiv::win32
