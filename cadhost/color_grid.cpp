#include "cadhost/color_grid.h"

#include <windowsx.h>

#include <algorithm>

#include "cadhost/color_table.h"
#include "cadhost/window_support.h"
#include "embedded/graphics/palette.h"

namespace cadhost {
namespace {

constexpr int kFirstColor = 1;

void fill(HDC dc, const RECT& place, COLORREF color) {
  const HBRUSH brush = CreateSolidBrush(color);
  FillRect(dc, &place, brush);
  DeleteObject(brush);
}

void frame(HDC dc, RECT place, COLORREF color, int width) {
  const HBRUSH brush = CreateSolidBrush(color);
  for (; width > 0; --width) {
    FrameRect(dc, &place, brush);
    InflateRect(&place, -1, -1);
  }
  DeleteObject(brush);
}

std::optional<Step> stepOf(WPARAM key) {
  switch (key) {
    case VK_LEFT:
      return Step::kLeft;
    case VK_RIGHT:
      return Step::kRight;
    case VK_UP:
      return Step::kUp;
    case VK_DOWN:
      return Step::kDown;
    case VK_HOME:
      return Step::kFirst;
    case VK_END:
      return Step::kLast;
    default:
      return std::nullopt;
  }
}

// The chosen number is kept in the window itself; it needs nothing else.
int chosen(HWND window) { return static_cast<int>(GetWindowLongPtrW(window, GWLP_USERDATA)); }

void choose(HWND window, int number) {
  SetWindowLongPtrW(window, GWLP_USERDATA, number);
  InvalidateRect(window, nullptr, FALSE);
}

void tell(HWND window, WORD code) {
  SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), code),
               reinterpret_cast<LPARAM>(window));
}

RECT placeOf(HWND window, const ColorCell& cell) {
  RECT area{};
  GetClientRect(window, &area);
  const auto x = [&](int column) { return MulDiv(area.right, column, kColorColumns); };
  const auto y = [&](int row) { return MulDiv(area.bottom, row, kColorRows); };
  return {x(cell.column), y(cell.row), x(cell.column + 1), y(cell.row + 1)};
}

void paint(HWND window) {
  PAINTSTRUCT painting{};
  const HDC dc = BeginPaint(window, &painting);
  const int line = scaled(window, 1);
  RECT area{};
  GetClientRect(window, &area);
  fill(dc, area, GetSysColor(COLOR_BTNFACE));
  for (int row = 0; row < kColorRows; ++row) {
    for (int column = 0; column < kColorColumns; ++column) {
      const auto number = colorOfCell({column, row});
      if (!number) break;
      RECT place = placeOf(window, {column, row});
      InflateRect(&place, -line, -line);
      fill(dc, place, toColorRef(cad::paletteColor(static_cast<std::uint8_t>(*number))));
      frame(dc, place, GetSysColor(COLOR_BTNSHADOW), line);
    }
  }
  if (chosen(window) >= kFirstColor) {
    // Black within white is seen on every colour.
    RECT place = placeOf(window, cellOfColor(chosen(window)));
    frame(dc, place, RGB(0, 0, 0), line);
    InflateRect(&place, -line, -line);
    frame(dc, place, RGB(255, 255, 255), line);
    InflateRect(&place, -line, -line);
    frame(dc, place, RGB(0, 0, 0), line);
    if (GetFocus() == window) DrawFocusRect(dc, &place);
  }
  EndPaint(window, &painting);
}

void click(HWND window, LPARAM where, WORD code) {
  RECT area{};
  GetClientRect(window, &area);
  if (area.right <= 0 || area.bottom <= 0) return;
  SetFocus(window);
  const auto number = colorOfCell({GET_X_LPARAM(where) * kColorColumns / static_cast<int>(area.right),
                                   GET_Y_LPARAM(where) * kColorRows / static_cast<int>(area.bottom)});
  if (!number) return;
  choose(window, *number);
  tell(window, code);
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint(window);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(window, nullptr, FALSE);
      return 0;
    case WM_LBUTTONDOWN:
      click(window, lParam, ColorGrid::kChosen);
      return 0;
    case WM_LBUTTONDBLCLK:
      click(window, lParam, ColorGrid::kConfirmed);
      return 0;
    case WM_KEYDOWN:
      if (const auto step = stepOf(wParam)) {
        choose(window, chosen(window) < kFirstColor ? kFirstColor : colorAfter(chosen(window), *step));
        tell(window, ColorGrid::kChosen);
        return 0;
      }
      break;
    case ColorGrid::kGetColor:
      return chosen(window);
    case ColorGrid::kSetColor:
      choose(window, static_cast<int>(wParam));
      return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

bool ColorGrid::registerClass(HINSTANCE instance) {
  WNDCLASSEXW wc{};
  wc.cbSize = sizeof wc;
  wc.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  wc.lpfnWndProc = procedure;
  wc.hInstance = instance;
  wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  wc.lpszClassName = kClass;
  return RegisterClassExW(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

}  // namespace cadhost
