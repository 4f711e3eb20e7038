#pragma once
// From objects before and after a person changed them, rules that make the same changes. Plain data: texts
// are values as CVT files have them, and nothing here knows a drawing.

#include <cstddef>
#include <string>
#include <vector>

namespace kivcli {

// A property as rules see it. What a condition asks for and what a result writes may be two things: a
// dimension shows its style's text height, and has its own only when one is written.
struct RuleColumn {
  enum class Use { kBoth, kCondition, kResult };
  int kind = 0;
  std::wstring variable;
  Use use = Use::kBoth;
  bool isName = false;    // patterns match it, and few values stand out enough to be excluded
  bool isFactor = false;  // a result may be a factor of what is there
  bool isLast = false;    // most rules ask for it: it is written when nothing else is left to do

  bool canAsk() const { return use != Use::kResult; }
  bool canWrite() const { return use != Use::kCondition; }
};

// Objects with equal values, as one. The values stand in the order of the columns.
struct RuleObject {
  static constexpr int kHasNone =
      -1;                          // the property does not exist on it; what is written there passes it by
  std::vector<int> before, after;  // numbers of values
  std::size_t count = 1;
  bool isHome = true;  // rules are looked for on its account; else it only must not be harmed
};

struct RuleCondition {
  std::size_t column;
  bool inverted;
  std::wstring value;  // a pattern where the column is a name's: characters with a meaning there are escaped
};
struct RuleResult {
  std::size_t column;
  std::wstring value;
};
struct Rule {
  std::vector<RuleCondition> conditions;
  std::vector<RuleResult> results;
  std::vector<std::wstring> texts;  // of a text search list that is a condition as well; mostly none
};

struct RuleTable {
  std::vector<RuleColumn> columns;   // what conditions ask for most in front
  std::vector<std::wstring> values;  // upper-cased
  std::vector<RuleObject> objects;
  std::size_t textColumn = static_cast<std::size_t>(-1);  // for text search lists; -1: there is none
  // Conditions see the objects as they were before the first rule: the layers'.
  bool seesBefore = false;
};

// In the order in which they are to be applied. No rule writes to an object what it does not have afterwards.
// `table`'s objects are left as the rules leave them, with values that were not there before behind the
// others: what differs from `after` then, no rule explains.
std::vector<Rule> searchRules(RuleTable& table);

}  // namespace kivcli
