#pragma once
// The arrowheads that the host knows by name.

#include <span>
#include <string>
#include <string_view>

namespace kiv {

struct ArrowName {
  const wchar_t* displayName;
  const wchar_t* blockName;
};

// 21 rows: the 20 built-in arrowheads and, last, the user-specified one, whose block name is a prompt.
std::span<const ArrowName> arrowCatalogue();

// One of the 20 built-in names, ignoring case; "." is the default filled arrow.
bool isBuiltInArrow(std::wstring_view blockName);

// The catalogue's spelling of a built-in name; null for any other name.
const wchar_t* builtInArrow(std::wstring_view blockName);

// "display name (block name)", the form in which an arrow variable's value is kept.
std::wstring arrowText(const ArrowName& arrow);

// What an arrow variable's value means: a row of the catalogue, and with the last row the user's block, which
// is empty where the value has the prompt.
struct ArrowChoice {
  int row = 0;
  std::wstring block;
};
// By the block's name, or by a text without one that is a name itself.
ArrowChoice arrowChoice(std::wstring_view value);

}  // namespace kiv
