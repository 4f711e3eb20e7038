#include "cli/specifications/rule_search.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <set>

#include "base/numbers.h"
#include "embedded/drawing/wildcard.h"

namespace kivcli {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr std::size_t kMostConditions = 4;
constexpr std::size_t kMostExcluded = 40;            // values that inverted conditions are tried with
constexpr std::size_t kMostFailures = 1000;          // then the rest counts as unexplained
constexpr std::size_t kMostTexts = 200;              // of a text search list
constexpr std::size_t kTried[] = {0, 0, 0, 40, 20};  // conditions that are combined, by how many

// A set of objects by their places.
class Bits {
 public:
  explicit Bits(std::size_t size = 0, bool value = false) : size_(size), words_((size + 63) / 64) {
    for (std::size_t i = 0; value && i < size; ++i) add(i);
  }
  bool operator[](std::size_t i) const { return (words_[i / 64] >> (i % 64) & 1) != 0; }
  void add(std::size_t i) { words_[i / 64] |= std::uint64_t{1} << (i % 64); }

  bool isSubsetOf(const Bits& other) const {
    for (std::size_t w = 0; w < words_.size(); ++w)
      if ((words_[w] & ~other.words_[w]) != 0) return false;
    return true;
  }
  bool isEverything() const {
    return count([](std::size_t) { return std::size_t{1}; }) == size_;
  }
  Bits operator&(const Bits& other) const {
    Bits result = *this;
    for (std::size_t w = 0; w < words_.size(); ++w) result.words_[w] &= other.words_[w];
    return result;
  }
  // The sum of what the places weigh.
  template <class Weight>
  std::size_t count(Weight weight) const {
    std::size_t sum = 0;
    for (std::size_t w = 0; w < words_.size(); ++w) {
      for (std::uint64_t rest = words_[w]; rest != 0; rest &= rest - 1)
        sum += weight(w * 64 + static_cast<std::size_t>(std::countr_zero(rest)));
    }
    return sum;
  }

 private:
  std::size_t size_;
  std::vector<std::uint64_t> words_;
};

// A result, and what it makes of the values that it meets.
struct Token {
  std::size_t column = 0;
  std::wstring value;
  std::wstring asks;  // a pattern that the rule must ask for in the same column; empty: none
};

struct Feature {
  RuleCondition condition;
  Bits holds;
  int cost = 0;  // the plainer the cheaper
};

struct Found {
  std::vector<std::size_t> features;
  Bits matched;
  std::size_t gain = 0;  // objects that get what they need
  int cost = 0;
};

// The one star of a pattern, replaced.
std::wstring withStar(const std::wstring& pattern, const std::wstring& text) {
  const std::size_t star = pattern.find(L'*');
  return pattern.substr(0, star) + text + pattern.substr(star + 1);
}

class Search {
 public:
  // `order`: of the columns that are written, as they are taken.
  Search(RuleTable& table, std::vector<std::size_t> order)
      : table_(table), original_(table.objects), size_(table.objects.size()), order_(std::move(order)) {}

  std::vector<Rule> run() {
    // What fails may succeed once other rules have changed what conditions see.
    for (std::size_t before = kNone; before != rules_.size();) {
      before = rules_.size();
      failed_.clear();
      while (takeNext()) {
      }
    }
    for (std::size_t i = 0; i < size_; ++i) {
      for (const std::size_t column : order_)
        if (table_.objects[i].isHome && isPending(i, column)) left_.insert(column);
    }
    takeTextLists();
    return std::move(rules_);
  }

  // Columns in which something was left to text search lists, or to nothing.
  const std::set<std::size_t>& left() const { return left_; }

 private:
  bool isPending(std::size_t object, std::size_t column) const {
    const RuleObject& o = table_.objects[object];
    return o.before[column] != o.after[column];
  }
  bool isTried(std::size_t object, std::size_t column) const { return failed_.contains({object, column}); }

