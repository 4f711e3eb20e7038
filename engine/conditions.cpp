#include "engine/conditions.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <optional>

#include "acutads.h"
#include "adscodes.h"
#include "base/fold.h"
#include "engine/dimension_variables.h"

namespace kiv {
namespace {

// --- Numbers

double toSixDecimals(double value) { return std::round(value * 1e6); }

// 0 <= result < 360, to six decimals.
double normalisedDegrees(double degrees) {
  double turned = std::fmod(degrees, 360.0);
  if (turned < 0) turned += 360.0;
  // Rounding can reach the full turn again (359.9999999).
  const double rounded = std::round(turned * 1e6) / 1e6;
  return rounded >= 360.0 ? 0.0 : rounded;
}

// --- The selection filter

constexpr int kOperator = -4;
constexpr int kColorGroup = 62;

void addTypes(BufferChain& filter, std::initializer_list<const wchar_t*> types) {
  filter.text(kOperator, L"<or");
  for (const wchar_t* type : types) filter.text(RTDXF0, type);
  filter.text(kOperator, L"or>");
}

void addEntityTypes(Pass pass, BufferChain& filter) {
  switch (pass) {
    case Pass::kText:
      return addTypes(filter, {L"TEXT", L"MTEXT", L"ATTDEF"});
    case Pass::kDimension:
      return addTypes(filter, {L"DIMENSION", L"LEADER"});
    case Pass::kHatch:
      filter.text(RTDXF0, L"HATCH");
      return;
    case Pass::kOther:
      // Leaders are left in on purpose: both the dimension pass and this one take them.
      filter.text(kOperator, L"<not");
      addTypes(filter, {L"TEXT", L"MTEXT", L"ATTDEF", L"DIMENSION", L"HATCH"});
      filter.text(kOperator, L"not>");
  }
}

void addItem(const FilterItem& item, BufferChain& filter) {
  if (!item.equal) filter.text(kOperator, L"<NOT");
  if (item.group == kColorGroup) {
    // Both ends of the range are no colours, so what does not fit selects nothing.
    using Limits = std::numeric_limits<short>;
    filter.integer(item.group, std::clamp<int>(item.number, Limits::min(), Limits::max()));
  } else {
    filter.text(item.group, item.text);
  }
  if (!item.equal) filter.text(kOperator, L"NOT>");
}

// --- The tests

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

bool equalValues(const DimensionValue& a, const DimensionValue& b) {
  if (a.index() != b.index()) return false;
  if (const auto* number = std::get_if<double>(&a)) return equalNumbers(*number, std::get<double>(b));
  return base::equalFolded(std::get<std::wstring>(a), std::get<std::wstring>(b));
}

bool matchesAny(const std::wstring& text, const std::vector<std::wstring>& patterns) {
  for (const std::wstring& pattern : patterns) {
    if (acutWcMatch(text.c_str(), pattern.c_str()) == RTNORM) return true;
  }
  return false;
}

}  // namespace

bool equalNumbers(double a, double b) { return toSixDecimals(a) == toSixDecimals(b); }

bool equalAngles(double a, double b) { return equalNumbers(normalisedDegrees(a), normalisedDegrees(b)); }

void buildSelectionFilter(Pass pass, std::span<const FilterItem> items, BufferChain& filter) {
  if (items.empty()) return addEntityTypes(pass, filter);
  filter.text(kOperator, L"<and");
  addEntityTypes(pass, filter);
  for (const FilterItem& item : items) addItem(item, filter);
  filter.text(kOperator, L"and>");
}

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
      textStyles_(conditions.textStyles, names) {}

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
      matches = value && condition.value && equalValues(*value, *condition.value);
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
