// The four passes over the drawing's entities: those that selections give, and the block references with the
// entities of their definitions, which no selection gives.

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <unordered_set>

#include "adscodes.h"
#include "base/files.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "engine/conditions.h"
#include "engine/entity_results.h"
#include "engine/setting_observation.h"
#include "engine/stages.h"
#include "platform/host_output.h"
#include "platform/host_variables.h"
#include "spec/text_search_list.h"

namespace kiv {
namespace {

struct WorkRecord {
  AcDbObjectId id;
  RecordSummary summary;  // kept up to date by whoever writes to the entity
};

AcDbObjectId currentSpace(AcDbDatabase& database) {
  const bool inModel = integerVariable(L"TILEMODE").value_or(1) != 0;
  AcDbBlockTablePointer table(&database, AcDb::kForRead);
  AcDbObjectId space;
  if (table.openStatus() == Acad::eOk) table->getAt(inModel ? ACDB_MODEL_SPACE : ACDB_PAPER_SPACE, space);
  return space;
}

// References as they stand, the entities of their definitions, or both. A definition counts once, however
// many references lead to it and however deep; references inside definitions are expanded and are no
// records themselves.
class BlockWalk {
 public:
  BlockWalk(AcDbDatabase& database, BlockScope scope) : space_(currentSpace(database)), scope_(scope) {}

  std::vector<WorkRecord> run() {
    // The host finds the references faster than a walk over every entity of the space would.
    BufferChain filter;
    filter.text(RTDXF0, L"INSERT");
    const SelectionSet references(filter);
    for (int i = 0; i < references.size(); ++i) takeReference(references.at(i));
    // Not by recursion: a drawing decides how deep its blocks are nested.
    while (!pending_.empty()) {
      const AcDbObjectId block = pending_.back();
      pending_.pop_back();
      expand(block);
    }
    return std::move(records_);
  }

 private:
  void takeReference(AcDbObjectId id) {
    AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
    if (reference.openStatus() != Acad::eOk || reference->blockId() != space_) return;
    if (scope_ != BlockScope::kDefinitions) records_.push_back({id, summaryOf(*reference.object())});
    if (scope_ != BlockScope::kReferences) enqueue(reference->blockTableRecord());
  }

  void enqueue(AcDbObjectId block) {
    if (visited_.insert(block.asOldId()).second) pending_.push_back(block);
  }

  void expand(AcDbObjectId id) {
    AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
    AcDbBlockTableRecordIterator* made = nullptr;
    if (block.openStatus() != Acad::eOk || block->newIterator(made) != Acad::eOk) {
      printOnCommandLine(L"\nCannot open block table record!");
      return;
    }
    // The entities of a space are selected in their own right.
    const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
    if (block->isLayout()) return;
    for (; !entities->done(); entities->step()) takeEntity(*entities);
  }

  void takeEntity(const AcDbBlockTableRecordIterator& at) {
    AcDbEntity* opened = nullptr;
    if (at.getEntity(opened, AcDb::kForRead) != Acad::eOk) return;
    AcDbObjectPointer<AcDbEntity> entity;
    entity.acquire(opened);
    if (classes_.of(*entity.object()) == EntityClass::kBlockReference) {
      enqueue(static_cast<AcDbBlockReference*>(entity.object())->blockTableRecord());
    } else {
      records_.push_back({entity->objectId(), summaryOf(*entity.object())});
    }
  }

  AcDbObjectId space_;
  BlockScope scope_;
  EntityClasses classes_;
  std::vector<WorkRecord> records_;
  std::unordered_set<Adesk::Int64> visited_;
  std::vector<AcDbObjectId> pending_;
};

const wchar_t* labelOf(Pass pass) { return section(sectionOf(pass)).name; }

constexpr std::size_t kFromSelection = static_cast<std::size_t>(-1);

class EntityPasses {
 public:
  EntityPasses(RunState& run, BlockScope scope) : run_(run), scope_(scope) {}

  void runPass(Pass pass) {
    const std::vector<std::wstring>& settings = run_.list(sectionOf(pass));
    if (settings.empty()) return;
    locked_ = failed_ = 0;
    const std::wstring label = labelOf(pass);
    const int count = static_cast<int>(settings.size());
    startMeter(label + L"を変換中", count);
    for (int i = 0; i < count; ++i) {
      moveMeter(i);
      runSetting(pass, i + 1, settings[static_cast<std::size_t>(i)]);
    }
    if (locked_ > 0) run_.problems.addProblem(lockedProblem(label, locked_));
    if (failed_ > 0) run_.problems.addToLog(failedProblem(label, failed_));
  }

 private:
  struct Kept {
    AcDbObjectId id;
    std::size_t record;  // index of the work record from the block walk, or kFromSelection
  };

