#include "spec/value_forms.h"

#include <algorithm>
#include <string>

#include "base/fold.h"
#include "base/lineweights.h"
#include "base/numbers.h"

namespace kiv {
namespace {

constexpr int kDefault = -3;

std::optional<int> lineWeightOfWord(std::wstring_view text) {
  for (const base::Lineweight& weight : base::lineweights()) {
    if (weight.hundredths < 0 && base::equalFolded(text, weight.text)) return weight.hundredths;
  }
  return std::nullopt;
}

}  // namespace

int colorNumber(std::wstring_view given) {
  const std::wstring_view text = base::trim(given);
  const size_t colon = text.find(L':');
  const size_t blank = text.find(L' ');
  if (colon == text.npos && blank == text.npos) return base::leadingInteger(text);
  const bool cutAtColon = colon != text.npos && (blank == text.npos || colon > blank);
  const size_t cut = cutAtColon ? colon : blank;
  return std::max(base::leadingInteger(text.substr(0, cut)), base::leadingInteger(text.substr(cut + 1)));
}

std::wstring colorFileText(int number) {
  if (number == kColorByBlock) return L"BYBLOCK";
  return number == kColorByLayer ? L"BYLAYER" : std::to_wstring(number);
}

int colorNumberOfFileText(std::wstring_view given) {
  const std::wstring text = base::upper(given);
  if (text.find(L"BYLAYER") != text.npos) return kColorByLayer;
  if (text.find(L"BYBLOCK") != text.npos) return kColorByBlock;
  return base::leadingInteger(text);
}

int lineWeightNumber(std::wstring_view text) {
  if (const auto word = lineWeightOfWord(text)) return *word;
  std::wstring digits(text);
  // The reader upper-cases what it reads, so the unit can come as "MM" too.
  std::erase_if(digits, [](wchar_t c) { return c == L'm' || c == L'M' || c == L'.'; });
  return base::leadingInteger(digits);
}

int lineWeightResult(std::wstring_view text) {
  if (const auto word = lineWeightOfWord(text)) return *word;
  const int number = lineWeightNumber(text);
  return number >= 0 && base::isLineweight(number) ? number : kDefault;
}

Transparency transparencyValue(std::wstring_view text) {
  if (base::equalFolded(text, L"ByLayer")) return {Transparency::Method::kByLayer, 0};
  if (base::equalFolded(text, L"ByBlock")) return {Transparency::Method::kByBlock, 0};
  return {Transparency::Method::kPercent, base::leadingInteger(text)};
}

std::optional<bool> onOffValue(std::wstring_view text) {
  if (base::equalFolded(text, L"ON")) return true;
  if (base::equalFolded(text, L"OFF")) return false;
  return std::nullopt;
}

HeightValue heightValue(std::wstring_view text) {
  const bool isFactor = !text.empty() && (text.back() == L'x' || text.back() == L'X');
  return {base::leadingReal(text), isFactor};
}

std::optional<std::wstring_view> blockNameOfDisplayForm(std::wstring_view text) {
  const std::size_t open = text.rfind(L'(');
  if (open == std::wstring_view::npos) return std::nullopt;
  const std::size_t close = text.rfind(L')');
  if (close == std::wstring_view::npos || close < open) return std::nullopt;
  return text.substr(open + 1, close - open - 1);
}

}  // namespace kiv
