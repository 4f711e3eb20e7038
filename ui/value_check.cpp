#include "ui/value_check.h"

#include "base/fold.h"
#include "base/lineweights.h"
#include "spec/item_kinds.h"
#include "spec/leading_number.h"

namespace kiv {
namespace {

using Checked = std::optional<std::wstring>;

// Smaller amounts are 0 once they are rounded to six decimals.
constexpr double kHalfOfSixthDecimal = 0.5e-6;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

std::wstring checkedNumber(std::wstring_view typed) {
  return leadingReal(typed) == 0 ? L"0" : std::wstring(typed);
}

Checked lineweightOfDigit(wchar_t digit) {
  if (digit < L'0' || digit > L'2') return std::nullopt;
  return std::wstring(1, digit) + L".00 mm";
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

Checked checkedScale(std::wstring_view typed) {
  if (typed.empty()) return L"1";
  const std::wstring_view text = base::trim(typed);
  if (!isPlainNumber(text) || leadingReal(text) <= -kHalfOfSixthDecimal) return std::nullopt;
  return std::wstring(typed);
}

Checked checkedSwitch(std::wstring_view typed) {
  if (base::equalFolded(typed, L"ON")) return L"ON";
  if (base::equalFolded(typed, L"OFF")) return L"OFF";
  return std::nullopt;
}

}  // namespace

std::optional<std::wstring> checkedValue(int kind, std::wstring_view typed) {
  switch (kind) {
    case kColorKind:
    case kTextHeightKind:
    case kTextAngleKind:
    case kWidthFactorKind:
      return checkedNumber(typed);
    case kLineweightKind:
      return checkedLineweight(typed);
    case kTransparencyKind:
      return typed.empty() ? std::wstring(L"ByLayer") : std::wstring(typed);
    case kLinetypeScaleKind:
      return checkedScale(typed);
    case kVisibilityKind:
    case kLockKind:
    case kFreezeKind:
    case kPlotKind:
      return checkedSwitch(typed);
    default:
      return std::wstring(typed);
  }
}

}  // namespace kiv
