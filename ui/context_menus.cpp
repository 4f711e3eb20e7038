#include "ui/context_menus.h"

#include <algorithm>
#include <utility>

#include "ui/item_inputs.h"
#include "ui/resource.h"
#include "ui/tree_nodes.h"

namespace kiv {
namespace {

// The resource with the menu of the node; 0: it has none.
int menuResource(const Specification& specification, const Node& node) {
  const ItemTag tag = tagOf(specification, node);
  const bool rules = isRuleSection(tag.section());
  switch (tag.level()) {
    case Level::kSection:
      return rules ? IDM_SECTION : IDM_LIST_SECTION;
    case Level::kSetting:
      return rules ? IDM_SETTING : IDM_RESULT;
    case Level::kItem:
      return tag.role() == Role::kCondition ? IDM_CONDITION : IDM_RESULT;
    default:
      return 0;
  }
}

void greyWhatCannotApply(Menu& menu, const Specification& specification, const Node& node) {
  for (MenuItem& item : menu) {
    if (item.id != 0) item.enabled = canApply(specification, node, item.id);
    greyWhatCannotApply(item.items, specification, node);
  }
}

void appendCopyItem(Menu& menu) {
  Menu reserve = loadMenu(IDM_DUMMY);
  const MenuItem* copy = findMenuItem(reserve, IDC_COPY_TO_DIMENSION_SETTINGS);
  if (copy == nullptr) return;
  menu.push_back({});
  menu.push_back(*copy);
}

}  // namespace

Menu contextMenu(const Specification& specification, const Node& node) {
  const int resource = specification.exists(node) ? menuResource(specification, node) : 0;
  if (resource == 0) return {};
  Menu bar = loadMenu(resource);
  if (bar.empty()) return {};
  Menu menu = std::move(bar.front().items);
  if (assignsVariables(specification, node)) appendCopyItem(menu);
  greyWhatCannotApply(menu, specification, node);
  return menu;
}

Menu siblingMenu(const Specification& specification, const Node& item) {
  const bool condition = tagOf(specification, item).role() == Role::kCondition;
  for (const MenuItem& each : contextMenu(specification, Node::of(item.section, item.index))) {
    if (each.items.empty()) continue;
    const int first = each.items.front().id;
    const ItemInput* kind = condition ? itemInputOfConditionCommand(first) : itemInputOfResultCommand(first);
    if (kind != nullptr) return each.items;
  }
  return {};
}

bool canApply(const Specification& specification, const Node& node, int command) {
  if (!specification.exists(node) || node.section == 0) return false;
  if (const ItemInput* kind = itemInputOfConditionCommand(command))
    return hasEffect(kind->kind, node.section, false);
  if (const ItemInput* kind = itemInputOfResultCommand(command))
    return hasEffect(kind->kind, node.section, true);
  switch (command) {
    case IDC_CLEAR_SETTINGS:
    case IDC_CLEAR_ENTRIES:
      return specification.childCount(node) > 0;
    case IDC_CLEAR_CONDITIONS:
      return specification.childCount(node, Role::kCondition) > 0;
    case IDC_CLEAR_RESULTS:
      return specification.childCount(node, Role::kResult) > 0;
    case IDC_ADD_ENTRY:
      return !isRuleSection(node.section);
    case IDC_EDIT_CONDITION:
    case IDC_EDIT_RESULT:
      return tagOf(specification, node).role() != Role::kNone;
    case IDC_COPY_TO_DIMENSION_SETTINGS:
      return assignsVariables(specification, node);
    default:
      return true;
  }
}

int deleteCommand(const Specification& specification, const Node& node) {
  const ItemTag tag = tagOf(specification, node);
  const bool rules = isRuleSection(tag.section());
  switch (tag.level()) {
    case Level::kSection:
      return rules ? IDC_CLEAR_SETTINGS : IDC_CLEAR_ENTRIES;
    case Level::kSetting:
      return rules ? IDC_DELETE_SETTING : IDC_DELETE_RESULT;
    case Level::kItem:
      return tag.role() == Role::kCondition ? IDC_DELETE_CONDITION : IDC_DELETE_RESULT;
    default:
      return 0;
  }
}

int editCommand(const Specification& specification, const Node& node) {
  switch (tagOf(specification, node).role()) {
    case Role::kCondition:
      return IDC_EDIT_CONDITION;
    case Role::kResult:
    case Role::kEntry:
      return IDC_EDIT_RESULT;
    default:
      return 0;
  }
}

int addCommand(const Specification& specification, const Node& node) {
  const ItemTag tag = tagOf(specification, node);
  if (tag.level() != Level::kSection) return 0;
  return isRuleSection(tag.section()) ? IDC_ADD_SETTING : IDC_ADD_ENTRY;
}

bool assignsVariables(const Specification& specification, const Node& setting) {
  if (setting.role != Role::kNone || setting.index < 0 || !isRuleSection(setting.section)) return false;
  const std::vector<Node> nodes = specification.children(setting);
  return std::any_of(nodes.begin(), nodes.end(), [&](const Node& node) {
    return node.role == Role::kResult && !specification.item(node)->variable.empty();
  });
}

}  // namespace kiv
