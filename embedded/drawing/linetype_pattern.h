#pragma once
// The pattern of a linetype.

#include <optional>
#include <string>

#include "embedded/drawing/record.h"

namespace cad {

// A text or a shape at the end of a dash, gap or dot.
struct DashSymbol {
  enum class Turn { kWithLine, kAbsolute, kUpright };

  RecordId style = kNoRecord;  // the text's style, or the record of the shape's file
  std::wstring text;           // empty: a shape
  int shape = 0;               // its number in its file
  Turn turn = Turn::kWithLine;
  double degrees = 0;   // counterclockwise
  double scale = 1;     // of a text whose style has no fixed height: the height, drawing units
  double x = 0, y = 0;  // from the end of the dash, along and across the line; drawing units
};

inline constexpr wchar_t kNoSymbolsHere[] =
    L"A drawing of this version cannot hold texts and shapes in linetypes";

struct Dash {
  double length = 0;  // drawing units: > 0 a dash, < 0 a gap, 0 a dot
  std::optional<DashSymbol> symbol{};
};

}  // namespace cad
