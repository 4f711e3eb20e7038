#include "ui/value_typing.h"

#include <array>
#include <vector>

#include "base/fold.h"
#include "base/lineweights.h"
#include "base/numbers.h"
#include "spec/value_forms.h"

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

using Checked = std::optional<std::wstring>;

// Smaller amounts are 0 once they are rounded to six decimals.
constexpr double kHalfOfSixthDecimal = 0.5e-6;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

Checked lineweightOfDigit(wchar_t digit) {
  if (digit < L'0' || digit > L'2') return std::nullopt;
  return std::wstring(1, digit) + L".00 mm";
}

// A sign, digits and one decimal point.
bool isPlainNumber(std::wstring_view text) {
  if (!text.empty() && (text[0] == L'+' || text[0] == L'-')) text.remove_prefix(1);
  int digits = 0;
  int points = 0;
  for (const wchar_t c : text) {
    if (isDigit(c)) {
      ++digits;
    } else if (c == L'.') {
      ++points;
    } else {
      return false;
    }
  }
  return digits > 0 && points <= 1;
}

}  // namespace

std::wstring lineweightBeginning(std::wstring_view typed) {
  std::vector<std::wstring_view> words;
  for (const base::Lineweight& weight : base::lineweights()) words.emplace_back(weight.text);
  return shortened(typed, words);
}

std::wstring transparencyBeginning(std::wstring_view typed) {
  if (base::startsWithFolded(typed, L"B")) {
    return shortened(typed, std::array<std::wstring_view, 2>{L"BYLAYER", L"BYBLOCK"});
  }
  return percentBeginning(typed);
}

std::wstring percentBeginning(std::wstring_view typed) {
  std::wstring text(typed);
  if (text.size() >= 3) text = text[0] == L'0' ? text.substr(1) : text.substr(0, 2);
  std::erase_if(text, [](wchar_t c) { return !isDigit(c); });
  if (!text.empty() && base::leadingInteger(text) > kGreatestTransparency) {
    return std::to_wstring(kGreatestTransparency);
  }
  return text;
}

std::wstring switchBeginning(std::wstring_view typed) {
  return shortened(typed, std::array<std::wstring_view, 2>{L"ON", L"OFF"});
}

Checked checkedNumber(std::wstring_view typed) {
  return std::wstring(base::leadingReal(typed) == 0 ? L"0" : typed);
}

Checked checkedLineweight(std::wstring_view typed) {
  if (typed.empty()) return L"Default";
  if (typed.size() == 1) return lineweightOfDigit(typed[0]);
  const bool isBeginning = (typed.size() == 4 || typed.size() == 5) && isDigit(typed[0]);
  for (const base::Lineweight& weight : base::lineweights()) {
    const std::wstring_view text = weight.text;
    if (isBeginning ? text.starts_with(typed) : base::equalFolded(text, typed)) return std::wstring(text);
  }
  return std::nullopt;
}

Checked checkedTransparency(std::wstring_view typed) {
  return std::wstring(typed.empty() ? L"ByLayer" : typed);
}

Checked checkedScale(std::wstring_view typed) {
  if (typed.empty()) return L"1";
  const std::wstring_view text = base::trim(typed);
  if (!isPlainNumber(text) || base::leadingReal(text) <= -kHalfOfSixthDecimal) return std::nullopt;
  return std::wstring(typed);
}

Checked checkedSwitch(std::wstring_view typed) {
  if (base::equalFolded(typed, L"ON")) return L"ON";
  if (base::equalFolded(typed, L"OFF")) return L"OFF";
  return std::nullopt;
}

}  // namespace kiv
