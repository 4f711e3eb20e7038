#include "ui/row_edit.h"

#include <algorithm>
#include <utility>

namespace kiv {

bool canEditRows(RowCommand command, int rowCount, int current) {
  if (command == RowCommand::kAppend) return true;
  if (current < 0 || current >= rowCount) return false;
  if (command == RowCommand::kUp) return current > 0;
  return command != RowCommand::kDown || current + 1 < rowCount;
}

int editRows(RowCommand command, std::vector<std::wstring>& rows, int current) {
  if (!canEditRows(command, static_cast<int>(rows.size()), current)) return current;
  const auto at = rows.begin() + std::max(current, 0);
  switch (command) {
    case RowCommand::kInsert:
      rows.insert(at, std::wstring());
      return current;
    case RowCommand::kDelete:
      rows.erase(at);
      if (rows.empty()) rows.emplace_back();
      return std::min(current, static_cast<int>(rows.size()) - 1);
    case RowCommand::kAppend:
      rows.emplace_back();
      return static_cast<int>(rows.size()) - 1;
    case RowCommand::kUp:
      std::swap(*at, *(at - 1));
      return current - 1;
    case RowCommand::kDown:
      std::swap(*at, *(at + 1));
      return current + 1;
  }
  return current;
}

}  // namespace kiv
