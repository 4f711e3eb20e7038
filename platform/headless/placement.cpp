#include "platform/headless/placement.h"

namespace kiv::headless {
namespace {

// Of the dialog font, 9 points at 96 dots per inch: half a full-width character, and its height.
constexpr int kBaseWidth = 6;
constexpr int kBaseHeight = 12;

constexpr int kFrame = 3;
constexpr int kCaption = 23;

// To the nearest, halves away from zero.
int scaledBy(int value, int numerator, int denominator) {
  const int product = value * numerator;
  const int half = denominator / 2;
  return (product >= 0 ? product + half : product - half) / denominator;
}

// Where the inside of a window begins.
Place contentOf(const Rect& window) { return {window.left + kFrame, window.top + kFrame + kCaption}; }

}  // namespace

int horizontalPixels(int dialogUnits) { return scaledBy(dialogUnits, kBaseWidth, 4); }
int verticalPixels(int dialogUnits) { return scaledBy(dialogUnits, kBaseHeight, 8); }

Rect initialPlace(const DialogResource& dialog, const Rect& owner) {
  const Place content = owner.isEmpty() ? Place() : contentOf(owner);
  const int left = content.x + horizontalPixels(dialog.x);
  const int top = content.y + verticalPixels(dialog.y);
  return {left, top, left + horizontalPixels(dialog.width) + 2 * kFrame,
          top + verticalPixels(dialog.height) + 2 * kFrame + kCaption};
}

Rect controlPlace(const ResourceControl& control, const Rect& dialog) {
  const Place content = contentOf(dialog);
  const int left = content.x + horizontalPixels(control.x), top = content.y + verticalPixels(control.y);
  return {left, top, left + horizontalPixels(control.width), top + verticalPixels(control.height)};
}

}  // namespace kiv::headless
