#pragma once
// What a grid holds.

#include <string>
#include <string_view>
#include <vector>

namespace kiv::win32 {

class GridRows {
 public:
  int count() const { return static_cast<int>(texts_.size()); }
  bool has(int row) const { return row >= 0 && row < count(); }
  // The current row is moved to the last one that is left; -1 when there is none, 0 when there is one again.
  void resize(int count);

  std::wstring text(int row) const { return has(row) ? texts_[static_cast<std::size_t>(row)] : L""; }
  // False when there is no such row or its text is the same already.
  bool setText(int row, std::wstring_view text);

  int current() const { return current_; }
  // The nearest row that exists. False when it is the current one already.
  bool moveTo(int row);

 private:
  std::vector<std::wstring> texts_;
  int current_ = -1;
};

}  // namespace kiv::win32
