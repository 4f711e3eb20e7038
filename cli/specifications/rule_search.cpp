#include "cli/specifications/rule_search.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "base/wildcard_characters.h"
#include "cli/specifications/condition_search.h"
#include "cli/specifications/rule_results.h"
#include "cli/specifications/rule_simplifier.h"

namespace kivcli {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr std::size_t kMostFailures = 1000;  // then the rest counts as unexplained
constexpr std::size_t kMostTexts = 200;      // of a text search list

using Place = std::pair<std::size_t, std::size_t>;  // object and column

class Search {
 public:
  // `order`: of the columns that are written, as they are taken. `byHand`: values that may be exceptions: a
  // rule for many others may write something else there.
  Search(RuleTable& table, std::vector<std::size_t> order, const std::set<Place>& byHand)
      : table_(table),
        original_(table.objects),
        conditions_(table_, table.seesBefore ? original_ : table_.objects),
        size_(table.objects.size()),
        order_(std::move(order)),
        byHand_(byHand) {}

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
    return o.before[column] != o.after[column] && !spoilt_.contains({object, column});
  }
  bool isByHand(std::size_t object, std::size_t column) const { return byHand_.contains({object, column}); }
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
    const std::vector<Feature> features = conditions_.featuresOf(seed);
    std::optional<FoundConditions> best;
    ResultToken token;
    for (const ResultToken& candidate : tokensOf(seed, column)) {
      auto found = conditionsFor(features, candidate);
      if (!found || (best && !found->isBetterThan(*best))) continue;
      best = std::move(found);
      token = candidate;
    }
    if (!best) return false;
    Rule rule{std::move(best->conditions), {}, {}};
    take(seed, best->matched, token, std::move(rule));
    return true;
  }

  std::optional<FoundConditions> conditionsFor(const std::vector<Feature>& features,
                                               const ResultToken& token) const {
    const std::size_t column = token.column;
    ConditionSearch::Task task(size_);
    for (std::size_t i = 0; i < size_; ++i) {
      const bool isException = !isRight(i, token) && isByHand(i, column);
      if (isException) task.exceptions.add(i);
      if (!isRight(i, token) && !isException) continue;
      task.right.add(i);
      if (isPending(i, column) && !isException) task.needs.add(i);
      const RuleObject& before = original_[i];
      const bool isChanged = before.before[column] != before.after[column];
      if (isChanged || !before.isHome || before.before[column] == RuleObject::kHasNone) task.welcome.add(i);
    }
    if (!token.asks.empty()) task.asked = RuleCondition{column, false, token.asks};
    return conditions_.best(features, task);
  }

  // The rule with that result, and whatever else all that it meets can get.
  void take(std::size_t seed, const ObjectSet& matched, const ResultToken& token, Rule rule) {
    std::vector<ResultToken> results = {token};
    extend(seed, matched, rule.conditions, results);
    apply(matched, results);
    for (const ResultToken& result : results) rule.results.push_back({result.column, result.value});
    std::ranges::stable_sort(rule.conditions, {}, &RuleCondition::column);
    std::ranges::stable_sort(rule.results, {}, &RuleResult::column);
    rules_.push_back(std::move(rule));
  }

  // --- Results

  const std::wstring& text(int value) const { return table_.values[static_cast<std::size_t>(value)]; }

  std::vector<ResultToken> tokensOf(std::size_t seed, std::size_t column) const {
    const RuleObject& object = table_.objects[seed];
    const int from = object.before[column], to = object.after[column];
    if (to == RuleObject::kHasNone) return {};
    return resultTokens(table_.columns[column], column, from == RuleObject::kHasNone ? nullptr : &text(from),
                        text(to));
  }

  // Does the object end with what it is to have?
  bool isRight(std::size_t object, const ResultToken& token) const {
    const RuleObject& o = table_.objects[object];
    const int from = o.before[token.column], to = o.after[token.column];
    if (from == RuleObject::kHasNone) return true;
    const RuleColumn& info = table_.columns[token.column];
    const auto made = valueMade(info, token, text(from));
    return made && to != RuleObject::kHasNone && isSameValue(info, *made, text(to));
  }

  void apply(const ObjectSet& matched, const std::vector<ResultToken>& results) {
    for (const ResultToken& token : results) {
      for (std::size_t i = 0; i < size_; ++i) {
        RuleObject& o = table_.objects[i];
        if (!matched[i] || o.before[token.column] == RuleObject::kHasNone) continue;
        if (isRight(i, token)) {
          o.before[token.column] = o.after[token.column];
        } else {
          spoil(i, token);
        }
      }
    }
  }

  void spoil(std::size_t object, const ResultToken& token) {
    int& value = table_.objects[object].before[token.column];
    const auto made = valueMade(table_.columns[token.column], token, text(value));
    const auto known = made ? std::ranges::find(table_.values, *made) : table_.values.end();
    if (known != table_.values.end()) value = static_cast<int>(known - table_.values.begin());
    spoilt_.insert({object, token.column});
  }

  // What else all that is matched can get in the same rule.
  void extend(std::size_t seed, const ObjectSet& matched, const std::vector<RuleCondition>& conditions,
              std::vector<ResultToken>& results) {
    for (const std::size_t column : order_) {
      if (std::ranges::find(results, column, &ResultToken::column) != results.end() ||
          !isPending(seed, column))
        continue;
      if (table_.columns[column].isLast && !isAllElseDone(matched, column, results)) continue;
      for (const ResultToken& token : tokensOf(seed, column)) {
        const auto asked = std::ranges::find(conditions, column, &RuleCondition::column);
        const bool canWrite = token.asks.empty() ||
                              (asked != conditions.end() && !asked->inverted && asked->value == token.asks);
        if (!canWrite || !areRight(matched, token)) continue;
        results.push_back(token);
        break;
      }
    }
  }

  bool areRight(const ObjectSet& matched, const ResultToken& token) const {
    for (std::size_t i = 0; i < size_; ++i)
      if (matched[i] && !isRight(i, token)) return false;
    return true;
  }

  bool isAllElseDone(const ObjectSet& matched, std::size_t column,
                     const std::vector<ResultToken>& results) const {
    if (table_.seesBefore) return true;
    for (const std::size_t other : order_) {
      const bool isDone =
          other == column || std::ranges::find(results, other, &ResultToken::column) != results.end();
      for (std::size_t i = 0; !isDone && i < size_; ++i)
        if (matched[i] && isPending(i, other) && !isTried(i, other)) return false;
    }
    return true;
  }

  // --- Text search lists, for what nothing else tells from the rest

  void takeTextLists() {
    if (table_.textColumn == kNone) return;
    for (const std::size_t column : order_) {
      std::set<std::wstring> tried;
      for (std::size_t i = 0; i < size_; ++i) {
        if (!table_.objects[i].isHome || !isPending(i, column)) continue;
        for (const ResultToken& token : tokensOf(i, column)) {
          if (token.asks.empty() && tried.insert(token.value).second && takeTextList(i, token)) break;
        }
      }
    }
  }

  bool takeTextList(std::size_t seed, const ResultToken& token) {
    std::set<int> wanted, harmed;
    std::size_t count = 0;
    for (std::size_t i = 0; i < size_; ++i) {
      const int value = table_.objects[i].before[table_.textColumn];
      if (value == RuleObject::kHasNone) continue;
      if (!isRight(i, token)) harmed.insert(value);
      if (isRight(i, token) && isPending(i, token.column)) wanted.insert(value);
    }
    ObjectSet matched(size_);
    std::erase_if(wanted, [&](int value) {
      return harmed.contains(value) || text(value).empty() ||
             text(value).find_first_of(L"\r\n") != std::wstring::npos;
    });
    for (std::size_t i = 0; i < size_; ++i) {
      if (!wanted.contains(table_.objects[i].before[table_.textColumn])) continue;
      matched.add(i);
      count += table_.objects[i].count;
    }
    // One object among others is no rule, nor are two that have nothing in common.
    if (!matched[seed] || count < 2 || (count == 2 && wanted.size() == 2) || wanted.size() > kMostTexts)
      return false;
    Rule rule;
    for (const int value : wanted) rule.texts.push_back(base::exactPattern(text(value)));
    take(seed, matched, token, std::move(rule));
    return true;
  }

  RuleTable& table_;
  const std::vector<RuleObject> original_;
  const ConditionSearch conditions_;
  std::size_t size_;
  const std::vector<std::size_t> order_;
  const std::set<Place>& byHand_;
  std::set<std::size_t> left_;
  std::set<Place> failed_, spoilt_;
  std::vector<Rule> rules_;
};

