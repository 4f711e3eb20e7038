// Where the keyboard goes in a dialog in memory.

#include <algorithm>

#include "platform/headless/resource_styles.h"
#include "platform/headless/window.h"

namespace kiv::headless {

// The controls [first, second) from the one that begins the group to before the next that begins one.
std::pair<std::size_t, std::size_t> MemoryWindow::group(const MemoryControl& control) const {
  const auto index = static_cast<std::size_t>(&control - controls_.data());
  std::size_t begin = index;
  while (begin > 0 && !controls_[begin].resource->has(style::kGroup)) --begin;
  std::size_t end = index + 1;
  while (end < controls_.size() && !controls_[end].resource->has(style::kGroup)) ++end;
  return {begin, end};
}

// Of a group of radio buttons the tab key reaches the checked one only.
bool MemoryWindow::isTabStop(const MemoryControl& control) const {
  if (!control.isUsable() || control.id == -1) return false;
  if (control.kind != ControlKind::kRadioButton) return control.resource->has(style::kTabStop);
  const auto [begin, end] = group(control);
  const auto first = controls_.begin() + static_cast<std::ptrdiff_t>(begin);
  const auto last = controls_.begin() + static_cast<std::ptrdiff_t>(end);
  const bool someIsChecked = std::any_of(first, last, [](const MemoryControl& each) { return each.checked; });
  return someIsChecked ? control.checked : control.resource->has(style::kTabStop);
}

void MemoryWindow::focusFirst() {
  for (const MemoryControl& each : controls_) {
    if (isTabStop(each)) return focus(each.id);
  }
}

void MemoryWindow::focusNext(bool backwards) {
  const auto count = static_cast<std::ptrdiff_t>(controls_.size());
  const MemoryControl* from = find(focus_);
  std::ptrdiff_t index = from ? from - controls_.data() : (backwards ? count : -1);
  for (std::ptrdiff_t step = 0; step < count; ++step) {
    index = (index + (backwards ? -1 : 1) + count) % count;
    const MemoryControl& each = controls_[static_cast<std::size_t>(index)];
    if (isTabStop(each)) return focus(each.id);
  }
}

MemoryControl* MemoryWindow::neighbourInGroup(MemoryControl& radio, int direction) {
  const auto [begin, end] = group(radio);
  const auto size = static_cast<std::ptrdiff_t>(end - begin);
  std::ptrdiff_t offset = &radio - controls_.data() - static_cast<std::ptrdiff_t>(begin);
  for (std::ptrdiff_t step = 0; step < size; ++step) {
    offset = (offset + direction + size) % size;
    MemoryControl& each = controls_[begin + static_cast<std::size_t>(offset)];
    if (each.kind == ControlKind::kRadioButton && each.isUsable()) return &each;
  }
  return &radio;
}

MemoryControl* MemoryWindow::defaultButton() {
  MemoryControl* focused = focusedControl();
  const bool canBeDefault = focused && focused->kind == ControlKind::kPushButton &&
                            (focused->resource->style & style::kButtonType) <= style::kDefaultButton;
  if (canBeDefault) return focused;
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [](const auto& each) { return each.resource->isDefaultButton(); });
  return found == controls_.end() ? nullptr : &*found;
}

}  // namespace kiv::headless