  bool takeNext() {
    if (failed_.size() > kMostFailures) return false;
    for (const std::size_t column : order_) {
      std::size_t seed = kNone;
      for (std::size_t i = 0; i < size_; ++i) {
        const RuleObject& object = table_.objects[i];
        if (!object.isHome || !isPending(i, column) || isTried(i, column)) continue;
        if (seed == kNone || object.count > table_.objects[seed].count) seed = i;
      }
      if (seed == kNone) continue;
      if (!takeSeed(seed, column)) failed_.insert({seed, column});
      return true;
    }
    return false;
  }

  bool takeSeed(std::size_t seed, std::size_t column) {
    const std::vector<Feature> features = featuresOf(seed);
    std::optional<Found> best;
    Token token;
    for (const Token& candidate : tokensOf(seed, column)) {
      const auto found = bestConditions(features, candidate);
      if (!found || (best && !isBetter(*found, *best))) continue;
      best = found;
      token = candidate;
    }
    if (!best) return false;
    Rule rule;
    for (const std::size_t feature : best->features) rule.conditions.push_back(features[feature].condition);
    std::vector<Token> results = {token};
    extend(seed, best->matched, rule.conditions, results);
    apply(best->matched, results);
    for (const Token& result : results) rule.results.push_back({result.column, result.value});
    std::ranges::stable_sort(rule.conditions, {}, &RuleCondition::column);
    std::ranges::stable_sort(rule.results, {}, &RuleResult::column);
    rules_.push_back(std::move(rule));
    return true;
  }

  static bool isBetter(const Found& a, const Found& b) {
    if (a.gain != b.gain) return a.gain > b.gain;
    return a.cost < b.cost;
  }

  // --- Results

  const std::wstring& text(int value) const { return table_.values[static_cast<std::size_t>(value)]; }

  std::vector<Token> tokensOf(std::size_t seed, std::size_t column) const {
    const RuleObject& object = table_.objects[seed];
    const int from = object.before[column], to = object.after[column];
    std::vector<Token> tokens;
    // A value in brackets cannot be written.
    if (to == RuleObject::kHasNone || text(to).starts_with(L"<")) return tokens;
    tokens.push_back({column, text(to), {}});
    const RuleColumn& info = table_.columns[column];
    if (info.isFactor && from != RuleObject::kHasNone) addFactor(text(from), text(to), column, tokens);
    const bool isPattern = info.kind == 1 && from != RuleObject::kHasNone;
    if (isPattern) addRenaming(text(from), text(to), column, tokens);
    return tokens;
  }

  static void addFactor(const std::wstring& from, const std::wstring& to, std::size_t column,
                        std::vector<Token>& tokens) {
    const double before = base::leadingReal(from), after = base::leadingReal(to);
    if (before <= 0 || after <= 0) return;
    const double factor = std::round(after / before * 10000) / 10000;
    if (factor > 0 && std::abs(factor * before - after) < 1e-6 * after)
      tokens.push_back({column, base::numberText(factor) + L"X", {}});
  }

