// Settings whose conditions and results are properties of layers.

#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "acdbads.h"
#include "acutads.h"
#include "base/fold.h"
#include "dbobjptr.h"
#include "engine/conditions.h"
#include "engine/layers.h"
#include "engine/pattern_rename.h"
#include "engine/setting_observation.h"
#include "engine/stages.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

constexpr short kNameGroup = 2;

struct LayerResult {
  int kind;
  std::wstring key, value;
};

struct LayerSetting {
  using ByKind = std::vector<ConditionValues<std::wstring>>;
  ByKind conditions = ByKind(itemKinds().size() + 1);  // by number
  std::vector<LayerResult> results;
};

LayerSetting compile(const std::wstring& line) {
  const FlatSetting flat = parseFlatSetting(line);
  LayerSetting setting;
  for (const FlatItem& item : flat.conditions) {
    const auto meaning = lookUpKey(item.key);
    if (meaning && hasEffect(meaning->kind, kLayerSettingSection, false)) {
      setting.conditions[static_cast<std::size_t>(meaning->kind)].push_back({item.value, item.equal});
    }
  }
  for (const FlatItem& item : flat.results) {
    const auto meaning = lookUpKey(item.key);
    if (meaning && hasEffect(meaning->kind, kLayerSettingSection, true)) {
      setting.results.push_back({meaning->kind, item.key, item.value});
    }
  }
  return setting;
}

bool passesKind(const LayerSetting& setting, const LayerFacts& layer, std::size_t kind) {
  const std::span<const ConditionValue<std::wstring>> values = setting.conditions[kind];
  return passesValues(values, [&](const ConditionValue<std::wstring>& value) {
    return layerMatches(layer, static_cast<int>(kind), value.value);
  });
}

bool passes(const LayerSetting& setting, const LayerFacts& layer) {
  for (std::size_t kind = 0; kind < setting.conditions.size(); ++kind) {
    if (!passesKind(setting, layer, kind)) return false;
  }
  return true;
}

// A kind's values are held against the layer together, at the last of them.
void testObserved(const KivRunObserver& observer, const LayerFacts& layer, const std::vector<FlatItem>& items,
                  const LayerSetting& setting) {
  std::vector<unsigned char> passed;
  std::map<int, std::size_t> last;  // by kind
  for (std::size_t i = 0; i < items.size(); ++i) {
    const auto meaning = lookUpKey(items[i].key);
    const bool counts = meaning && hasEffect(meaning->kind, kLayerSettingSection, false);
    passed.push_back(!counts || layerMatches(layer, meaning->kind, items[i].value) == items[i].equal ? 1 : 0);
    if (counts) last[meaning->kind] = i;
  }
  std::size_t failed = items.size();
  for (const auto& [kind, at] : last) {
    if (!passesKind(setting, layer, static_cast<std::size_t>(kind))) failed = std::min(failed, at);
  }
  const KivObservedObject object{layer.id.asOldId()};
  observer.objectTested(observer.context, &object, passed.data(),
                        failed == items.size() ? -1 : static_cast<int>(failed));
}

// The host tells a record's name even while the record does not open.
std::wstring nameInTable(AcDbDatabase& database, AcDbObjectId wanted) {
  AcDbLayerTablePointer table(&database, AcDb::kForRead);
  if (table.openStatus() != Acad::eOk) return {};
  for (int rewind = 1;; rewind = 0) {
    const std::unique_ptr<resbuf, void (*)(resbuf*)> record(acdbTblNext(L"LAYER", rewind),
                                                            [](resbuf* chain) { acutRelRb(chain); });
    if (record == nullptr) return {};
    for (const resbuf* item = record.get(); item != nullptr; item = item->rbnext) {
      AcDbObjectId id;
      if (item->restype != kNameGroup || table->getIdAt(item->resval.rstring, id) != Acad::eOk) continue;
      if (id == wanted) return item->resval.rstring;
    }
  }
}

std::vector<LayerFacts> readLayers(RunState& run) {
  std::vector<LayerFacts> layers;
  for (const AcDbObjectId id : layersOf(run.database)) {
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() == Acad::eOk) {
      layers.push_back(readLayer(*layer.object()));
    } else {
      run.problems.addProblem(layerRecordProblem(nameInTable(run.database, id)));
    }
  }
  return layers;
}

