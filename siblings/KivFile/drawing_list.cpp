#include "siblings/KivFile/drawing_list.h"

#include <algorithm>
#include <compare>

#include "base/clock.h"
#include "base/fold.h"
#include "base/save_format.h"

namespace kiv {
namespace {

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Takes a run of digits off the text, without its leading zeros.
std::wstring_view takeNumber(std::wstring_view& text) {
  const auto end =
      std::min(text.size(),
               static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin()));
  std::wstring_view number = text.substr(0, end);
  text.remove_prefix(end);
  number.remove_prefix(std::min(number.find_first_not_of(L'0'), number.size()));
  return number;
}

// Both are folded.
std::strong_ordering compareNames(std::wstring_view one, std::wstring_view other) {
  while (!one.empty() && !other.empty()) {
    if (isDigit(one[0]) && isDigit(other[0])) {
      const std::wstring_view a = takeNumber(one), b = takeNumber(other);
      if (const auto order = a.size() <=> b.size(); order != 0) return order;
      if (const auto order = a.compare(b) <=> 0; order != 0) return order;
    } else {
      if (const auto order = one[0] <=> other[0]; order != 0) return order;
      one.remove_prefix(1);
      other.remove_prefix(1);
    }
  }
  return one.size() <=> other.size();
}

bool matches(std::wstring_view text, std::wstring_view pattern) {
  std::size_t at = 0, next = 0;
  std::size_t star = std::wstring_view::npos, starAt = 0;  // the last "*" and where it goes on
  while (at < text.size()) {
    if (next < pattern.size() && pattern[next] == L'*') {
      star = next++;
      starAt = at;
    } else if (next < pattern.size() && (pattern[next] == L'?' || pattern[next] == text[at])) {
      ++next;
      ++at;
    } else if (star != std::wstring_view::npos) {
      next = star + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(L'*', next) == std::wstring_view::npos;
}

std::wstring_view trimmed(std::wstring_view text) {
  constexpr std::wstring_view kBlanks = L" \t　";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// In the steps of the system's own lists: "1,234 KB", the last one begun.
std::wstring sizeText(std::uint64_t bytes) {
  std::wstring digits = std::to_wstring((bytes + 1023) / 1024);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, L",");
  return digits + L" KB";
}

}  // namespace

bool hasNameOfDrawing(std::wstring_view name) { return base::saveFormatOf(name).has_value(); }

bool precedesInLists(std::wstring_view one, std::wstring_view other) {
  return compareNames(base::upper(one), base::upper(other)) < 0;
}

bool isWanted(std::wstring_view name, std::wstring_view filter) {
  const std::wstring text = base::upper(name), wanted = base::upper(filter);
  bool hasPattern = false;
  for (std::wstring_view rest = wanted; !rest.empty();) {
    const std::size_t end = std::min(rest.find(L';'), rest.size());
    const std::wstring_view pattern = trimmed(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (pattern.empty()) continue;
    hasPattern = true;
    const bool isPlain = pattern.find_first_of(L"*?") == std::wstring_view::npos;
    if (isPlain ? text.find(pattern) != std::wstring::npos : matches(text, pattern)) return true;
  }
  return !hasPattern;
}

std::vector<std::wstring> cellsOf(const ListedDrawing& drawing) {
  return {drawing.name, drawing.release ? releaseText(*drawing.release) : L"...", sizeText(drawing.size),
          base::localTimeText(L"%Y/%m/%d %H:%M", drawing.modified)};
}

std::vector<std::size_t> arranged(const std::vector<ListedDrawing>& drawings, std::wstring_view filter,
                                  const DrawingOrder& order) {
  std::vector<std::wstring> folded;
  std::vector<std::size_t> rows;
  for (const ListedDrawing& drawing : drawings) {
    folded.push_back(base::upper(drawing.name));
    if (isWanted(drawing.name, filter)) rows.push_back(folded.size() - 1);
  }
  const auto compare = [&](std::size_t one, std::size_t other) -> std::strong_ordering {
    const ListedDrawing &a = drawings[one], &b = drawings[other];
    switch (order.column) {
      case DrawingColumn::kRelease:
        return a.release.value_or(-1) <=> b.release.value_or(-1);
      case DrawingColumn::kSize:
        return a.size <=> b.size;
      case DrawingColumn::kModified:
        return a.modified <=> b.modified;
      default:
        return compareNames(folded[one], folded[other]);
    }
  };
  std::sort(rows.begin(), rows.end(), [&](std::size_t one, std::size_t other) {
    const auto result = compare(one, other);
    if (result != 0) return order.ascending ? result < 0 : result > 0;
    const auto byName = compareNames(folded[one], folded[other]);
    return byName != 0 ? byName < 0 : drawings[one].name < drawings[other].name;
  });
  return rows;
}

}  // namespace kiv
