#pragma once
// What stands in a node of the editing tree, as pickers are given it and give it: an item of a rule section
// or an entry of a list section, in one form.

#include <string>
#include <vector>

#include "spec/specification.h"

namespace kiv {

// For the person, where putContent() gives kWrongFields.
inline constexpr const wchar_t* kCannotBeKept =
    L"指定した内容は変換指定ﾌｧｲﾙに保存できません.\n空の項目、一覧の「,」、寸法設定の「=」、条件の「<>"
    L"」、長すぎる文字列は使用できません.";

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
// section that gains it. Refused like the specification's own operations; kWrongFields also for what
// no line of a file can hold.
Edited putContent(Specification& specification, const Node& target, const NodeContent& content);

}  // namespace kiv
