#pragma once
// A setting's conditions: as the host's selection filter, and held against entities by a chain of tests, one
// for each kind of condition.

#include <span>
#include <unordered_map>

#include "engine/compiled_setting.h"
#include "engine/entity_properties.h"
#include "engine/host_access.h"

namespace kiv {

// The one rule by which every list of condition values keeps or drops an object.
// `Value` has a member `equal`: true when the property must equal the value, false when it must differ.
// The first value that matches decides by its sense. When none matches, the object is kept only if the
// last value is inverted; with mixed senses the last one decides on purpose. No values keep everything.
template <class Value, class Matches>
bool passesValues(std::span<const Value> values, Matches&& matches) {
  if (values.empty()) return true;
  for (const Value& value : values) {
    if (matches(value)) return value.equal;
  }
  return !values.back().equal;
}

// When two numbers count as equal: a value typed by a person and one that a drawing keeps in binary.
// To six decimals.
bool equalNumbers(double a, double b);
// Angles in degrees, equal when they point the same way: 360 is 0, -90 is 270.
bool equalAngles(double a, double b);

// The pass's entity types, and inside "<and" with them every item, an inverted one inside "<NOT".
void buildSelectionFilter(Pass pass, std::span<const FilterItem> items, BufferChain& filter);

// What the first filters read of an entity.
struct RecordSummary {
  AcDbObjectId layer;
  AcDbObjectId linetype;
  int color = 256;
};
RecordSummary summaryOf(const AcDbEntity& entity);

class SettingTests {
 public:
  // Both must outlive the tests.
  SettingTests(const CompiledConditions& conditions, SymbolNames& names);

  // Layer, linetype and colour.
  bool passesSummary(const RecordSummary& summary);
  // False: the summary decides alone.
  bool needsEntity() const { return conditions_.needsEntity; }
  // Everything else; the text search lists last.
  bool passesEntity(const AcDbEntity& entity, EntityClass entityClass);

 private:
  // A name is matched once per table record and not once per entity.
  class NameVerdicts {
   public:
    NameVerdicts(const ConditionValues<std::wstring>& patterns, SymbolNames& names)
        : patterns_(patterns), names_(names) {}
    bool passes(AcDbObjectId id);

   private:
    bool decide(AcDbObjectId id);

    const ConditionValues<std::wstring>& patterns_;
    SymbolNames& names_;
    std::unordered_map<Adesk::Int64, bool> verdicts_;
    Adesk::Int64 lastId_ = -1;
    bool lastVerdict_ = false;
  };

  bool passesText(const AcDbEntity& entity, EntityClass entityClass) const;
  bool passesDrawn(const AcDbEntity& entity) const;
  bool passesVariables(const AcDbEntity& entity, EntityClass entityClass);
  bool passesTextLists(const AcDbEntity& entity, EntityClass entityClass) const;

  const CompiledConditions& conditions_;
  SymbolNames& names_;
  NameVerdicts layers_, linetypes_, textStyles_;
};

}  // namespace kiv
