#pragma once
// Changes to a column of texts by the commands of a row's menu.

#include <string>
#include <vector>

namespace kiv {

enum class RowCommand { kInsert, kDelete, kAppend, kUp, kDown };

// False where the command would do nothing. `current` is -1 without a current row; only appending needs none.
bool canEditRows(RowCommand command, int rowCount, int current);

// Does what can be done, and returns the row that is current afterwards. Inserting puts an empty row before
// the current one; a column that has lost its last row gets an empty one.
int editRows(RowCommand command, std::vector<std::wstring>& rows, int current);

}  // namespace kiv
