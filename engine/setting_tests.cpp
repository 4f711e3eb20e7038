#include "engine/setting_tests.h"

#include <optional>

#include "acutads.h"
#include "adscodes.h"
#include "engine/dimension_variables.h"
#include "engine/entity_properties.h"
#include "engine/numeric_compare.h"
#include "engine/record_filter.h"

namespace kiv {
namespace {

template <class T, class Matches>
bool passes(const ConditionValues<T>& values, Matches&& matches) {
  return passesValues(std::span<const ConditionValue<T>>(values),
                      [&](const ConditionValue<T>& value) { return matches(value.value); });
}

// A property that the entity does not have matches nothing.
template <class Equal>
bool passesNumber(const ConditionValues<double>& values, const std::optional<double>& property,
                  Equal&& equal) {
  return passes(values, [&](double value) { return property && equal(*property, value); });
}

bool matchesAny(const std::wstring& text, const std::vector<std::wstring>& patterns) {
  for (const std::wstring& pattern : patterns) {
    if (acutWcMatch(text.c_str(), pattern.c_str()) == RTNORM) return true;
  }
  return false;
}

}  // namespace

RecordSummary summaryOf(const AcDbEntity& entity) {
  return {entity.layerId(), entity.linetypeId(), entity.colorIndex()};
}

bool SettingTests::NameVerdicts::decide(AcDbObjectId id) {
  const std::wstring& name = names_.of(id).folded;
  return kiv::passes(patterns_, [&](const std::wstring& pattern) {
    return !id.isNull() && acutWcMatch(name.c_str(), pattern.c_str()) == RTNORM;
  });
}

bool SettingTests::NameVerdicts::passes(AcDbObjectId id) {
  if (patterns_.empty()) return true;
  if (id.asOldId() == lastId_) return lastVerdict_;
  const auto [entry, isNew] = verdicts_.try_emplace(id.asOldId(), false);
  if (isNew) entry->second = decide(id);
  lastId_ = id.asOldId();
  return lastVerdict_ = entry->second;
}

SettingTests::SettingTests(const CompiledConditions& conditions, SymbolNames& names)
    : conditions_(conditions),
      names_(names),
      layers_(conditions.layers, names),
      linetypes_(conditions.linetypes, names),
      textStyles_(conditions.textStyles, names),
      needsEntity_(!conditions.textStyles.empty() || !conditions.heights.empty() ||
                   !conditions.angles.empty() || !conditions.widthFactors.empty() ||
                   !conditions.linetypeScales.empty() || !conditions.lineWeights.empty() ||
                   !conditions.transparencies.empty() || !conditions.textLists.empty() ||
                   !conditions.variables.empty()) {}

bool SettingTests::passesSummary(const RecordSummary& summary) {
  return layers_.passes(summary.layer) && linetypes_.passes(summary.linetype) &&
         kiv::passes(conditions_.colors, [&](int color) { return color == summary.color; });
}

bool SettingTests::passesEntity(const AcDbEntity& entity, EntityClass entityClass) {
  if (!conditions_.textStyles.empty() && !textStyles_.passes(textStyleOf(entity, entityClass))) return false;
  return passesText(entity, entityClass) && passesDrawn(entity) && passesVariables(entity, entityClass) &&
         passesTextLists(entity, entityClass);
}

bool SettingTests::passesText(const AcDbEntity& entity, EntityClass entityClass) const {
  const CompiledConditions& c = conditions_;
  if (!c.heights.empty() && !passesNumber(c.heights, textHeightOf(entity, entityClass), equalNumbers)) {
    return false;
  }
  if (!c.angles.empty() && !passesNumber(c.angles, textAngleOf(entity, entityClass), equalAngles)) {
    return false;
  }
  return c.widthFactors.empty() ||
         passesNumber(c.widthFactors, widthFactorOf(entity, entityClass), equalNumbers);
}

bool SettingTests::passesDrawn(const AcDbEntity& entity) const {
  const CompiledConditions& c = conditions_;
  if (!c.lineWeights.empty()) {
    const int weight = entity.lineWeight();
    if (!kiv::passes(c.lineWeights, [&](int value) { return value == weight; })) return false;
  }
  if (!c.transparencies.empty()) {
    const Transparency transparency = transparencyOf(entity.transparency());
    if (!kiv::passes(c.transparencies, [&](const Transparency& value) { return value == transparency; })) {
      return false;
    }
  }
  return c.linetypeScales.empty() || passesNumber(c.linetypeScales, entity.linetypeScale(), equalNumbers);
}

bool SettingTests::passesVariables(const AcDbEntity& entity, EntityClass entityClass) {
  const bool isLeader = entityClass == EntityClass::kLeader;
  const bool hasVariables = isLeader || entityClass == EntityClass::kDimension;
  for (const VariableCondition& condition : conditions_.variables) {
    bool matches = false;
    if (hasVariables) {
      const auto value = dimensionVariable(entity, isLeader, condition.variable, names_);
      matches = value && condition.value && equalDimensionValues(*value, *condition.value);
    }
    if (matches != condition.equal) return false;
  }
  return true;
}

bool SettingTests::passesTextLists(const AcDbEntity& entity, EntityClass entityClass) const {
  if (conditions_.textLists.empty()) return true;
  const auto text = textOf(entity, entityClass);
  return kiv::passes(conditions_.textLists, [&](const std::vector<std::wstring>& patterns) {
    return text && matchesAny(*text, patterns);
  });
}

}  // namespace kiv
