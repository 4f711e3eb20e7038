#pragma once
// What every window here needs: a class with an object behind it, fonts and lengths for its monitor.

#include <windows.h>

#include <string>

#include "cadhost/resource.h"
#include "embedded/graphics/palette.h"

namespace cadhost {

// Registers a class whose windows have `Object* ` as creation parameter; its messages go to
// Object::handle(message, wParam, lParam), the first one after Object::window has been set.
template <class Object>
LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* created = static_cast<Object*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    created->attach(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* object = reinterpret_cast<Object*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (object == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return object->handle(message, wParam, lParam);
  } catch (...) {  // nothing may be thrown through the system's frames; memory is what is left
    return DefWindowProcW(window, message, wParam, lParam);
  }
}

template <class Object>
bool registerWindow(HINSTANCE instance, const wchar_t* name, HCURSOR cursor, HBRUSH background,
                    UINT style = 0) {
  WNDCLASSEXW wc{};
  wc.cbSize = sizeof wc;
  wc.style = style;
  wc.lpfnWndProc = windowProcedure<Object>;
  wc.hInstance = instance;
  wc.hCursor = cursor;
  wc.hbrBackground = background;
  wc.lpszClassName = name;
  wc.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(IDR_FRAME));
  return RegisterClassExW(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

// A length that is `pixels` at 96 dots per inch.
inline int scaled(HWND window, int pixels) {
  return MulDiv(pixels, static_cast<int>(GetDpiForWindow(window)), 96);
}

// A font that has Japanese characters, in the window's scale. The caller deletes it.
inline HFONT makeFont(HWND window, const wchar_t* face, int pointsTimesTen) {
  const int height = -MulDiv(pointsTimesTen, static_cast<int>(GetDpiForWindow(window)), 720);
  return CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, OUT_DEFAULT_PRECIS,
                     CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, face);
}

inline COLORREF toColorRef(cad::Rgb color) {
  return RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF);
}

inline std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  if (!text.empty()) GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

}  // namespace cadhost
