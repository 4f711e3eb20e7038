#include "cli/options/takes.h"

namespace kivcli {

std::optional<int> wholeNumber(const std::wstring& text, int least, int most) {
  constexpr std::size_t kLongest = 9;
  if (text.empty() || text.size() > kLongest) return std::nullopt;
  int number = 0;
  for (const wchar_t digit : text) {
    if (digit < L'0' || digit > L'9') return std::nullopt;
    number = number * 10 + (digit - L'0');
  }
  if (number < least || number > most) return std::nullopt;
  return number;
}

}  // namespace kivcli
