#include "ui/node_content.h"

#include <algorithm>

#include "base/fold.h"
#include "base/shape_fonts.h"
#include "spec/cvt_lines.h"

namespace kiv {
namespace {

Item itemOf(const NodeContent& content) {
  const std::wstring value = content.fields.empty() ? std::wstring() : content.fields.front();
  return {content.kind, false, content.variable, value, Wording::kPicker};
}

Entry entryOf(const NodeContent& content) {
  Entry entry{content.fields, Wording::kPicker};
  // A big font goes with a shape font only.
  const bool isFont = content.kind == section(kFontSection).entryKind && entry.fields.size() > 2;
  if (isFont && (entry.fields[2].empty() || !base::isShapeFont(entry.fields[1]))) entry.fields.resize(2);
  if (!content.variable.empty()) entry.fields.insert(entry.fields.begin(), content.variable);
  return entry;
}

// A line of the file has the key in brackets and a sign, behind the indent of a result. An inverted condition
// is known by its "<>", wherever it stands.
bool canBeKept(const Item& item, Role role) {
  constexpr std::size_t kAround = 30;
  const std::wstring_view value = base::trim(item.value);
  if (value.empty() || value.find_first_of(L"\r\n") != value.npos) return false;
  if (role == Role::kCondition && value.find(L"<>") != value.npos) return false;
  return item.key().size() + value.size() + kAround <= kCvtLineLimit;
}

// An entry is a line of the file, its fields between commas.
bool canBeKept(const Entry& entry, int kind) {
  // A variable and its value may also be joined by "=", the last of the line.
  const bool isVariable = kind == section(kDimensionSettingSection).entryKind;
  const std::size_t needed = std::min<std::size_t>(entry.fields.size(), 2);
  std::size_t length = 0;
  for (std::size_t i = 0; i < entry.fields.size(); ++i) {
    const std::wstring& field = entry.fields[i];
    if (base::trim(field).empty() && i < needed) return false;
    if (field.find_first_of(isVariable ? L",=\r\n" : L",\r\n") != std::wstring::npos) return false;
    length += field.size() + 2;
  }
  return length <= kCvtLineLimit;
}

Edited putEntry(Specification& specification, const Node& target, const NodeContent& content) {
  const Entry entry = entryOf(content);
  if (!canBeKept(entry, content.kind)) return {Refusal::kWrongFields, target};
  return specification.entry(target) ? specification.replaceEntry(target, entry)
                                     : specification.addEntry(target.section, entry);
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
  if (content.role == Role::kEntry) return putEntry(specification, target, content);
  const Item item = itemOf(content);
  if (!canBeKept(item, content.role)) return {Refusal::kWrongFields, target};
  if (specification.item(target)) return specification.replaceItem(target, item);
  return content.role == Role::kCondition ? specification.addCondition(target.section, target.index, item)
                                          : specification.addResult(target.section, target.index, item);
}

}  // namespace kiv
