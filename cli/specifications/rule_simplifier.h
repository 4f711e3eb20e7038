#pragma once
// Rules as a person would have written them: what belongs together stands together.

#include <vector>

#include "cli/specifications/rule_search.h"

namespace kivcli {

// Puts rules together and leaves conditions out wherever all objects of `table` come out no worse, and
// nothing is written to more objects that have it already. `table` is as before the first rule, and
// afterwards as the rules leave it.
std::vector<Rule> simplified(RuleTable& table, std::vector<Rule> rules);

}  // namespace kivcli
