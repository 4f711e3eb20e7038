#pragma once
// A setting taken apart: into the items that its line holds, and into what they mean for one pass over the
// drawing's entities.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/dimension_variables.h"
#include "spec/item_kinds.h"
#include "spec/value_forms.h"

namespace kiv {

// A setting in the one-line form in which the run's reader hands it over:
//   ,key=value,key<>value,***,{,key=value
// Conditions stand before the "{" piece, results after it. A comma inside a value is doubled.
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

enum class Pass { kText = kTextSection, kDimension, kHatch, kOther };
static_assert(static_cast<int>(Pass::kOther) == kOtherSection);

inline constexpr int sectionOf(Pass pass) { return static_cast<int>(pass); }

template <class T>
struct ConditionValue {
  T value;
  bool equal;  // false: the property must differ
};
template <class T>
using ConditionValues = std::vector<ConditionValue<T>>;

struct FilterItem {
  short group;
  std::wstring text;  // a pattern; unused for colours
  int number;         // a colour; unused otherwise
  bool equal;
};

struct VariableCondition {
  int variable;                         // row of the dimension variable catalogue
  std::optional<DimensionValue> value;  // nothing: equal to no value
  bool equal;
};

struct CompiledConditions {
  std::vector<FilterItem> filter;  // what a selection can test, in the setting's order
  ConditionValues<std::wstring> layers, linetypes, textStyles;  // upper-cased patterns
  ConditionValues<int> colors;
  ConditionValues<double> heights, angles, widthFactors, linetypeScales;  // angles in degrees
  ConditionValues<int> lineWeights;
  ConditionValues<Transparency> transparencies;
  ConditionValues<std::vector<std::wstring>> textLists;  // the patterns of each list
  std::vector<VariableCondition> variables;
  bool needsEntity = false;  // something is asked that layer, linetype and colour do not tell
  bool canBeTested = true;   // false: a text search list is missing, and nothing meets the setting
};

struct ResultItem {
  int kind;      // an item kind that acts on entities
  int variable;  // row of the dimension variable catalogue, for that kind
  std::wstring key, value;
};

struct CompiledSetting {
  CompiledConditions conditions;
  std::vector<ResultItem> results;
};

// Gives the texts of a text search list by its name; nothing: the list cannot be loaded.
using TextListLoader = std::function<std::optional<std::vector<std::wstring>>(const std::wstring& name)>;

// Items of unknown keys, and of kinds that do not act on entities, are left out.
CompiledSetting compileSetting(std::wstring_view flatSetting, Pass pass, const TextListLoader& loadTextList);

}  // namespace kiv