  void runSetting(Pass pass, int number, const std::wstring& flatSetting) {
    const CompiledSetting setting = compileSetting(flatSetting, pass, textLists());
    const std::unique_ptr<ObservedSetting> observed = observe(pass, number, flatSetting, setting);
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

  TextListLoader textLists() {
    return [this](const std::wstring& name) { return textList(name); };
  }

  // What the setting says, and how each of the pass's entities stands to its conditions. Null: nobody looks
  // on.
  std::unique_ptr<ObservedSetting> observe(Pass pass, int number, const std::wstring& flatSetting,
                                           const CompiledSetting& setting) {
    if (run_.observer == nullptr) return nullptr;
    std::vector<std::wstring> results;
    for (const ResultItem& item : setting.results) results.push_back(item.key + L"=" + item.value);
    auto observed = std::make_unique<ObservedSetting>(run_.observer, sectionOf(pass), number, flatSetting,
                                                      parseFlatSetting(flatSetting).conditions, results);
    if (run_.observer->objectTested == nullptr) return observed;
    ObservedConditions conditions(flatSetting, pass, textLists(), run_.names);
    for (const WorkRecord& record : blockRecords()) observeTest(record.id, conditions, pass, false);
    BufferChain filter;
    buildSelectionFilter(pass, {}, filter);
    const SelectionSet all(filter);
    for (int i = 0; i < all.size(); ++i) observeTest(all.at(i), conditions, pass, true);
    return observed;
  }

  void observeTest(AcDbObjectId id, ObservedConditions& conditions, Pass pass, bool isSelected) {
    const AcDbEntityPointer entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return;
    const EntityClass entityClass = classes_.of(*entity.object());
    const bool isReference = entityClass == EntityClass::kBlockReference;
    if (isSelected && isReference && pass == Pass::kOther) return;
    conditions.test(*entity.object(), entityClass, isSelected, *run_.observer);
  }

  std::vector<WorkRecord>& blockRecords() {
    if (!blockRecords_) blockRecords_ = BlockWalk(run_.database, scope_).run();
    return *blockRecords_;
  }

  void keepBlockRecords(SettingTests& tests) {
    for (std::size_t i = 0; i < blockRecords().size(); ++i) {
      const WorkRecord& record = (*blockRecords_)[i];
      if (!tests.passesSummary(record.summary)) continue;
      if (!tests.needsEntity() || passesOpened(record.id, tests)) kept_.push_back({record.id, i});
    }
  }

  void keepSelected(Pass pass, const CompiledSetting& setting, SettingTests& tests) {
    BufferChain filter;
    buildSelectionFilter(pass, setting.conditions.filter, filter);
    const SelectionSet selected(filter);
    if (selected.isRefused()) run_.tell(selectionProblem(labelOf(pass)));
    for (int i = 0; i < selected.size(); ++i) {
      const AcDbObjectId id = selected.at(i);
      // The filter has tested all that a summary holds.
      if (!tests.needsEntity() || passesOpened(id, tests)) kept_.push_back({id, kFromSelection});
    }
  }

  bool passesOpened(AcDbObjectId id, SettingTests& tests) {
    const AcDbEntityPointer entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk &&
           tests.passesEntity(*entity.object(), classes_.of(*entity.object()));
  }

  void apply(const Kept& kept, Pass pass, EntityResults& results) {
    const bool maybeReference = pass == Pass::kOther && kept.record == kFromSelection;
    AcDbEntityPointer entity(kept.id, AcDb::kForWrite);
    const Acad::ErrorStatus status = entity.openStatus();
    if (status != Acad::eOk) {
      const bool counts = !maybeReference || !isReference(kept.id);
      if (!counts) return;
      ++(status == Acad::eOnLockedLayer ? locked_ : failed_);
      tellHit(kept.id, status == Acad::eOnLockedLayer ? kKivHitLocked : kKivHitRefused);
      return;
    }
    const EntityClass entityClass = classes_.of(*entity.object());
    // Block references come in by the block scope and not by selection.
    if (maybeReference && entityClass == EntityClass::kBlockReference) return;
    tellHit(kept.id, kKivHit);
    results.apply(*entity.object(), entityClass, run_.observer);
    if (kept.record != kFromSelection) (*blockRecords_)[kept.record].summary = summaryOf(*entity.object());
  }

  void tellHit(AcDbObjectId id, KivObservedHit hit) const {
    if (run_.observer == nullptr) return;
    const KivObservedObject object{id.asOldId()};
    run_.observer->objectHit(run_.observer->context, &object, hit);
  }

  bool isReference(AcDbObjectId id) {
    const AcDbEntityPointer entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk && classes_.of(*entity.object()) == EntityClass::kBlockReference;
  }

  std::optional<std::vector<std::wstring>> textList(const std::wstring& name) {
    const auto [entry, isNew] = loadedLists_.try_emplace(name);
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
  std::map<std::wstring, std::optional<std::vector<std::wstring>>> loadedLists_;
  std::vector<Kept> kept_;
  int locked_ = 0, failed_ = 0;  // of the current pass
};

}  // namespace

void runEntityPasses(RunState& run, BlockScope scope) {
  EntityPasses passes(run, scope);
  for (const Pass pass : {Pass::kText, Pass::kDimension, Pass::kHatch, Pass::kOther}) passes.runPass(pass);
}

}  // namespace kiv
