#pragma once
// The controls of a dialog in memory, with the behaviour of the system's.

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialog_window.h"
#include "platform/headless/resource_script.h"

namespace kiv::headless {

// The text of an edit or of a combo box, and where the next character goes.
class Field {
 public:
  const std::wstring& text() const { return text_; }
  void set(std::wstring_view text);  // by the program: the caret then stands before the text
  void selectAll() { allSelected_ = true; }
  void putCaretAtEnd();
  void insert(wchar_t character);  // by the person
  bool erase();                    // the selection or the character after the caret; false: nothing there

 private:
  std::wstring text_;
  std::size_t caret_ = 0;
  bool allSelected_ = false;
};

class MemoryCombo : public ComboBox {
 public:
  explicit MemoryCombo(Field& field) : field_(&field) {}
  void clear() override;
  void add(std::wstring_view entry) override { entries_.emplace_back(entry); }
  std::vector<std::wstring> entries() const override { return entries_; }
  int selected() const override { return selected_; }
  void select(int entry) override;
  void putCaretAtEnd() override { field_->putCaretAtEnd(); }

  void takeSelectionAway() { selected_ = -1; }
  int count() const { return static_cast<int>(entries_.size()); }

 private:
  Field* field_;
  std::vector<std::wstring> entries_;
  int selected_ = -1;
};

class MemoryList : public ListView {
 public:
  void setColumns(const std::vector<Column>& columns) override { columns_ = columns; }
  void clear() override;
  void addRow(const std::vector<std::wstring>& cells) override { rows_.push_back(cells); }
  int rowCount() const override { return static_cast<int>(rows_.size()); }
  std::wstring cell(int row, int column) const override;
  void setCell(int row, int column, std::wstring_view text) override;
  int selected() const override { return selected_.empty() ? -1 : *selected_.begin(); }
  void select(int row) override;
  int selectedCount() const override { return static_cast<int>(selected_.size()); }
  std::vector<int> selectedRows() const override { return {selected_.begin(), selected_.end()}; }
  void selectRows(const std::vector<int>& rows) override;
  int focused() const override { return focused_; }
  void focus(int row) override;
  void setSortMark(int, bool) override {}
  void setRedraw(bool) override {}

  bool has(int row) const { return row >= 0 && row < rowCount(); }
  bool isSelected(int row) const { return selected_.contains(row); }
  // By the person: the row alone, with what is selected (Ctrl), or all from the one clicked last (Shift).
  void extendTo(int row);
  void toggle(int row);

  int columnCount() const { return static_cast<int>(columns_.size()); }

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::wstring>> rows_;
  std::set<int> selected_;
  int focused_ = -1;  // that the keys go from
  int anchor_ = -1;   // that Shift goes from
};

class MemoryGrid : public TextGrid {
 public:
  void setTitle(std::wstring_view) override {}
  int rowCount() const override { return static_cast<int>(rows_.size()); }
  void setRowCount(int rows) override;
  std::wstring text(int row) const override;
  void setText(int row, std::wstring_view text) override;
  int currentRow() const override { return current_; }
  void setCurrentRow(int row) override;

  bool has(int row) const { return row >= 0 && row < rowCount(); }

 private:
  std::vector<std::wstring> rows_;
  int current_ = -1;
};

}  // namespace kiv::headless