  // With a common end, the beginning is another one; and the other way round.
  static void addRenaming(const std::wstring& from, const std::wstring& to, std::size_t column,
                          std::vector<Token>& tokens) {
    if ((from + to).find_first_of(L"#@.*?~[],`") != std::wstring::npos) return;
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

  // Nothing: it cannot be written there.
  std::optional<std::wstring> outcome(const Token& token, const std::wstring& value) const {
    if (!token.asks.empty()) {
      const std::size_t star = token.asks.find(L'*');
      const std::wstring head = token.asks.substr(0, star), tail = token.asks.substr(star + 1);
      if (value.size() < head.size() + tail.size() || !value.starts_with(head) || !value.ends_with(tail))
        return std::nullopt;
      return withStar(token.value, value.substr(head.size(), value.size() - head.size() - tail.size()));
    }
    const bool isFactor = table_.columns[token.column].isFactor && token.value.ends_with(L"X");
    if (!isFactor) return token.value;
    return base::numberText(base::leadingReal(token.value) * base::leadingReal(value));
  }

  bool isEqual(std::size_t column, const std::wstring& a, const std::wstring& b) const {
    if (a == b) return true;
    return table_.columns[column].isFactor && std::abs(base::leadingReal(a) - base::leadingReal(b)) < 1e-6;
  }

  // Does the object end with what it is to have?
  bool isRight(std::size_t object, const Token& token) const {
    const RuleObject& o = table_.objects[object];
    const int from = o.before[token.column], to = o.after[token.column];
    if (from == RuleObject::kHasNone) return true;
    const auto made = outcome(token, text(from));
    return made && to != RuleObject::kHasNone && isEqual(token.column, *made, text(to));
  }

  void apply(const Bits& matched, const std::vector<Token>& results) {
    for (const Token& token : results) {
      for (std::size_t i = 0; i < size_; ++i) {
        RuleObject& o = table_.objects[i];
        if (matched[i] && o.before[token.column] != RuleObject::kHasNone)
          o.before[token.column] = o.after[token.column];
      }
    }
  }

  // What else all that is matched can get in the same rule.
  void extend(std::size_t seed, const Bits& matched, const std::vector<RuleCondition>& conditions,
              std::vector<Token>& results) {
    for (const std::size_t column : order_) {
      if (std::ranges::find(results, column, &Token::column) != results.end() || !isPending(seed, column))
        continue;
      if (table_.columns[column].isLast && !isAllElseDone(matched, column, results)) continue;
      for (const Token& token : tokensOf(seed, column)) {
        const auto asked = std::ranges::find(conditions, column, &RuleCondition::column);
        const bool canWrite = token.asks.empty() ||
                              (asked != conditions.end() && !asked->inverted && asked->value == token.asks);
        if (!canWrite || !areRight(matched, token)) continue;
        results.push_back(token);
        break;
      }
    }
  }

  bool areRight(const Bits& matched, const Token& token) const {
    for (std::size_t i = 0; i < size_; ++i)
      if (matched[i] && !isRight(i, token)) return false;
    return true;
  }

  bool isAllElseDone(const Bits& matched, std::size_t column, const std::vector<Token>& results) const {
    if (table_.seesBefore) return true;
    for (const std::size_t other : order_) {
      const bool isDone =
          other == column || std::ranges::find(results, other, &Token::column) != results.end();
      for (std::size_t i = 0; !isDone && i < size_; ++i)
        if (matched[i] && isPending(i, other) && !isTried(i, other)) return false;
    }
    return true;
  }

  // --- Conditions

  // What conditions see of an object.
  int seen(std::size_t object, std::size_t column) const {
    return (table_.seesBefore ? original_ : table_.objects)[object].before[column];
  }

  Feature feature(std::size_t column, bool inverted, std::wstring value, const std::vector<bool>& matches,
                  int cost) const {
    Feature made{{column, inverted, std::move(value)}, Bits(size_), cost};
    for (std::size_t i = 0; i < size_; ++i) {
      const int own = seen(i, column);
      const bool is = own != RuleObject::kHasNone && matches[static_cast<std::size_t>(own)];
      if (is != inverted) made.holds.add(i);
    }
    return made;
  }

  std::map<int, std::size_t> valuesSeen(std::size_t column) const {
    std::map<int, std::size_t> counts;
    for (std::size_t i = 0; i < size_; ++i)
      if (seen(i, column) != RuleObject::kHasNone) counts[seen(i, column)] += table_.objects[i].count;
    return counts;
  }

  std::vector<Feature> featuresOf(std::size_t seed) const {
    std::vector<Feature> features;
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
      if (!table_.columns[column].canAsk() || column == table_.textColumn) continue;
      const auto values = valuesSeen(column);
      const int own = seen(seed, column), rank = static_cast<int>(column);
      std::vector<bool> matches(table_.values.size());
      if (own != RuleObject::kHasNone) {
        matches[static_cast<std::size_t>(own)] = true;
        features.push_back(feature(column, false, asCondition(column, text(own)), matches, 100 + rank));
        if (table_.columns[column].isName) addPatterns(column, text(own), values, features);
      }
      if (own != RuleObject::kHasNone && table_.columns[column].isName)
        features.push_back(feature(column, false, L"*", std::vector<bool>(matches.size(), true), 90 + rank));
      if (values.size() > kMostExcluded) continue;
      for (const auto& [other, count] : values) {
        if (other == own) continue;
        matches.assign(matches.size(), false);
        matches[static_cast<std::size_t>(other)] = true;
        features.push_back(feature(column, true, asCondition(column, text(other)), matches, 160 + rank));
      }
    }
    std::erase_if(features, [](const Feature& f) { return f.holds.isEverything(); });
    return features;
  }

