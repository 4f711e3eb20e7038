#pragma once
// What the rows of options do with their values.

#include <optional>
#include <string>

#include "base/result.h"
#include "cli/arguments.h"
#include "cli/language/language.h"

namespace kivcli {

template <auto Field>
base::Status takeText(Arguments& arguments, const std::wstring& value) {
  arguments.*Field = value;
  return {};
}

template <auto Field>
base::Status takeSwitch(Arguments& arguments, const std::wstring&) {
  arguments.*Field = true;
  return {};
}

template <auto Field>
base::Status takeInList(Arguments& arguments, const std::wstring& value) {
  (arguments.*Field).push_back(value);
  return {};
}

// Digits alone; nothing for a number out of the limits.
std::optional<int> wholeNumber(const std::wstring& text, int least, int most);

inline base::Status takeBlockScope(Arguments& arguments, const std::wstring& value) {
  const std::optional<int> scope = value.size() == 1 ? wholeNumber(value, 0, 2) : std::nullopt;
  if (!scope) {
    return base::Failure{L"", tr(L"the scope is 0 (block references), 1 (their definitions) or 2 (both)")};
  }
  arguments.blockScope = *scope;
  return {};
}

template <auto Field, int kLeast, int kMost>
base::Status takeNumber(Arguments& arguments, const std::wstring& value) {
  const std::optional<int> number = wholeNumber(value, kLeast, kMost);
  if (!number) {
    return base::Failure{L"", tr(L"please give a whole number from %1 to %2",
                                 {std::to_wstring(kLeast), std::to_wstring(kMost)})};
  }
  arguments.*Field = *number;
  return {};
}

}  // namespace kivcli
