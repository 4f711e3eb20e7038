#pragma once
// A setting in the one-line form in which the run's reader hands it over:
//   ,key=value,key<>value,***,{,key=value
// Conditions stand before the "{" piece, results after it. A comma inside a value is doubled.

#include <string>
#include <string_view>
#include <vector>

namespace kiv {

struct FlatItem {
  std::wstring key;
  std::wstring value;
  bool equal = true;  // false: an inverted condition
};

struct FlatSetting {
  std::vector<FlatItem> conditions;
  std::vector<FlatItem> results;
};

FlatSetting parseFlatSetting(std::wstring_view line);

}  // namespace kiv
