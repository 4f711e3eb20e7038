#pragma once
// The conditions that tell the objects which need a result from those that it would harm.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/specifications/object_set.h"
#include "cli/specifications/rule_search.h"

namespace kivcli {

struct Feature {
  RuleCondition condition;
  ObjectSet holds;
  int cost = 0;  // the plainer the cheaper
};

struct FoundConditions {
  std::vector<RuleCondition> conditions;
  ObjectSet matched;
  std::size_t gain = 0;  // objects that get what they need
  int cost = 0;

  bool isBetterThan(const FoundConditions& other) const {
    return gain != other.gain ? gain > other.gain : cost < other.cost;
  }
};

class ConditionSearch {
 public:
  // `seen`: the objects as conditions see them. Both must outlive it.
  ConditionSearch(const RuleTable& table, const std::vector<RuleObject>& seen);

  // What holds for that object, and not for all; its layer, too, where all are on it.
  std::vector<Feature> featuresOf(std::size_t object) const;
  struct Task {
    explicit Task(std::size_t objects)
        : needs(objects), right(objects), welcome(objects), exceptions(objects) {}
    ObjectSet needs;       // the result, of these as many as possible
    ObjectSet right;       // with it; nothing else may be met
    ObjectSet welcome;     // among these: who needed it in the beginning, or cannot have it
    ObjectSet exceptions;  // among these: who is to have something else, and is met with many others only
    std::optional<RuleCondition> asked;  // that must be among the conditions
  };
  std::optional<FoundConditions> best(const std::vector<Feature>& features, const Task& task) const;

 private:
  struct Combination;
  struct Partial {
    std::vector<std::size_t> features;
    ObjectSet matched;
    int cost = 0;
  };

  int seen(std::size_t object, std::size_t column) const { return seen_[object].before[column]; }
  const std::wstring& text(int value) const { return table_.values[static_cast<std::size_t>(value)]; }
  bool canAskFor(int value) const { return writable_[static_cast<std::size_t>(value)]; }
  Feature feature(std::size_t column, bool inverted, std::wstring value, const std::vector<bool>& matches,
                  int cost) const;
  std::map<int, std::size_t> valuesSeen(std::size_t column) const;
  std::wstring asCondition(std::size_t column, const std::wstring& value) const;
  void addPatterns(std::size_t column, const std::wstring& name, const std::map<int, std::size_t>& values,
                   std::vector<Feature>& features) const;
  void addInverted(std::size_t column, int own, const std::map<int, std::size_t>& values,
                   std::vector<Feature>& features) const;
  std::size_t gainOf(const ObjectSet& matched, const ObjectSet& needs) const;
  void take(Combination& state, const Partial& complete) const;
  void combine(Combination& state, const Partial& so, std::size_t from, std::size_t most) const;

  const RuleTable& table_;
  const std::vector<RuleObject>& seen_;
  std::vector<bool> writable_;  // by value
};

}  // namespace kivcli
