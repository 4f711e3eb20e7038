#include "spec/leading_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>

namespace kiv {
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

}  // namespace

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

}  // namespace kiv
