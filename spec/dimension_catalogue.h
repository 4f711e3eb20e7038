#pragma once
// The dimension variables that a specification can name, in the order in which they are offered. Editor,
// reader and conversion run go by these value types, not by the host's own notion of the variable.

#include <span>
#include <string_view>

namespace kiv {

struct DimensionVariable {
  enum class Type { kInteger = 0, kReal = 1, kText = 2 };
  Type type;
  const wchar_t* name;         // upper case
  const wchar_t* description;  // one Japanese sentence for the editor's list
};

// 66 rows, "DIMADEC" to "DIMZIN".
std::span<const DimensionVariable> dimensionCatalogue();

// The row with this name, ignoring case; -1: unknown.
int findDimensionVariable(std::wstring_view name);

// Variables whose value is an arrow block: names beginning with "DIMBLK", and "DIMLDRBLK"; ignoring case.
bool isArrowVariable(std::wstring_view name);

// Variables whose value is the name of a record of the drawing: arrow blocks, and the text style.
bool namesRecord(std::wstring_view name);

// Variables whose value is a text that dimensions show, and not a name or a number; ignoring case.
bool isDrawnTextVariable(std::wstring_view name);

// The type as the editor's list shows it: 整数, 実数 or 文字.
const wchar_t* typeText(DimensionVariable::Type type);

}  // namespace kiv
