#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <system_error>

#include "base/fold.h"

namespace base {
namespace {

bool isBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

// The characters that can belong to a number, without blanks and without a plus sign; the digits of a
// number are ASCII, so anything else ends it. `i` is left behind them.
std::string numberPart(std::wstring_view text, std::size_t& i) {
  while (i < text.size() && isBlank(text[i])) ++i;
  std::string part;
  if (i < text.size() && (text[i] == L'+' || text[i] == L'-')) {
    if (text[i] == L'-') part.push_back('-');
    ++i;
    if (i < text.size() && (text[i] == L'+' || text[i] == L'-')) return {};
  }
  for (; i < text.size(); ++i) {
    const wchar_t c = text[i];
    const bool digit = c >= L'0' && c <= L'9';
    if (!digit && c != L'.' && c != L'e' && c != L'E' && c != L'+' && c != L'-') break;
    part.push_back(static_cast<char>(c));
  }
  return part;
}

// Japanese files have full-width digits too, which the C library of Windows reads in integers.
std::optional<int> digit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'０' && c <= L'９') return c - L'０';
  return std::nullopt;
}

}  // namespace

int leadingInteger(std::wstring_view text) {
  size_t at = 0;
  while (at < text.size() && isBlank(text[at])) ++at;
  const bool negative = at < text.size() && text[at] == L'-';
  if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) ++at;
  long long value = 0;
  for (std::optional<int> next; at < text.size() && (next = digit(text[at])); ++at) {
    value = std::min<long long>(value * 10 + *next, INT_MAX + 1LL);
  }
  return static_cast<int>(std::clamp<long long>(negative ? -value : value, INT_MIN, INT_MAX));
}

bool isInteger(std::wstring_view text) {
  std::wstring_view rest = base::trim(text);
  if (!rest.empty() && (rest.front() == L'-' || rest.front() == L'+')) rest.remove_prefix(1);
  if (rest.empty()) return false;
  long long value = 0;
  for (const wchar_t c : rest) {
    const std::optional<int> next = digit(c);
    if (!next || value > INT_MAX) return false;
    value = value * 10 + *next;
  }
  return value == std::abs(static_cast<long long>(leadingInteger(text)));
}

double leadingReal(std::wstring_view text) {
  std::size_t behind = 0;
  const std::string part = numberPart(text, behind);
  double value = 0;
  const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
  return error == std::errc() && std::isfinite(value) ? value : 0.0;
}

bool isReal(std::wstring_view text) {
  std::size_t behind = 0;
  const std::string part = numberPart(text, behind);
  double value = 0;
  const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
  return error == std::errc() && std::isfinite(value) && end == part.data() + part.size() &&
         std::all_of(text.begin() + static_cast<std::ptrdiff_t>(behind), text.end(), isBlank);
}

std::wstring numberText(double number) {
  char digits[64];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number);
  return {std::begin(digits), end.ptr};
}

}  // namespace base
