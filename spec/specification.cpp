#include "spec/specification.h"

#include <algorithm>
#include <utility>

#include "spec/dimension_catalogue.h"

namespace kiv {
namespace {

template <class T>
bool holds(const std::vector<T>& list, int index) {
  return index >= 0 && static_cast<size_t>(index) < list.size();
}

template <class T>
void eraseAt(std::vector<T>& list, int index) {
  list.erase(list.begin() + index);
}

int sizeOf(const auto& list) { return static_cast<int>(list.size()); }

bool isItemRole(Role role) { return role == Role::kCondition || role == Role::kResult; }

// Brings the variable's name into the catalogue's spelling.
bool normalise(Item& item, Role role) {
  const ItemKind* kind = itemKind(item.kind);
  if (!kind || (role == Role::kResult && kind->isConditionOnly())) return false;
  if (role == Role::kResult) item.inverted = false;
  if (item.kind != kVariableKind) {
    item.variable.clear();
    return true;
  }
  if (item.variable.empty()) return true;  // the kind's own key stands in the file
  const int variable = findDimensionVariable(item.variable);
  if (variable < 0) return false;
  item.variable = dimensionCatalogueRow(variable).name;
  return true;
}

Edited refused(Refusal refusal, const Node& node) { return {refusal, node}; }

}  // namespace

std::wstring Item::key() const {
  if (kind == kVariableKind && !variable.empty()) return variable;
  const ItemKind* row = itemKind(kind);
  return row ? row->key : std::wstring();
}

bool hasFieldCount(int section, size_t count) {
  switch (section) {
    case kDimensionSettingSection:
    case kLinetypeSection:
      return count == 2;
    case kLayerCreationSection:
      return count == 3 || count == 9;
    case kFontSection:
      return count == 2 || count == 3;
    case kArrowSection:
      return count == 1;
    default:
      return false;
  }
}

Setting* Specification::settingAt(int section, int index) {
  return const_cast<Setting*>(std::as_const(*this).settingAt(section, index));
}

const Setting* Specification::settingAt(int section, int index) const {
  if (!isRuleSection(section) || !holds(settings(section), index)) return nullptr;
  return &settings(section)[static_cast<size_t>(index)];
}

std::vector<Item>* Specification::itemsOf(const Node& node) {
  Setting* setting = settingAt(node.section, node.index);
  if (!setting || !isItemRole(node.role)) return nullptr;
  return node.role == Role::kCondition ? &setting->conditions : &setting->results;
}

Edited Specification::addSetting(int section) {
  if (!isRuleSection(section)) return refused(Refusal::kWrongSection, Node::ofSection(section));
  std::vector<Setting>& settings = contentOf(section).settings;
  settings.push_back({L"設定" + std::to_wstring(settings.size() + 1), {}, {}});
  return {Refusal::kNone, Node::of(section, sizeOf(settings) - 1)};
}

Edited Specification::addItem(int section, int setting, Role role, Item item) {
  std::vector<Item>* items = itemsOf(Node::ofItem(section, setting, role, 0));
  if (!items) return refused(Refusal::kNoSuchNode, Node::of(section, setting));
  if (!normalise(item, role)) return refused(Refusal::kWrongKind, Node::of(section, setting));
  items->push_back(std::move(item));
  return {Refusal::kNone, Node::ofItem(section, setting, role, sizeOf(*items) - 1)};
}

Edited Specification::addCondition(int section, int setting, Item item) {
  return addItem(section, setting, Role::kCondition, std::move(item));
}

Edited Specification::addResult(int section, int setting, Item item) {
  return addItem(section, setting, Role::kResult, std::move(item));
}

Edited Specification::addEntry(int section, Entry entry) {
  if (!isSection(section) || isRuleSection(section)) {
    return refused(Refusal::kWrongSection, Node::ofSection(section));
  }
  if (!hasFieldCount(section, entry.fields.size()))
    return refused(Refusal::kWrongFields, Node::ofSection(section));
  std::vector<Entry>& entries = contentOf(section).entries;
  entries.push_back(std::move(entry));
  return {Refusal::kNone, Node::of(section, sizeOf(entries) - 1)};
}

Edited Specification::replaceItem(const Node& node, Item item) {
  std::vector<Item>* items = itemsOf(node);
  if (!items || !holds(*items, node.item)) return refused(Refusal::kNoSuchNode, node);
  Item& old = (*items)[static_cast<size_t>(node.item)];
  item.inverted = old.inverted;
  if (!normalise(item, node.role)) return refused(Refusal::kWrongKind, node);
  old = std::move(item);
  return {Refusal::kNone, node};
}

Edited Specification::replaceEntry(const Node& node, Entry entry) {
  if (!this->entry(node)) return refused(Refusal::kNoSuchNode, node);
  if (!hasFieldCount(node.section, entry.fields.size())) return refused(Refusal::kWrongFields, node);
  contentOf(node.section).entries[static_cast<size_t>(node.index)] = std::move(entry);
  return {Refusal::kNone, node};
}

Edited Specification::invert(const Node& node) {
  if (node.role != Role::kCondition) return refused(Refusal::kNotACondition, node);
  std::vector<Item>* items = itemsOf(node);
  if (!items || !holds(*items, node.item)) return refused(Refusal::kNoSuchNode, node);
  Item& item = (*items)[static_cast<size_t>(node.item)];
  item.inverted = !item.inverted;
  return {Refusal::kNone, node};
}

Edited Specification::remove(const Node& node) {
  if (!exists(node) || node.index < 0) return refused(Refusal::kNoSuchNode, node);
  Content& content = contentOf(node.section);
  if (std::vector<Item>* items = itemsOf(node)) {
    eraseAt(*items, node.item);
  } else if (isRuleSection(node.section)) {
    eraseAt(content.settings, node.index);
  } else {
    eraseAt(content.entries, node.index);
  }
  return {Refusal::kNone, node};
}

Edited Specification::clearSection(int section) {
  if (!isSection(section)) return refused(Refusal::kNoSuchNode, Node::ofSection(section));
  contentOf(section) = {};
  return {Refusal::kNone, Node::ofSection(section)};
}

Edited Specification::clearItems(int section, int setting, Role role) {
  std::vector<Item>* items = itemsOf(Node::ofItem(section, setting, role, 0));
  if (!items) return refused(Refusal::kNoSuchNode, Node::of(section, setting));
  items->clear();
  return {Refusal::kNone, Node::of(section, setting)};
}

Edited Specification::moveUp(const Node& node) { return move(node, -1); }

Edited Specification::moveDown(const Node& node) { return move(node, 1); }

Edited Specification::move(const Node& node, int by) {
  if (!exists(node)) return refused(Refusal::kNoSuchNode, node);
  if (node.index < 0 || !isRuleSection(node.section)) return refused(Refusal::kNotMovable, node);
  const auto swapIn = [by](auto& list, int index) {
    if (!holds(list, index + by)) return false;
    std::swap(list[static_cast<size_t>(index)], list[static_cast<size_t>(index + by)]);
    return true;
  };
  Node moved = node;
  if (std::vector<Item>* items = itemsOf(node)) {
    moved.item += by;
    if (swapIn(*items, node.item)) return {Refusal::kNone, moved};
    // The tree shows conditions before results, so the neighbour at this edge may be of the other role.
    const Setting& setting = *settingAt(node.section, node.index);
    const bool down = by > 0;
    const bool edge = (node.role == Role::kCondition) == down;
    const bool others = down ? !setting.results.empty() : !setting.conditions.empty();
    return refused(edge && others ? Refusal::kOtherRole : Refusal::kNoNeighbour, node);
  }
  moved.index += by;
  if (!swapIn(contentOf(node.section).settings, node.index)) return refused(Refusal::kNoNeighbour, node);
  return {Refusal::kNone, moved};
}

bool Specification::exists(const Node& node) const {
  if (node.section == 0) return node == Node{};
  if (!isSection(node.section)) return false;
  if (node.index < 0) return node.role == Role::kNone;
  if (node.role != Role::kNone) return item(node) != nullptr;
  return isRuleSection(node.section) ? settingAt(node.section, node.index) != nullptr
                                     : holds(entries(node.section), node.index);
}

const Item* Specification::item(const Node& node) const {
  const std::vector<Item>* items = const_cast<Specification*>(this)->itemsOf(node);
  return items && holds(*items, node.item) ? &(*items)[static_cast<size_t>(node.item)] : nullptr;
}

const Entry* Specification::entry(const Node& node) const {
  if (!isSection(node.section) || isRuleSection(node.section) || node.role != Role::kNone) return nullptr;
  return holds(entries(node.section), node.index) ? &entries(node.section)[static_cast<size_t>(node.index)]
                                                  : nullptr;
}

int Specification::childCount(const Node& node) const { return sizeOf(children(node)); }

int Specification::childCount(const Node& node, Role role) const {
  const std::vector<Node> all = children(node);
  return static_cast<int>(
      std::count_if(all.begin(), all.end(), [&](const Node& child) { return child.role == role; }));
}

std::vector<Node> Specification::children(const Node& node) const {
  std::vector<Node> result;
  if (!exists(node)) return result;
  if (node.section == 0) {
    for (int number = 1; number <= kSectionCount; ++number) result.push_back(Node::ofSection(number));
  } else if (node.index < 0) {
    const int count =
        isRuleSection(node.section) ? sizeOf(settings(node.section)) : sizeOf(entries(node.section));
    for (int index = 0; index < count; ++index) result.push_back(Node::of(node.section, index));
  } else if (const Setting* setting =
                 node.role == Role::kNone ? settingAt(node.section, node.index) : nullptr) {
    for (int i = 0; i < sizeOf(setting->conditions); ++i) {
      result.push_back(Node::ofItem(node.section, node.index, Role::kCondition, i));
    }
    for (int i = 0; i < sizeOf(setting->results); ++i) {
      result.push_back(Node::ofItem(node.section, node.index, Role::kResult, i));
    }
  }
  return result;
}

int Specification::settingWithoutLayer() const {
  const auto namesLayer = [](const std::vector<Item>& items) {
    return std::any_of(items.begin(), items.end(), [](const Item& item) { return item.kind == kLayerKind; });
  };
  const std::vector<Setting>& all = settings(kLayerSettingSection);
  for (size_t index = 0; index < all.size(); ++index) {
    if (!namesLayer(all[index].conditions) && !namesLayer(all[index].results)) return static_cast<int>(index);
  }
  return -1;
}

}  // namespace kiv