constexpr int kAttempts = 3;  // with values that are by hand as many once more

struct Attempt {
  RuleTable table;
  std::vector<Rule> rules;

  std::set<Place> left() const {
    std::set<Place> places;
    for (std::size_t i = 0; i < table.objects.size(); ++i) {
      const RuleObject& object = table.objects[i];
      for (std::size_t c = 0; c < table.columns.size(); ++c)
        if (object.before[c] != object.after[c]) places.insert({i, c});
    }
    return places;
  }
  // Values that no rule explains, and rules.
  std::pair<std::size_t, std::size_t> cost() const {
    std::size_t count = 0;
    for (const auto& [object, column] : left()) count += table.objects[object].count;
    return {count, rules.size()};
  }
};

}  // namespace

std::vector<Rule> searchRules(RuleTable& table) {
  // The later a column, the less other rules ask for it.
  std::vector<std::size_t> order;
  for (std::size_t c = table.columns.size(); c-- > 0;)
    if (table.columns[c].canWrite()) order.push_back(c);
  std::optional<Attempt> best;
  // False: nothing is left to do better.
  const auto isWorthMore = [&](const std::set<Place>& byHand) {
    Attempt made{table, {}};
    Search search(made.table, order, byHand);
    made.rules = search.run();
    const bool isDone = search.left().empty();
    // What an earlier rule has made alike is told apart when it is taken first.
    std::ranges::stable_partition(order, [&](std::size_t column) { return search.left().contains(column); });
    made.table = table;
    made.rules = simplified(made.table, std::move(made.rules));
    const bool isBetter = !best || made.cost() < best->cost();
    if (isBetter) best = std::move(made);
    return byHand.empty() ? !isDone : isBetter;
  };
  for (int attempt = 0; attempt < kAttempts && isWorthMore({}); ++attempt) {
  }
  // Exceptions to a rule would otherwise bend it.
  for (int attempt = 0; attempt < kAttempts && !best->left().empty() && isWorthMore(best->left());
       ++attempt) {
  }
  table = std::move(best->table);
  return std::move(best->rules);
}

}  // namespace kivcli
