#pragma once
// What stands in a node of the editing tree, as pickers are given it and give it: an item of a rule section
// or an entry of a list section, in one form.

#include <string>
#include <vector>

#include "spec/specification.h"

namespace kiv {

struct NodeContent {
  int kind = 0;  // of the item kinds, 51 to 55 of an entry
  Role role = Role::kNone;
  std::wstring variable;  // the name of a dimension variable, of an item and of an entry; else empty
  // An item's value, or what an entry has (behind its variable); none: still new.
  std::vector<std::wstring> fields;
};

// Empty, of Role::kNone, for a node that is neither item nor entry.
NodeContent contentOf(const Specification& specification, const Node& node);

// In the wording of the pickers. `target` is the item or entry that gets the content, or the setting or
// section that gains it. Refused like the specification's own operations; kWrongFields also for an entry that
// no line of a file can hold.
Edited putContent(Specification& specification, const Node& target, const NodeContent& content);

}  // namespace kiv
