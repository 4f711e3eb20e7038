#include "ui/value_completion.h"

#include <array>
#include <vector>

#include "base/fold.h"
#include "base/lineweights.h"
#include "spec/color_text.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

constexpr int kGreatestTransparency = 90;

// The longest beginning of the text with which one of the words begins.
template <class Words>
std::wstring shortened(std::wstring_view text, const Words& words) {
  while (!text.empty()) {
    for (const std::wstring_view word : words) {
      if (base::startsWithFolded(word, text)) return std::wstring(text);
    }
    text.remove_suffix(1);
  }
  return {};
}

std::wstring lineweightBeginning(std::wstring_view text) {
  std::vector<std::wstring_view> words;
  for (const base::Lineweight& weight : base::lineweights()) words.emplace_back(weight.text);
  return shortened(text, words);
}

std::wstring transparencyBeginning(std::wstring_view typed) {
  if (base::startsWithFolded(typed, L"B")) {
    return shortened(typed, std::array<std::wstring_view, 2>{L"BYLAYER", L"BYBLOCK"});
  }
  std::wstring text(typed);
  if (text.size() >= 3) text = text[0] == L'0' ? text.substr(1) : text.substr(0, 2);
  std::erase_if(text, [](wchar_t c) { return c < L'0' || c > L'9'; });
  if (!text.empty() && leadingInteger(text) > kGreatestTransparency) {
    return std::to_wstring(kGreatestTransparency);
  }
  return text;
}

}  // namespace

std::wstring completedValue(int kind, std::wstring_view typed) {
  switch (kind) {
    case kLineweightKind:
      return lineweightBeginning(typed);
    case kTransparencyKind:
      return transparencyBeginning(typed);
    case kVisibilityKind:
    case kLockKind:
    case kFreezeKind:
    case kPlotKind:
      return shortened(typed, std::array<std::wstring_view, 2>{L"ON", L"OFF"});
    default:
      return std::wstring(typed);
  }
}

}  // namespace kiv
