#pragma once
// How a person gives the value of an item: one row for each kind of items, beside the one of
// `spec/item_kinds.h`. The captions of the menus stand in the resource script, pickers that are no plain list
// of values in `ui/item_pickers.cpp`.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/value_choices.h"

namespace kiv {

struct ItemInput {
  // What is offered; null: the value is only typed.
  struct Offer {
    std::vector<std::wstring> (*choices)(const ChoiceContext& context) = nullptr;
    int namesSection = 0;  // the list section whose entries name more to choose from; 0: none
  };
  // What becomes of a typed text; null: any text stays as it is and is taken.
  struct Typing {
    std::wstring (*beginning)(std::wstring_view typed) = nullptr;
    std::optional<std::wstring> (*checked)(std::wstring_view typed) = nullptr;
  };

  int kind;
  const wchar_t* label;  // in the pickers' captions and prompts
  int conditionCommand;  // of the menu that adds such an item
  int resultCommand;     // 0: condition only
  Offer offer;
  Typing typing;
};

const ItemInput* itemInput(int kind);  // null: no kind of items
const ItemInput* itemInputOfConditionCommand(int command);
const ItemInput* itemInputOfResultCommand(int command);

// The list section whose entries name what the kind chooses from; 0: none.
int sectionOfNames(int kind);

// The list of a picker. `section` is the one under which the value will stand: that of the layer settings
// withholds by layer and by block. `usedNames` are those of sectionOfNames(kind); `listFolder` holds the text
// search lists.
std::vector<std::wstring> offeredValues(int kind, int section, const std::vector<std::wstring>& usedNames,
                                        std::wstring_view listFolder);

// What stands in the field after the person has typed `typed`.
std::wstring completedValue(int kind, std::wstring_view typed);

// The value as it will stand in the specification; nothing when the text is refused.
std::optional<std::wstring> checkedValue(int kind, std::wstring_view typed);

}  // namespace kiv
