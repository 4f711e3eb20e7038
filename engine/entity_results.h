#pragma once
// A setting's results, prepared once and then written to every entity that the setting keeps.

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/compiled_setting.h"
#include "engine/entity_properties.h"
#include "engine/host_access.h"
#include "engine/problems.h"
#include "engine/run_observer.h"

namespace kiv {

using RefusalCounts = std::array<int, kRefusalCount>;

// A layer result depends on the entity's layer when it holds wildcards.
struct TargetLayer {
  AcDbObjectId id;  // null: no such layer
  std::wstring name;
  RefusalCounts refused{};
};

struct PreparedResult {
  const ResultItem* item = nullptr;
  double number = 0;  // angles in radians
  HeightValue height;
  int integer = 0;  // colour index, lineweight
  AcDbObjectId id;  // linetype, text style; null: the drawing has none of that name
  AcCmTransparency transparency;
  std::optional<DimensionValue> variable;  // nothing: the text is no value of the dimension variable
  std::unordered_map<Adesk::Int64, TargetLayer> layers;  // by the id of the entity's layer
  RefusalCounts refused{};
};

class EntityResults {
 public:
  // All must outlive the results.
  EntityResults(const CompiledSetting& setting, AcDbDatabase& database, SymbolNames& names);

  bool empty() const { return results_.empty(); }

  // Writes every result to an entity that is open for write. A refused result leaves the others applied.
  void apply(AcDbEntity& entity, EntityClass entityClass, const KivRunObserver* observer = nullptr);

  // Tells the sink of every refusal.
  void reportRefusals(ProblemSink& sink) const;
  // The log counts these.
  int refusedTransparencies() const;

 private:
  PreparedResult prepare(const ResultItem& item) const;
  Acad::ErrorStatus write(AcDbEntity& entity, EntityClass entityClass, PreparedResult& result) const;
  Acad::ErrorStatus setLayer(AcDbEntity& entity, PreparedResult& result) const;
  std::wstring renamedLayer(const std::wstring& from, const std::wstring& to) const;

  const CompiledSetting& setting_;
  AcDbDatabase& database_;
  SymbolNames& names_;
  std::vector<PreparedResult> results_;
};

}  // namespace kiv
