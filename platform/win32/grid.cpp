#include "platform/win32/grid.h"

#include "platform/host_output.h"
#include "platform/win32/grid_window.h"

namespace kiv::win32 {
namespace {

LRESULT takeMessage(HWND handle, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_CREATE) SetWindowLongPtrW(handle, 0, reinterpret_cast<LONG_PTR>(new GridWindow(handle)));
  GridWindow* grid = GridWindow::of(handle);
  if (!grid) return DefWindowProcW(handle, message, first, second);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(handle, 0, 0);
    delete grid;
    return DefWindowProcW(handle, message, first, second);
  }
  return grid->take(message, first, second);
}

LRESULT CALLBACK gridProcedure(HWND handle, UINT message, WPARAM first, LPARAM second) {
  // No grid is made when its object cannot be.
  const LRESULT failed = message == WM_CREATE ? -1 : 0;
  return guarded(failed, [&] { return takeMessage(handle, message, first, second); });
}

}  // namespace

void registerGridClass() {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  description.lpfnWndProc = gridProcedure;
  description.cbWndExtra = sizeof(GridWindow*);
  description.hInstance = moduleInstance();
  description.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  description.lpszClassName = kGridClass;
  RegisterClassExW(&description);
}

void unregisterGridClass() { UnregisterClassW(kGridClass, moduleInstance()); }

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
