#include "cli/specifications/rule_simplifier.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

#include "base/wildcard_characters.h"
#include "cli/specifications/rule_results.h"
#include "embedded/drawing/wildcard.h"

namespace kivcli {
namespace {

constexpr std::size_t kMostSteps = 200'000'000;  // tests of a rule on an object, of all attempts together

// What rules do to a table, in their order.
class Rehearsal {
 public:
  explicit Rehearsal(const RuleTable& table) : table_(table), original_(table.objects) {
    for (std::size_t i = 0; i < table_.values.size(); ++i) numbers_[table_.values[i]] = static_cast<int>(i);
  }

  struct Verdict {
    std::size_t left = 0;      // values that are not as they are to be
    std::size_t needless = 0;  // results on values that have been so before
  };

  Verdict play(const std::vector<Rule>& rules) {
    table_.objects = original_;
    Verdict verdict;
    for (const Rule& rule : rules) play(rule, verdict);
    for (const RuleObject& object : table_.objects) {
      for (std::size_t c = 0; c < table_.columns.size(); ++c)
        verdict.left += object.before[c] != object.after[c] ? object.count : 0;
    }
    return verdict;
  }

  std::size_t size() const { return original_.size(); }
  RuleTable& table() { return table_; }

 private:
  void play(const Rule& rule, Verdict& verdict) {
    std::vector<ResultToken> tokens;
    for (const RuleResult& result : rule.results)
      tokens.push_back(tokenOf(table_.columns[result.column], result, rule.conditions));
    for (std::size_t i = 0; i < table_.objects.size(); ++i) {
      if (!matches(rule, (table_.seesBefore ? original_ : table_.objects)[i])) continue;
      for (const ResultToken& token : tokens) write(token, table_.objects[i], verdict);
    }
  }

  bool matches(const Rule& rule, const RuleObject& object) {
    const auto holds = [&](const RuleCondition& condition) {
      const int own = object.before[condition.column];
      return (own != RuleObject::kHasNone && fits(condition, own)) != condition.inverted;
    };
    if (!std::ranges::all_of(rule.conditions, holds)) return false;
    if (rule.texts.empty()) return true;
    const int text = object.before[table_.textColumn];
    return text != RuleObject::kHasNone &&
           std::ranges::find(rule.texts, base::exactPattern(valueText(text))) != rule.texts.end();
  }

  bool fits(const RuleCondition& condition, int value) {
    if (!table_.columns[condition.column].isName) return condition.value == valueText(value);
    std::unordered_map<int, bool>& known = fitting_[condition.value];
    const auto [at, isNew] = known.try_emplace(value);
    if (isNew) at->second = cad::Wildcard(condition.value).matches(valueText(value));
    return at->second;
  }

  void write(const ResultToken& token, RuleObject& object, Verdict& verdict) {
    int& value = object.before[token.column];
    if (value == RuleObject::kHasNone) return;
    const RuleColumn& info = table_.columns[token.column];
    const auto made = valueMade(info, token, valueText(value));
    if (!made) return;
    const int wanted = object.after[token.column];
    const bool isWanted = wanted != RuleObject::kHasNone && isSameValue(info, *made, valueText(wanted));
    const int becomes = isWanted ? wanted : number(*made);
    if (becomes == value) verdict.needless += object.count;
    value = becomes;
  }

  const std::wstring& valueText(int value) const { return table_.values[static_cast<std::size_t>(value)]; }
  int number(const std::wstring& value) {
    const auto [at, isNew] = numbers_.try_emplace(value, static_cast<int>(table_.values.size()));
    if (isNew) table_.values.push_back(value);
    return at->second;
  }

  RuleTable table_;
  const std::vector<RuleObject> original_;
  std::unordered_map<std::wstring, int> numbers_;
  std::map<std::wstring, std::unordered_map<int, bool>> fitting_;  // by pattern
};

class Simplifier {
 public:
  Simplifier(const RuleTable& table, std::vector<Rule> rules)
      : rehearsal_(table), rules_(std::move(rules)), now_(rehearsal_.play(rules_)) {}

