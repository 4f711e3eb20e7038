#pragma once
// Value texts of a conversion specification as the numbers that the host works with.

#include <optional>
#include <string>
#include <string_view>

#include "siblings/common/color_name.h"

namespace kiv {

// Colours. A colour number is 0 by block, 1 to 255 an index, 256 by layer; other numbers occur in files and
// are carried along.

// Of a text as a person sees or types it. A text with a ":" or a blank is cut there and the larger number of
// the two halves counts.
int colorNumber(std::wstring_view text);

// As a file has it: "BYBLOCK", "BYLAYER" or the number.
std::wstring colorFileText(int number);
int colorNumberOfFileText(std::wstring_view text);

// A layer has nothing to take a colour from: an index only.
inline bool isLayerColor(int number) { return number > kColorByBlock && number < kColorByLayer; }

// Hundredths of a millimetre, or -1 ByLayer, -2 ByBlock, -3 Default; any number as it is written.
int lineWeightNumber(std::wstring_view text);
// What a result writes: -1, -2 and -3 only for their words, -3 too for a number that is no step.
int lineWeightResult(std::wstring_view text);

struct Transparency {
  enum class Method { kByLayer, kByBlock, kPercent } method = Method::kByLayer;
  int percent = 0;  // 0 opaque .. 100 clear; meaningful for kPercent only
  bool operator==(const Transparency&) const = default;
};
Transparency transparencyValue(std::wstring_view text);

// "ON" and "OFF", ignoring case; nothing for any other text.
std::optional<bool> onOffValue(std::wstring_view text);

// A text height: a number, or a factor when the text ends in "x".
struct HeightValue {
  double number = 0;
  bool isFactor = false;
  double applyTo(double current) const { return isFactor ? number * current : number; }
};
HeightValue heightValue(std::wstring_view text);

// The block name in the display form "label (NAME)": between the last "(" and the last ")" after it.
std::optional<std::wstring_view> blockNameOfDisplayForm(std::wstring_view text);

}  // namespace kiv