  std::wstring asCondition(std::size_t column, const std::wstring& value) const {
    return table_.columns[column].isName ? exactPattern(value) : value;
  }

  // Those that several names share; of equal ones the one that says most.
  void addPatterns(std::size_t column, const std::wstring& name, const std::map<int, std::size_t>& values,
                   std::vector<Feature>& features) const {
    std::set<std::vector<bool>> known;
    const auto add = [&](const std::wstring& part, bool isHead) {
      std::vector<bool> matches(table_.values.size());
      std::size_t count = 0;
      for (const auto& [value, objects] : values) {
        const bool fits = isHead ? text(value).starts_with(part) : text(value).ends_with(part);
        matches[static_cast<std::size_t>(value)] = fits;
        count += fits ? 1 : 0;
      }
      if (count < 2 || !known.insert(matches).second) return;
      const std::wstring pattern = isHead ? exactPattern(part) + L"*" : L"*" + exactPattern(part);
      features.push_back(feature(column, false, pattern, matches, 130 + static_cast<int>(column)));
    };
    for (std::size_t length = name.size(); length-- > 1;) add(name.substr(0, length), true);
    for (std::size_t from = 1; from < name.size(); ++from) add(name.substr(from), false);
  }

  // The conditions that hold for most of what needs the result, and for nothing that it would harm.
  std::optional<Found> bestConditions(const std::vector<Feature>& features, const Token& token) const {
    Bits needs(size_), right(size_);
    for (std::size_t i = 0; i < size_; ++i) {
      if (!isRight(i, token)) continue;
      right.add(i);
      if (isPending(i, token.column)) needs.add(i);
    }
    Combination state{features, needs, right, {}, {}};
    Found start{{}, Bits(size_, true), 0, 0};
    std::vector<std::size_t> order(features.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    if (!token.asks.empty()) {
      const auto asked = std::ranges::find_if(features, [&](const Feature& f) {
        return f.condition.column == token.column && !f.condition.inverted && f.condition.value == token.asks;
      });
      if (asked == features.end()) return std::nullopt;
      start = {{static_cast<std::size_t>(asked - features.begin())}, asked->holds, 0, asked->cost};
    }
    // Which conditions leave least of what would be harmed is tried first.
    std::vector<std::size_t> harm(features.size());
    for (std::size_t f = 0; f < features.size(); ++f)
      harm[f] =
          features[f].holds.count([&](std::size_t i) { return right[i] ? std::size_t{0} : std::size_t{1}; });
    std::ranges::stable_sort(order, {}, [&](std::size_t f) { return std::pair(harm[f], features[f].cost); });
    state.order = std::move(order);
    for (std::size_t most = start.features.size(); most <= kMostConditions; ++most) {
      combine(state, start, 0, most);
      // More conditions can only match less; a rule of few is worth more than a few more objects.
      if (state.best && most >= 2) break;
    }
    return state.best;
  }

  std::size_t gainOf(const Bits& matched, const Bits& needs) const {
    return (matched & needs).count([this](std::size_t i) { return table_.objects[i].count; });
  }

  struct Combination {
    const std::vector<Feature>& features;
    const Bits &needs, &right;
    std::vector<std::size_t> order;
    std::optional<Found> best;
  };

  void combine(Combination& state, const Found& so, std::size_t from, std::size_t most) const {
    if (so.features.size() == most) {
      if (!so.matched.isSubsetOf(state.right)) return;
      Found found = so;
      found.gain = gainOf(found.matched, state.needs);
      if (found.gain > 0 && (!state.best || isBetter(found, *state.best))) state.best = found;
      return;
    }
    const std::size_t limit =
        most < 3 ? state.order.size() : std::min(state.order.size(), kTried[std::min(most, kMostConditions)]);
    for (std::size_t at = from; at < limit; ++at) {
      const std::size_t f = state.order[at];
      // Several conditions of one key are alternatives to some objects.
      const auto isSameColumn = [&](std::size_t other) {
        return state.features[other].condition.column == state.features[f].condition.column;
      };
      if (std::ranges::any_of(so.features, isSameColumn)) continue;
      Found next{so.features, so.matched & state.features[f].holds, 0, so.cost + state.features[f].cost};
      next.features.push_back(f);
      const std::size_t gain = gainOf(next.matched, state.needs);
      if (gain > 0 && (!state.best || gain >= state.best->gain)) combine(state, next, at + 1, most);
    }
  }

  // --- Text search lists, for what nothing else tells from the rest

  void takeTextLists() {
    if (table_.textColumn == kNone) return;
    for (const std::size_t column : order_) {
      std::set<std::wstring> tried;
      for (std::size_t i = 0; i < size_; ++i) {
        if (!table_.objects[i].isHome || !isPending(i, column)) continue;
        for (const Token& token : tokensOf(i, column)) {
          if (token.asks.empty() && tried.insert(token.value).second && takeTextList(i, token)) break;
        }
      }
    }
  }

  bool takeTextList(std::size_t seed, const Token& token) {
    std::set<int> wanted, harmed;
    std::size_t count = 0;
    for (std::size_t i = 0; i < size_; ++i) {
      const int value = table_.objects[i].before[table_.textColumn];
      if (value == RuleObject::kHasNone) continue;
      if (!isRight(i, token)) harmed.insert(value);
      if (isRight(i, token) && isPending(i, token.column)) wanted.insert(value);
    }
    Bits matched(size_);
    std::erase_if(wanted, [&](int value) {
      return harmed.contains(value) || text(value).empty() ||
             text(value).find_first_of(L"\r\n") != std::wstring::npos;
    });
    for (std::size_t i = 0; i < size_; ++i) {
      if (!wanted.contains(table_.objects[i].before[table_.textColumn])) continue;
      matched.add(i);
      count += table_.objects[i].count;
    }
    // One object among others is no rule.
    if (!matched[seed] || count < 2 || wanted.size() > kMostTexts) return false;
    Rule rule;
    for (const int value : wanted) rule.texts.push_back(exactPattern(text(value)));
    std::vector<Token> results = {token};
    extend(seed, matched, {}, results);
    apply(matched, results);
    for (const Token& result : results) rule.results.push_back({result.column, result.value});
    std::ranges::stable_sort(rule.results, {}, &RuleResult::column);
    rules_.push_back(std::move(rule));
    return true;
  }

  RuleTable& table_;
  const std::vector<RuleObject> original_;
  std::size_t size_;
  const std::vector<std::size_t> order_;
  std::set<std::size_t> left_;
  std::set<std::pair<std::size_t, std::size_t>> failed_;
  std::vector<Rule> rules_;
};

constexpr int kAttempts = 3;

struct Attempt {
  RuleTable table;
  std::vector<Rule> rules;

