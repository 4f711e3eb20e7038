#pragma once
// The texts and pictures of the editing tree's nodes.

#include <string>
#include <string_view>
#include <vector>

#include "spec/specification.h"

namespace kiv {

inline constexpr const wchar_t* kRootText = L"図面";

std::wstring itemText(const Item& item, Role role);
std::wstring entryText(const Entry& entry, int section);

// Empty for a node that does not exist.
std::wstring nodeText(const Specification& specification, const Node& node);

// 0 root, 1 to 10 sections, 11 setting, 12 condition, 13 result, 14 list entry.
int nodeImage(const Node& node);

// What stands between "<" and ">" and between "（" and "）", in the order of the text, cut at commas and
// trimmed.
std::vector<std::wstring> valuesOfText(std::wstring_view text);

}  // namespace kiv
