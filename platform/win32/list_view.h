#pragma once
// A list view of the system, in its report form.

#include "platform/dialog_window.h"
#include "platform/win32/control.h"

namespace kiv::win32 {

class SystemListView final : public ListView, public Control {
 public:
  SystemListView(HWND handle, int& quietDepth);

  void setColumns(const std::vector<Column>& columns) override;
  void clear() override;
  void addRow(const std::vector<std::wstring>& cells) override;
  int rowCount() const override;
  std::wstring cell(int row, int column) const override;
  int selected() const override;
  void select(int row) override;
};

}  // namespace kiv::win32
