#include "platform/win32/grid.h"

#include "platform/win32/grid_window.h"

namespace kiv::win32 {

GridWindow* Grid::window() const {
  return handle() && IsWindow(handle()) ? GridWindow::of(handle()) : nullptr;
}

void Grid::setTitle(std::wstring_view title) {
  if (GridWindow* grid = window()) grid->setTitle(title);
}

int Grid::rowCount() const {
  const GridWindow* grid = window();
  return grid ? grid->rows().count() : 0;
}

void Grid::setRowCount(int rows) {
  if (GridWindow* grid = window()) grid->setRowCount(rows);
}

std::wstring Grid::text(int row) const {
  const GridWindow* grid = window();
  return grid ? grid->rows().text(row) : std::wstring();
}

void Grid::setText(int row, std::wstring_view text) {
  if (GridWindow* grid = window()) grid->setText(row, text);
}

int Grid::currentRow() const {
  const GridWindow* grid = window();
  return grid ? grid->rows().current() : 0;
}

void Grid::setCurrentRow(int row) {
  if (GridWindow* grid = window()) grid->goTo(row);
}

}  // namespace kiv::win32
