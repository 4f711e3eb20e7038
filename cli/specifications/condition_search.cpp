#include "cli/specifications/condition_search.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/wildcard_characters.h"
#include "cli/specifications/rule_results.h"

namespace kivcli {
namespace {

constexpr std::size_t kMostConditions = 4;
constexpr std::size_t kMostExcluded = 40;            // values that inverted conditions are tried with
constexpr std::size_t kTried[] = {0, 0, 0, 40, 20};  // conditions that are combined, by how many

// A value of one property is plainest, that of a layer above all; a rule for everything comes next where
// everything needs it, and behind all values where it would reach what has no need.
constexpr int kValue = 100, kEverything = 101, kAnyName = 120, kPattern = 130, kTooMuch = 150,
              kInverted = 160;

// What only many conditions single out may be so by accident.
bool isWorth(std::size_t gain, std::size_t conditions) {
  return gain >= std::max<std::size_t>(conditions, 2) - 1;
}

}  // namespace

struct ConditionSearch::Combination {
  const std::vector<Feature>& features;
  const Task& task;
  std::vector<std::size_t> order;
  std::optional<FoundConditions> best;
};

ConditionSearch::ConditionSearch(const RuleTable& table, const std::vector<RuleObject>& seen)
    : table_(table), seen_(seen) {
  for (const std::wstring& value : table.values) writable_.push_back(isWritable(value));
}

Feature ConditionSearch::feature(std::size_t column, bool inverted, std::wstring value,
                                 const std::vector<bool>& matches, int cost) const {
  Feature made{
      {column, inverted, std::move(value)}, ObjectSet(seen_.size()), cost + static_cast<int>(column)};
  for (std::size_t i = 0; i < seen_.size(); ++i) {
    const int own = seen(i, column);
    const bool is = own != RuleObject::kHasNone && matches[static_cast<std::size_t>(own)];
    if (is != inverted) made.holds.add(i);
  }
  return made;
}

std::map<int, std::size_t> ConditionSearch::valuesSeen(std::size_t column) const {
  std::map<int, std::size_t> counts;
  for (std::size_t i = 0; i < seen_.size(); ++i)
    if (seen(i, column) != RuleObject::kHasNone) counts[seen(i, column)] += seen_[i].count;
  return counts;
}

std::wstring ConditionSearch::asCondition(std::size_t column, const std::wstring& value) const {
  return table_.columns[column].isName ? base::exactPattern(value) : value;
}

std::vector<Feature> ConditionSearch::featuresOf(std::size_t object) const {
  std::vector<Feature> features;
  for (std::size_t column = 0; column < table_.columns.size(); ++column) {
    if (!table_.columns[column].canAsk() || column == table_.textColumn) continue;
    const auto values = valuesSeen(column);
    const int own = seen(object, column);
    if (own != RuleObject::kHasNone && canAskFor(own)) {
      std::vector<bool> matches(table_.values.size());
      matches[static_cast<std::size_t>(own)] = true;
      features.push_back(feature(column, false, asCondition(column, text(own)), matches, kValue));
      if (table_.columns[column].isName) addPatterns(column, text(own), values, features);
    }
    if (own != RuleObject::kHasNone && table_.columns[column].isName)
      features.push_back(
          feature(column, false, L"*", std::vector<bool>(table_.values.size(), true), kAnyName));
    if (values.size() <= kMostExcluded) addInverted(column, own, values, features);
  }
  std::erase_if(features, [](const Feature& f) {
    const bool isLayer = f.condition.column == 0 && f.cost == kValue && f.condition.value != L"0";
    return f.holds.isEverything() && !isLayer;
  });
  return features;
}

void ConditionSearch::addInverted(std::size_t column, int own, const std::map<int, std::size_t>& values,
                                  std::vector<Feature>& features) const {
  for (const auto& [other, count] : values) {
    if (other == own || !canAskFor(other)) continue;
    std::vector<bool> matches(table_.values.size());
    matches[static_cast<std::size_t>(other)] = true;
    features.push_back(feature(column, true, asCondition(column, text(other)), matches, kInverted));
  }
}

// Those that several names share; of equal ones the one that says most.
void ConditionSearch::addPatterns(std::size_t column, const std::wstring& name,
                                  const std::map<int, std::size_t>& values,
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
    const std::wstring pattern = isHead ? base::exactPattern(part) + L"*" : L"*" + base::exactPattern(part);
    features.push_back(feature(column, false, pattern, matches, kPattern));
  };
  for (std::size_t length = name.size(); length-- > 1;) add(name.substr(0, length), true);
  for (std::size_t from = 1; from < name.size(); ++from) add(name.substr(from), false);
}

