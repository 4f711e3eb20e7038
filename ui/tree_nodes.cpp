#include "ui/tree_nodes.h"

#include <utility>

#include "spec/cvt_lines.h"

namespace kiv {
namespace {

std::wstring bracketed(const std::wstring& text) { return L"<" + text + L">"; }

std::wstring field(const Entry& entry, size_t index) {
  return index < entry.fields.size() ? entry.fields[index] : std::wstring();
}

std::wstring layerText(const Entry& entry) {
  const bool picker = entry.wording == Wording::kPicker;
  static constexpr const wchar_t* kLabels[] = {L"表示 ", L"ロック ", L"フリーズ ",
                                               L"印刷 ", L"線幅値 ", L"透過性 "};
  std::wstring text = bracketed(field(entry, 0)) + (picker ? L" を <" : L" 画層を <") + field(entry, 1) +
                      L", " + field(entry, 2);
  for (size_t index = 3; index < entry.fields.size(); ++index) {
    text += L',';
    if (picker && index < 9) text += kLabels[index - 3];
    text += entry.fields[index];
  }
  return text + L"> で作成";
}

std::wstring linetypeText(const Entry& entry) {
  if (entry.wording == Wording::kPicker) {
    return bracketed(field(entry, 0)) + L" をﾛｰﾄﾞ（" + field(entry, 1) + L"）";
  }
  return bracketed(field(entry, 0)) + L" を " + bracketed(field(entry, 1)) + L" からﾛｰﾄﾞ";
}

std::wstring fontText(const Entry& entry) {
  const bool big = entry.fields.size() > 2;
  if (entry.wording == Wording::kPicker) {
    return bracketed(field(entry, 0)) + L" を作成 （" + field(entry, 1) +
           (big ? L"," + field(entry, 2) : L"") + L"）";
  }
  const std::wstring fonts = field(entry, 1) + (big ? L", " + field(entry, 2) : L"");
  return bracketed(field(entry, 0)) + L" を " + bracketed(fonts) + L" で設定";
}

std::wstring variableText(const Entry& entry) {
  return bracketed(field(entry, 0)) + L" を " + bracketed(field(entry, 1)) +
         (entry.wording == Wording::kPicker ? L" に変更する" : L" に設定");
}

std::wstring arrowEntryText(const Entry& entry) {
  return bracketed(field(entry, 0)) + (entry.wording == Wording::kPicker ? L"" : L" をﾛｰﾄﾞ");
}

}  // namespace

ItemTag tagOf(const Specification& specification, const Node& node) {
  if (node.section == 0 || !specification.exists(node)) return {};
  if (node.index < 0) return ItemTag::pack(node.section, Level::kSection);
  if (const Item* item = specification.item(node)) {
    const Sense sense = item->inverted ? Sense::kInverted : Sense::kEqual;
    return ItemTag::pack(node.section, Level::kItem, node.role, sense, item->kind);
  }
  if (isRuleSection(node.section)) return ItemTag::pack(node.section, Level::kSetting);
  return ItemTag::pack(node.section, Level::kSetting, Role::kEntry, Sense::kEqual,
                       section(node.section).entryKind);
}

std::wstring itemText(const Item& item, Role role) {
  const bool picker = item.wording == Wording::kPicker;
  const bool variable = item.kind == kVariableKind && !item.variable.empty();
  const std::wstring key = picker || variable ? bracketed(item.key()) : item.key();
  if (role == Role::kResult)
    return key + L" を " + bracketed(item.value) + (picker ? L" に変更する" : L" に変更");
  return key + L" が " + bracketed(item.value) + (item.inverted ? L" 以外のとき" : L" のとき");
}

std::wstring entryText(const Entry& entry, int section) {
  switch (section) {
    case kDimensionSettingSection:
      return variableText(entry);
    case kLayerCreationSection:
      return layerText(entry);
    case kLinetypeSection:
      return linetypeText(entry);
    case kFontSection:
      return fontText(entry);
    case kArrowSection:
      return arrowEntryText(entry);
    default:
      return {};
  }
}

std::wstring nodeText(const Specification& specification, const Node& node) {
  if (!specification.exists(node)) return {};
  if (node.section == 0) return kRootText;
  if (node.index < 0) return section(node.section).name;
  if (const Item* item = specification.item(node)) return itemText(*item, node.role);
  if (const Entry* entry = specification.entry(node)) return entryText(*entry, node.section);
  return specification.settings(node.section)[static_cast<size_t>(node.index)].name;
}

int nodeImage(const Node& node) {
  if (node.index < 0) return node.section;
  if (node.role == Role::kCondition) return 12;
  if (node.role == Role::kResult) return 13;
  return isRuleSection(node.section) ? 11 : 14;
}

}  // namespace kiv
