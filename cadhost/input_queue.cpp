#include "cadhost/input_queue.h"

#include <utility>

namespace cadhost {
namespace {

constexpr int kKeyEvent = 2, kPickEvent = 3, kDragEvent = 5;
constexpr wchar_t kCancelCharacter = 3;

cad::InputEvent keyEvent(int key) {
  cad::InputEvent event;
  event.kind = kKeyEvent;
  event.key = key;
  return event;
}

cad::InputEvent pointEvent(int kind, double x, double y, double radius) {
  cad::InputEvent event;
  event.kind = kind;
  event.x = x;
  event.y = y;
  event.pickRadius = radius;
  return event;
}

}  // namespace

std::wstring InputQueue::type(std::wstring_view text, std::wstring unfinished) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    if (c == kCancelCharacter) {
      unfinished.clear();
      if (isWaiting())
        cancel();
      else
        lines_.emplace_back(kCancelLine);
    } else if (c == L'\n' || c == L'\r') {
      if (c == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
      enter(std::exchange(unfinished, {}));
    } else {
      unfinished += c;
      pressKey(c);
    }
  }
  return unfinished;
}

void InputQueue::enter(std::wstring line) {
  if (line.empty() && isWaiting())
    pressKey(kEnterKey);
  else
    lines_.push_back(std::move(line));
}

void InputQueue::pressKey(int key) {
  if (isWaiting()) events_.push_back(keyEvent(key));
}

void InputQueue::cancel() {
  if (!isWaiting()) {
    break_ = running_;
    if (!running_) lines_.emplace_back(kCancelLine);
    return;
  }
  // What was typed before is not for the command that comes next.
  events_.clear();
  events_.push_back(keyEvent(kCancelKey));
}

void InputQueue::click(double x, double y) {
  lastX_ = x, lastY_ = y;
  if (isWaiting()) events_.push_back(pointEvent(kPickEvent, x, y, pickRadius_));
}

void InputQueue::moveTo(double x, double y) {
  lastX_ = x, lastY_ = y;
  if (!isWaiting()) return;
  const cad::InputEvent event = pointEvent(kDragEvent, x, y, pickRadius_);
  if (!events_.empty() && events_.back().kind == kDragEvent)
    events_.back() = event;  // only where the pointer is now matters
  else
    events_.push_back(event);
}

void InputQueue::beginCommand() {
  running_ = true;
  break_ = false;
  events_.clear();
}

void InputQueue::endCommand() {
  running_ = false;
  break_ = false;
  events_.clear();
}

std::optional<cad::InputEvent> InputQueue::takeEvent(bool picking) {
  if (!events_.empty()) {
    const cad::InputEvent event = events_.front();
    events_.pop_front();
    return event;
  }
  if (!picking || lines_.empty()) return std::nullopt;
  const std::wstring& line = lines_.front();
  std::optional<cad::InputEvent> event;
  if (line.empty())
    event = keyEvent(kEnterKey);
  else if (const auto point = cad::typedPoint(line))
    event = pointEvent(kPickEvent, point->x, point->y, pickRadius_);
  if (event) lines_.pop_front();
  return event;
}

std::optional<std::wstring> InputQueue::takeLine() {
  if (running_ || lines_.empty()) return std::nullopt;
  std::wstring line = std::move(lines_.front());
  lines_.pop_front();
  return line;
}

}  // namespace cadhost
