#include "ui/node_content.h"

namespace kiv {
namespace {

Item itemOf(const NodeContent& content) {
  const std::wstring value = content.fields.empty() ? std::wstring() : content.fields.front();
  return {content.kind, false, content.variable, value, Wording::kPicker};
}

Entry entryOf(const NodeContent& content) {
  Entry entry{content.fields, Wording::kPicker};
  if (!content.variable.empty()) entry.fields.insert(entry.fields.begin(), content.variable);
  return entry;
}

}  // namespace

NodeContent contentOf(const Specification& specification, const Node& node) {
  if (const Item* item = specification.item(node))
    return {item->kind, node.role, item->variable, {item->value}};
  const Entry* entry = specification.entry(node);
  if (entry == nullptr) return {};
  NodeContent content{section(node.section).entryKind, Role::kEntry, {}, entry->fields};
  if (node.section == kDimensionSettingSection) {
    content.variable = content.fields.front();
    content.fields.erase(content.fields.begin());
  }
  return content;
}

Edited putContent(Specification& specification, const Node& target, const NodeContent& content) {
  if (specification.item(target)) return specification.replaceItem(target, itemOf(content));
  if (specification.entry(target)) return specification.replaceEntry(target, entryOf(content));
  switch (content.role) {
    case Role::kCondition:
      return specification.addCondition(target.section, target.index, itemOf(content));
    case Role::kResult:
      return specification.addResult(target.section, target.index, itemOf(content));
    default:
      return specification.addEntry(target.section, entryOf(content));
  }
}

}  // namespace kiv