std::wstring newName(const LayerFacts& layer, const LayerSetting& setting, const std::wstring& to) {
  for (const auto& condition : setting.conditions[kLayerKind]) {
    if (auto name = renameByPattern(layer.name, condition.value, to)) return *std::move(name);
  }
  return to;
}

enum class Written { kYes, kAlready, kRefused };

// An earlier setting may have renamed the layer, so it is the present name that a new one is held against.
Written rename(RunState& run, AcDbLayerTableRecord& record, const LayerFacts& layer,
               const std::wstring& name) {
  AcString present;
  if (record.getName(present) == Acad::eOk && base::equalFolded(present.constPtr(), name))
    return Written::kAlready;
  if (record.setName(name.c_str()) == Acad::eOk) return Written::kYes;
  run.problems.addProblem(record.isDependent() ? referenceLayerRenameProblem(layer.name)
                                               : layerRenameProblem(layer.name, name));
  return Written::kRefused;
}

Written writeResult(RunState& run, AcDbLayerTableRecord& record, const LayerFacts& layer,
                    const LayerSetting& setting, const LayerResult& result) {
  if (result.kind == kLayerKind) return rename(run, record, layer, newName(layer, setting, result.value));
  const Acad::ErrorStatus status = setLayerProperty(record, result.kind, result.value, run.database);
  if (status == Acad::eOk) return Written::kYes;
  if (result.kind == kFreezeKind && status == Acad::eInvalidLayer) {
    run.problems.addProblem(currentLayerFreezeProblem(layer.name));
    return Written::kRefused;
  }
  const std::wstring written = asWritten(result.kind, result.value);
  run.problems.addToLog(layerSettingProblem(layer.name, result.key, written));
  run.problems.addNote({result.key, written, refusalOf(status), 1, Refuser::kLayer});
  return Written::kRefused;
}

void tellHit(const RunState& run, const LayerFacts& layer, KivObservedHit hit) {
  if (run.observer == nullptr) return;
  const KivObservedObject object{layer.id.asOldId()};
  run.observer->objectHit(run.observer->context, &object, hit);
}

void writeResults(RunState& run, const LayerFacts& layer, const LayerSetting& setting) {
  AcDbObjectPointer<AcDbLayerTableRecord> record(layer.id, AcDb::kForWrite);
  tellHit(run, layer, record.openStatus() == Acad::eOk ? kKivHit : kKivHitRefused);
  if (record.openStatus() != Acad::eOk) {
    run.problems.addProblem(layerRecordProblem(layer.name));
    return;
  }
  bool isChanged = false;
  const KivRunObserver* const observer = run.observer;
  for (std::size_t i = 0; i < setting.results.size(); ++i) {
    const int number = static_cast<int>(i);
    if (observer != nullptr) observer->resultBegins(observer->context, number);
    const Written written = writeResult(run, *record.object(), layer, setting, setting.results[i]);
    if (observer != nullptr)
      observer->resultEnds(observer->context, number, written == Written::kRefused ? 1 : 0);
    isChanged |= written == Written::kYes;
  }
  if (isChanged) switchOffAndOn(*record.object());
}

// How each layer stands to the setting's conditions. Null: nobody looks on.
std::unique_ptr<ObservedSetting> observe(const RunState& run, int number, const std::wstring& line,
                                         const LayerSetting& setting, const std::vector<LayerFacts>& layers) {
  if (run.observer == nullptr) return nullptr;
  std::vector<std::wstring> results;
  for (const LayerResult& result : setting.results) results.push_back(result.key + L"=" + result.value);
  const std::vector<FlatItem> items = parseFlatSetting(line).conditions;
  auto observed =
      std::make_unique<ObservedSetting>(run.observer, kLayerSettingSection, number, line, items, results);
  if (run.observer->objectTested == nullptr) return observed;
  for (const LayerFacts& layer : layers) testObserved(*run.observer, layer, items, setting);
  return observed;
}

}  // namespace

void applyLayerSettings(RunState& run) {
  if (run.list(kLayerSettingSection).empty()) return;
  const std::vector<LayerFacts> layers = readLayers(run);
  int number = 0;
  for (const std::wstring& line : run.list(kLayerSettingSection)) {
    const LayerSetting setting = compile(line);
    const std::unique_ptr<ObservedSetting> observed = observe(run, ++number, line, setting, layers);
    if (setting.results.empty()) continue;
    for (const LayerFacts& layer : layers) {
      if (passes(setting, layer)) writeResults(run, layer, setting);
    }
  }
}

}  // namespace kiv
