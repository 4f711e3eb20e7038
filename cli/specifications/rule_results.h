#pragma once
// What one result of a rule makes of the values that it meets.

#include <optional>
#include <string>
#include <vector>

#include "cli/specifications/rule_search.h"

namespace kivcli {

struct ResultToken {
  std::size_t column = 0;
  std::wstring value;
  std::wstring asks;  // a pattern that the rule must ask for in the same column; empty: none
};

// The results that make `to` of `from`; none: nothing can write it. `from` is null where the property is not
// there.
std::vector<ResultToken> resultTokens(const RuleColumn& info, std::size_t column, const std::wstring* from,
                                      const std::wstring& to);
// As a rule has it, whose conditions tell what a pattern asks for.
ResultToken tokenOf(const RuleColumn& info, const RuleResult& result,
                    const std::vector<RuleCondition>& conditions);

// Nothing: it cannot be written there.
std::optional<std::wstring> valueMade(const RuleColumn& info, const ResultToken& token,
                                      const std::wstring& value);
bool isSameValue(const RuleColumn& info, const std::wstring& a, const std::wstring& b);

// What stands in brackets is no value of a CVT file, nor is what its code page lacks.
bool isWritable(const std::wstring& value);

}  // namespace kivcli
