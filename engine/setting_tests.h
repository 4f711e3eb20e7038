#pragma once
// A setting's conditions held against entities: a chain of filters, one per kind of condition.

#include <unordered_map>

#include "engine/compiled_setting.h"
#include "engine/entity_class.h"
#include "engine/symbol_names.h"

namespace kiv {

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
  bool needsEntity() const { return needsEntity_; }
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
  bool needsEntity_;
};

}  // namespace kiv
