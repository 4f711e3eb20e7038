#include "cli/options/calls.h"

#include <algorithm>
#include <vector>

namespace kivcli {

std::span<const CallRow* const> calls() {
  static const std::vector<const CallRow*> all = [] {
    std::vector<const CallRow*> rows;
    for (const auto& group : {convertCalls(), inspectCalls(), specificationCalls(), programCalls()}) {
      for (const CallRow& row : group) rows.push_back(&row);
    }
    return rows;
  }();
  return all;
}

const CallRow* findCall(std::wstring_view name) {
  const auto answers = [&](const CallRow* row) {
    return row->name == name || std::ranges::find(row->otherNames, name, [](const wchar_t* other) {
                                  return std::wstring_view(other);
                                }) != row->otherNames.end();
  };
  const auto rows = calls();
  const auto found = std::ranges::find_if(rows, answers);
  return found == rows.end() ? nullptr : *found;
}

}  // namespace kivcli
