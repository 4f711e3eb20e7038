#pragma once
// The words of a resource script.

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace kiv::headless {

struct ResourceToken {
  enum class Kind { kWord, kNumber, kText, kMark, kEnd };
  Kind kind = Kind::kEnd;
  std::wstring text;  // of a text its content; of a mark its one character
  int number = 0;     // of a number; 0x... may fill all 32 bits
  int line = 0;       // from 1
};

// A "#define NAME value"; other lines that begin with # are left out, as comments are.
struct ResourceDefinition {
  std::wstring name;
  std::wstring value;
  int line = 0;
};

struct ResourceTokens {
  std::vector<ResourceToken> tokens;  // the last one is of the kind kEnd
  std::vector<ResourceDefinition> definitions;
};

// A text's \n \t \" \\ and doubled quotes are its characters already. Failures: a text or a comment that does
// not end, an unknown escape, a number out of range, a character that begins no word; the place is the line.
base::Result<ResourceTokens> readResourceTokens(std::wstring_view script);

// "line 12"
std::wstring resourceLine(int line);

// Decimal with an optional sign, or 0x and up to eight digits; false for anything else.
bool readResourceNumber(std::wstring_view text, int& number);

}  // namespace kiv::headless