std::size_t ConditionSearch::gainOf(const ObjectSet& matched, const ObjectSet& needs) const {
  return (matched & needs).count([this](std::size_t i) { return table_.objects[i].count; });
}

std::optional<FoundConditions> ConditionSearch::best(const std::vector<Feature>& features,
                                                     const Task& task) const {
  Combination state{features, task, {}, {}};
  Partial start{{}, ObjectSet(seen_.size(), true), 0};
  for (std::size_t f = 0; f < features.size(); ++f) {
    state.order.push_back(f);
    const RuleCondition& condition = features[f].condition;
    const bool isAsked = task.asked && condition.column == task.asked->column && !condition.inverted &&
                         condition.value == task.asked->value;
    if (isAsked) start = {{f}, features[f].holds, features[f].cost};
  }
  if (task.asked && start.features.empty()) return std::nullopt;
  // Which conditions leave least of what would be harmed is tried first.
  std::vector<std::size_t> harm(features.size());
  for (std::size_t f = 0; f < features.size(); ++f)
    harm[f] = features[f].holds.count(
        [&](std::size_t i) { return task.right[i] ? std::size_t{0} : std::size_t{1}; });
  std::ranges::stable_sort(state.order, {},
                           [&](std::size_t f) { return std::pair(harm[f], features[f].cost); });
  for (std::size_t most = start.features.size(); most <= kMostConditions; ++most) {
    combine(state, start, 0, most);
    // More conditions can only match less; a rule of few is worth more than a few more objects.
    if (state.best && most >= 2) break;
  }
  return state.best;
}

void ConditionSearch::take(Combination& state, const Partial& complete) const {
  if (!complete.matched.isSubsetOf(state.task.right)) return;
  FoundConditions found{{}, complete.matched, gainOf(complete.matched, state.task.needs), complete.cost};
  if (complete.features.empty())
    found.cost = complete.matched.isSubsetOf(state.task.welcome) ? kEverything : kTooMuch;
  const bool hasTooManyExceptions = 2 * gainOf(complete.matched, state.task.exceptions) >= found.gain;
  if (hasTooManyExceptions || !isWorth(found.gain, complete.features.size()) ||
      (state.best && !found.isBetterThan(*state.best)))
    return;
  for (const std::size_t f : complete.features) found.conditions.push_back(state.features[f].condition);
  state.best = std::move(found);
}

void ConditionSearch::combine(Combination& state, const Partial& so, std::size_t from,
                              std::size_t most) const {
  if (so.features.size() == most) return take(state, so);
  const std::size_t limit =
      most < 3 ? state.order.size() : std::min(state.order.size(), kTried[std::min(most, kMostConditions)]);
  for (std::size_t at = from; at < limit; ++at) {
    const Feature& feature = state.features[state.order[at]];
    // Several conditions of one key are alternatives to some objects.
    const auto isSameColumn = [&](std::size_t other) {
      return state.features[other].condition.column == feature.condition.column;
    };
    if (std::ranges::any_of(so.features, isSameColumn)) continue;
    Partial next{so.features, so.matched & feature.holds, so.cost + feature.cost};
    next.features.push_back(state.order[at]);
    const std::size_t gain = gainOf(next.matched, state.task.needs);
    if (gain > 0 && (!state.best || gain >= state.best->gain)) combine(state, next, at + 1, most);
  }
}

}  // namespace kivcli
