// What happens to a dialog's controls when its frame is dragged.
#include <algorithm>

#include "platform/win32/window.h"

namespace kiv::win32 {
namespace {

Place insideOf(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  return {static_cast<int>(inside.right), static_cast<int>(inside.bottom)};
}

Rect placeInside(HWND window, HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
  return {static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right),
          static_cast<int>(place.bottom)};
}

}  // namespace

void Window::rememberFirstSize() {
  const Rect first = place();
  firstSize_ = {first.right - first.left, first.bottom - first.top};
  firstInside_ = insideOf(window_);
}

void Window::setSize(int width, int height) {
  const RECT usable = usablePartOfMonitor(window_);
  const Rect now = place();
  width = std::max(firstSize_.x, std::min<int>(width, usable.right - usable.left));
  height = std::max(firstSize_.y, std::min<int>(height, usable.bottom - usable.top));
  const int left = std::clamp<int>((now.left + now.right - width) / 2, usable.left,
                                   std::max<int>(usable.left, usable.right - width));
  const int top = std::clamp<int>((now.top + now.bottom - height) / 2, usable.top,
                                  std::max<int>(usable.top, usable.bottom - height));
  setPlace({left, top, left + width, top + height});
}

void Window::holdTo(int id, unsigned edges) {
  if (const HWND handle = control(id)) held_[id] = {edges, placeInside(window_, handle)};
}

void Window::takeSize() {
  if (held_.empty() || IsIconic(window_)) return;
  const Place inside = insideOf(window_);
  const Place grown{inside.x - firstInside_.x, inside.y - firstInside_.y};
  HDWP moves = BeginDeferWindowPos(static_cast<int>(held_.size()));
  for (const auto& [id, held] : held_) {
    const Rect to = movedWithEdges(held.first, held.edges, grown);
    if (moves)
      moves = DeferWindowPos(moves, control(id), nullptr, to.left, to.top, to.right - to.left,
                             to.bottom - to.top, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (moves) EndDeferWindowPos(moves);
  InvalidateRect(window_, nullptr, TRUE);
}

void Window::limitSize(MINMAXINFO& limits) {
  if (firstSize_.x > 0) limits.ptMinTrackSize = {firstSize_.x, firstSize_.y};
}

}  // namespace kiv::win32
