#include "cli/specifications/rule_results.h"

#include <algorithm>
#include <cmath>

#include "base/codepage.h"
#include "base/numbers.h"
#include "base/wildcard_characters.h"
#include "spec/item_kinds.h"

namespace kivcli {
namespace {

// The one star of a pattern, replaced.
std::wstring withStar(const std::wstring& pattern, const std::wstring& text) {
  const std::size_t star = pattern.find(L'*');
  return pattern.substr(0, star) + text + pattern.substr(star + 1);
}

void addFactor(const std::wstring& from, const std::wstring& to, std::size_t column,
               std::vector<ResultToken>& tokens) {
  const double before = base::leadingReal(from), after = base::leadingReal(to);
  if (before <= 0 || after <= 0) return;
  const double factor = std::round(after / before * 10000) / 10000;
  if (factor > 0 && std::abs(factor * before - after) < 1e-6 * after)
    tokens.push_back({column, base::numberText(factor) + L"X", {}});
}

// With a common end, the beginning is another one; and the other way round.
void addRenaming(const std::wstring& from, const std::wstring& to, std::size_t column,
                 std::vector<ResultToken>& tokens) {
  if (!base::isPlainPattern(from + to)) return;
  std::size_t end = 0, start = 0;
  while (end < from.size() && end < to.size() && from[from.size() - 1 - end] == to[to.size() - 1 - end])
    ++end;
  while (start < from.size() && start < to.size() && from[start] == to[start]) ++start;
  for (std::size_t kept = 1; kept <= end; ++kept) {
    tokens.push_back(
        {column, to.substr(0, to.size() - kept) + L"*", from.substr(0, from.size() - kept) + L"*"});
  }
  for (std::size_t kept = 1; kept <= start; ++kept) {
    tokens.push_back({column, L"*" + to.substr(kept), L"*" + from.substr(kept)});
  }
}

}  // namespace

std::vector<ResultToken> resultTokens(const RuleColumn& info, std::size_t column, const std::wstring* from,
                                      const std::wstring& to) {
  std::vector<ResultToken> tokens;
  if (!isWritable(to)) return tokens;
  tokens.push_back({column, to, {}});
  if (info.isFactor && from != nullptr) addFactor(*from, to, column, tokens);
  if (info.kind == kiv::kLayerKind && from != nullptr) addRenaming(*from, to, column, tokens);
  return tokens;
}

ResultToken tokenOf(const RuleColumn& info, const RuleResult& result,
                    const std::vector<RuleCondition>& conditions) {
  ResultToken token{result.column, result.value, {}};
  if (info.kind != kiv::kLayerKind || result.value.find(L'*') == std::wstring::npos) return token;
  const auto asked = std::ranges::find_if(conditions, [&](const RuleCondition& condition) {
    return condition.column == result.column && !condition.inverted &&
           condition.value.find(L'*') != std::wstring::npos;
  });
  if (asked != conditions.end()) token.asks = asked->value;
  return token;
}

std::optional<std::wstring> valueMade(const RuleColumn& info, const ResultToken& token,
                                      const std::wstring& value) {
  if (!token.asks.empty()) {
    const std::size_t star = token.asks.find(L'*');
    const std::wstring head = token.asks.substr(0, star), tail = token.asks.substr(star + 1);
    if (value.size() < head.size() + tail.size() || !value.starts_with(head) || !value.ends_with(tail))
      return std::nullopt;
    return withStar(token.value, value.substr(head.size(), value.size() - head.size() - tail.size()));
  }
  if (!info.isFactor || !token.value.ends_with(L"X")) return token.value;
  return base::numberText(base::leadingReal(token.value) * base::leadingReal(value));
}

bool isSameValue(const RuleColumn& info, const std::wstring& a, const std::wstring& b) {
  if (a == b) return true;
  return info.isFactor && std::abs(base::leadingReal(a) - base::leadingReal(b)) < 1e-6;
}

bool isWritable(const std::wstring& value) {
  return !value.starts_with(L"<") && base::encode(value, base::kJapanese).clean;
}

}  // namespace kivcli
