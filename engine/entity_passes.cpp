#include "engine/entity_passes.h"

#include <array>
#include <map>
#include <optional>

#include "base/files.h"
#include "dbobjptr.h"
#include "engine/compiled_setting.h"
#include "engine/entity_results.h"
#include "engine/messages.h"
#include "engine/selection_filter.h"
#include "engine/selection_set.h"
#include "engine/setting_tests.h"
#include "platform/progress_meter.h"
#include "spec/text_search_list.h"

namespace kiv {
namespace {

constexpr std::array<const wchar_t*, 4> kPassLabels = {L"文字", L"寸法", L"ﾊｯﾁﾝｸﾞ", L"その他の図形"};

constexpr std::size_t kFromSelection = static_cast<std::size_t>(-1);

class EntityPasses {
 public:
  EntityPasses(RunState& run, BlockScope scope) : run_(run), scope_(scope) {}

  void runPass(Pass pass) {
    const auto index = static_cast<std::size_t>(pass);
    const std::vector<std::wstring>& settings = run_.list(index);
    if (settings.empty()) return;
    locked_ = failed_ = 0;
    const std::wstring label = kPassLabels[index];
    const int count = static_cast<int>(settings.size());
    startMeter(label + L"を変換中", count);
    for (int i = 0; i < count; ++i) {
      moveMeter(i);
      runSetting(pass, settings[static_cast<std::size_t>(i)]);
    }
    if (locked_ > 0) run_.problems.addProblem(lockedProblem(label, locked_));
    if (failed_ > 0) run_.problems.addToLog(failedProblem(label, failed_));
  }

 private:
  struct Kept {
    AcDbObjectId id;
    std::size_t record;  // index of the work record from the block walk, or kFromSelection
  };

  void runSetting(Pass pass, const std::wstring& flatSetting) {
    const CompiledSetting setting =
        compileSetting(flatSetting, pass, [this](const std::wstring& name) { return textList(name); });
    if (!setting.conditions.canBeTested) return;
    EntityResults results(setting, run_.database, run_.names);
    if (results.empty()) return;
    SettingTests tests(setting.conditions, run_.names);
    kept_.clear();
    keepBlockRecords(tests);
    keepSelected(pass, setting, tests);
    for (const Kept& kept : kept_) apply(kept, pass, results);
    results.reportRefusals(run_.problems);
    failed_ += results.refusedTransparencies();
  }

  void keepBlockRecords(SettingTests& tests) {
    if (!blockRecords_) blockRecords_ = collectBlockRecords(run_.database, scope_);
    for (std::size_t i = 0; i < blockRecords_->size(); ++i) {
      const WorkRecord& record = (*blockRecords_)[i];
      if (!tests.passesSummary(record.summary)) continue;
      if (!tests.needsEntity() || passesOpened(record.id, tests)) kept_.push_back({record.id, i});
    }
  }

  void keepSelected(Pass pass, const CompiledSetting& setting, SettingTests& tests) {
    BufferChain filter;
    buildSelectionFilter(pass, setting.conditions.filter, filter);
    const SelectionSet selected(filter);
    if (selected.isRefused()) run_.tell(selectionProblem(kPassLabels[static_cast<std::size_t>(pass)]));
    for (int i = 0; i < selected.size(); ++i) {
      const AcDbObjectId id = selected.at(i);
      // The filter has tested all that a summary holds.
      if (!tests.needsEntity() || passesOpened(id, tests)) kept_.push_back({id, kFromSelection});
    }
  }

  bool passesOpened(AcDbObjectId id, SettingTests& tests) {
    const AcDbEntityPointer entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk && tests.passesEntity(*entity, classes_.of(*entity));
  }

  void apply(const Kept& kept, Pass pass, EntityResults& results) {
    const bool maybeReference = pass == Pass::kOther && kept.record == kFromSelection;
    AcDbEntityPointer entity(kept.id, AcDb::kForWrite);
    const Acad::ErrorStatus status = entity.openStatus();
    if (status != Acad::eOk) {
      const bool counts = !maybeReference || !isReference(kept.id);
      if (counts) ++(status == Acad::eOnLockedLayer ? locked_ : failed_);
      return;
    }
    const EntityClass entityClass = classes_.of(*entity);
    // Block references come in by the block scope and not by selection.
    if (maybeReference && entityClass == EntityClass::kBlockReference) return;
    results.apply(*entity, entityClass);
    if (kept.record != kFromSelection) (*blockRecords_)[kept.record].summary = summaryOf(*entity);
  }

  bool isReference(AcDbObjectId id) {
    const AcDbEntityPointer entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk && classes_.of(*entity) == EntityClass::kBlockReference;
  }

  std::optional<std::vector<std::wstring>> textList(const std::wstring& name) {
    const auto [entry, isNew] = textLists_.try_emplace(name);
    if (isNew) entry->second = loadTextList(name);
    return entry->second;
  }

  std::optional<std::vector<std::wstring>> loadTextList(const std::wstring& name) {
    const std::wstring path = base::pathText(run_.specificationFolder / base::pathFromText(name));
    auto loaded = loadTextSearchList(run_.specificationFolder, name);
    if (!loaded.ok()) {
      run_.tell(textListProblem(path, loaded.failure().reason));
      return std::nullopt;
    }
    if (loaded.value().isCut) run_.tell(cutTextListProblem(path, kTextSearchListCapacity));
    return std::move(loaded.value().texts);
  }

  RunState& run_;
  BlockScope scope_;
  EntityClasses classes_;
  std::optional<std::vector<WorkRecord>> blockRecords_;
  std::map<std::wstring, std::optional<std::vector<std::wstring>>> textLists_;
  std::vector<Kept> kept_;
  int locked_ = 0, failed_ = 0;  // of the current pass
};

}  // namespace

void runEntityPasses(RunState& run, BlockScope scope) {
  EntityPasses passes(run, scope);
  for (const Pass pass : {Pass::kText, Pass::kDimension, Pass::kHatch, Pass::kOther}) passes.runPass(pass);
}

}  // namespace kiv
