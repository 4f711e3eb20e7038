#include "cadhost/color_table.h"

#include <algorithm>

namespace cadhost {
namespace {

constexpr int kFirstHue = 10, kFirstGrey = 250, kLastColor = 255;
constexpr int kHueRows = 10, kNamedRow = 10, kGreyRow = 11;
// Of the ten of a hue, by their last digits: the pure ones, the lightest in the middle, then the pale ones.
constexpr int kDigits[kHueRows] = {8, 6, 4, 2, 0, 1, 3, 5, 7, 9};

int rowLength(int row) {
  if (row == kNamedRow) return kFirstHue - 1;
  return row == kGreyRow ? kLastColor - kFirstGrey + 1 : kColorColumns;
}

}  // namespace

ColorCell cellOfColor(int number) {
  if (number < kFirstHue) return {number - 1, kNamedRow};
  if (number >= kFirstGrey) return {number - kFirstGrey, kGreyRow};
  const int* digit = std::ranges::find(kDigits, number % 10);
  return {number / 10 - 1, static_cast<int>(digit - kDigits)};
}

std::optional<int> colorOfCell(const ColorCell& cell) {
  if (cell.row < 0 || cell.row >= kColorRows || cell.column < 0 || cell.column >= rowLength(cell.row))
    return std::nullopt;
  if (cell.row == kNamedRow) return cell.column + 1;
  if (cell.row == kGreyRow) return kFirstGrey + cell.column;
  return (cell.column + 1) * 10 + kDigits[cell.row];
}

int colorAfter(int number, Step step) {
  ColorCell cell = cellOfColor(number);
  if (step == Step::kUp) --cell.row;
  if (step == Step::kDown) ++cell.row;
  cell.row = std::clamp(cell.row, 0, kColorRows - 1);
  const int last = rowLength(cell.row) - 1;
  if (step == Step::kLeft) --cell.column;
  if (step == Step::kRight) ++cell.column;
  if (step == Step::kFirst) cell.column = 0;
  if (step == Step::kLast) cell.column = last;
  cell.column = std::clamp(cell.column, 0, last);
  return colorOfCell(cell).value_or(number);
}

}  // namespace cadhost