  // Objects that no rule explains, and rules.
  std::pair<std::size_t, std::size_t> cost() const {
    std::size_t left = 0;
    for (const RuleObject& object : table.objects) {
      for (std::size_t c = 0; c < table.columns.size(); ++c)
        left += object.before[c] != object.after[c] ? object.count : 0;
    }
    return {left, rules.size()};
  }
};

}  // namespace

std::wstring exactPattern(const std::wstring& name) {
  std::wstring pattern;
  for (const wchar_t c : name) {
    if (std::wstring_view(L"#@.*?~[],`").find(c) != std::wstring_view::npos) pattern += L'`';
    pattern += c;
  }
  return pattern;
}

std::vector<Rule> searchRules(RuleTable& table) {
  // The later a column, the less other rules ask for it.
  std::vector<std::size_t> order;
  for (std::size_t c = table.columns.size(); c-- > 0;)
    if (table.columns[c].canWrite()) order.push_back(c);
  std::optional<Attempt> best;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    Attempt made{table, {}};
    Search search(made.table, order);
    made.rules = search.run();
    const bool isDone = search.left().empty();
    // What an earlier rule has made alike is told apart when it is taken first.
    std::ranges::stable_partition(order, [&](std::size_t column) { return search.left().contains(column); });
    if (!best || made.cost() < best->cost()) best = std::move(made);
    if (isDone) break;
  }
  table = std::move(best->table);
  return std::move(best->rules);
}

}  // namespace kivcli
