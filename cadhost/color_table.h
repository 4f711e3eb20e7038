#pragma once
// Where the colour numbers stand in the table of the colour dialog: 240 colours, ten to a hue, in a column
// for each hue; below them the nine that have names, and the greys.

#include <optional>

namespace cadhost {

inline constexpr int kColorColumns = 24, kColorRows = 12;

struct ColorCell {
  int column = 0, row = 0;
  bool operator==(const ColorCell&) const = default;
};

ColorCell cellOfColor(int number);                      // of 1 to 255
std::optional<int> colorOfCell(const ColorCell& cell);  // nothing where no colour stands

enum class Step { kLeft, kRight, kUp, kDown, kFirst, kLast };
// The colour that a key goes to; the same at the edge. The first and the last are those of the row.
int colorAfter(int number, Step step);

}  // namespace cadhost