  void run() {
    while (dropOne() || mergeTwo() || dropOneCondition()) {
    }
  }
  std::vector<Rule> takeRules() { return std::move(rules_); }
  RuleTable takeTable() {
    rehearsal_.play(rules_);
    return std::move(rehearsal_.table());
  }

 private:
  static bool areSame(const RuleCondition& a, const RuleCondition& b) {
    return a.column == b.column && a.inverted == b.inverted && a.value == b.value;
  }

  // The results of both under the conditions of `rule`; false: they contradict each other there.
  static bool addResults(const Rule& from, Rule& rule, const std::vector<RuleColumn>& columns) {
    for (const RuleResult& result : from.results) {
      const auto same = std::ranges::find(rule.results, result.column, &RuleResult::column);
      if (same != rule.results.end() && same->value != result.value) return false;
      const std::wstring asks = tokenOf(columns[result.column], result, from.conditions).asks;
      if (asks != tokenOf(columns[result.column], result, rule.conditions).asks) return false;
      if (same == rule.results.end()) rule.results.push_back(result);
    }
    std::ranges::stable_sort(rule.results, {}, &RuleResult::column);
    return true;
  }

  // A rule that a later or an earlier one makes needless.
  bool dropOne() {
    for (std::size_t r = 0; r < rules_.size(); ++r) {
      std::vector<Rule> rules = rules_;
      rules.erase(rules.begin() + static_cast<std::ptrdiff_t>(r));
      if (take(std::move(rules))) return true;
    }
    return false;
  }

  bool mergeTwo() {
    for (std::size_t i = 0; i < rules_.size(); ++i) {
      for (std::size_t j = i + 1; j < rules_.size(); ++j) {
        for (const auto& [kept, gone] : {std::pair(i, j), std::pair(j, i)}) {
          Rule merged = rules_[kept];
          if (!addResults(rules_[gone], merged, rehearsal_.table().columns)) continue;
          if (takeMerged(i, j, i, merged) || takeMerged(i, j, j, merged)) return true;
        }
      }
    }
    return false;
  }

  bool takeMerged(std::size_t i, std::size_t j, std::size_t at, const Rule& merged) {
    std::vector<Rule> rules = rules_;
    rules[at] = merged;
    rules.erase(rules.begin() + static_cast<std::ptrdiff_t>(at == i ? j : i));
    return take(std::move(rules));
  }

  bool dropOneCondition() {
    for (std::size_t r = 0; r < rules_.size(); ++r) {
      for (std::size_t c = rules_[r].conditions.size(); rules_[r].conditions.size() > 1 && c-- > 0;) {
        std::vector<Rule> rules = rules_;
        Rule& rule = rules[r];
        rule.conditions.erase(rule.conditions.begin() + static_cast<std::ptrdiff_t>(c));
        const bool isAsked = std::ranges::any_of(rule.results, [&](const RuleResult& result) {
          const RuleColumn& info = rehearsal_.table().columns[result.column];
          return tokenOf(info, result, rule.conditions).asks !=
                 tokenOf(info, result, rules_[r].conditions).asks;
        });
        if (!isAsked && take(std::move(rules))) return true;
      }
    }
    return false;
  }

  bool take(std::vector<Rule> rules) {
    steps_ += rules.size() * rehearsal_.size();
    if (steps_ > kMostSteps) return false;
    const Rehearsal::Verdict verdict = rehearsal_.play(rules);
    if (verdict.left > now_.left || verdict.needless > now_.needless) return false;
    now_ = verdict;
    rules_ = std::move(rules);
    return true;
  }

  Rehearsal rehearsal_;
  std::vector<Rule> rules_;
  Rehearsal::Verdict now_;
  std::size_t steps_ = 0;
};

}  // namespace

std::vector<Rule> simplified(RuleTable& table, std::vector<Rule> rules) {
  Simplifier simplifier(table, std::move(rules));
  simplifier.run();
  table = simplifier.takeTable();
  return simplifier.takeRules();
}

}  // namespace kivcli
