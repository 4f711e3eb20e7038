#pragma once
// Lists in a line.

#include <functional>
#include <string>
#include <string_view>

namespace kivcli {

// `text` gives an item's text, or names the member that has it.
template <class Items, class Text = std::identity>
std::wstring joined(const Items& items, std::wstring_view mark = L", ", Text text = {}) {
  std::wstring line;
  for (const auto& item : items) {
    if (&item != &*std::begin(items)) line += mark;
    line += std::invoke(text, item);
  }
  return line;
}

}  // namespace kivcli
