// Settings whose conditions and results are properties of layers.

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

bool passes(const LayerSetting& setting, const LayerFacts& layer) {
  for (std::size_t kind = 0; kind < setting.conditions.size(); ++kind) {
    const std::span<const ConditionValue<std::wstring>> values = setting.conditions[kind];
    if (!passesValues(values, [&](const ConditionValue<std::wstring>& value) {
          return layerMatches(layer, static_cast<int>(kind), value.value);
        })) {
      return false;
    }
  }
  return true;
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

// An earlier setting may have renamed the layer, so it is the present name that a new one is held against.
bool rename(RunState& run, AcDbLayerTableRecord& record, const LayerFacts& layer, const std::wstring& name) {
  AcString present;
  if (record.getName(present) == Acad::eOk && base::equalFolded(present.constPtr(), name)) return false;
  if (record.setName(name.c_str()) == Acad::eOk) return true;
  run.problems.addProblem(record.isDependent() ? referenceLayerRenameProblem(layer.name)
                                               : layerRenameProblem(layer.name, name));
  return false;
}

// True when the record took the result.
bool writeResult(RunState& run, AcDbLayerTableRecord& record, const LayerFacts& layer,
                 const LayerSetting& setting, const LayerResult& result) {
  if (result.kind == kLayerKind) return rename(run, record, layer, newName(layer, setting, result.value));
  const Acad::ErrorStatus status = setLayerProperty(record, result.kind, result.value, run.database);
  if (status == Acad::eOk) return true;
  if (result.kind == kFreezeKind && status == Acad::eInvalidLayer) {
    run.problems.addProblem(currentLayerFreezeProblem(layer.name));
    return false;
  }
  const std::wstring written = asWritten(result.kind, result.value);
  run.problems.addToLog(layerSettingProblem(layer.name, result.key, written));
  run.problems.addNote({result.key, written, refusalOf(status), 1, Refuser::kLayer});
  return false;
}

void writeResults(RunState& run, const LayerFacts& layer, const LayerSetting& setting) {
  AcDbObjectPointer<AcDbLayerTableRecord> record(layer.id, AcDb::kForWrite);
  if (record.openStatus() != Acad::eOk) {
    run.problems.addProblem(layerRecordProblem(layer.name));
    return;
  }
  bool isChanged = false;
  for (const LayerResult& result : setting.results) {
    isChanged |= writeResult(run, *record.object(), layer, setting, result);
  }
  if (isChanged) switchOffAndOn(*record.object());
}

}  // namespace

void applyLayerSettings(RunState& run) {
  if (run.list(kLayerSettingSection).empty()) return;
  const std::vector<LayerFacts> layers = readLayers(run);
  for (const std::wstring& line : run.list(kLayerSettingSection)) {
    const LayerSetting setting = compile(line);
    if (setting.results.empty()) continue;
    for (const LayerFacts& layer : layers) {
      if (passes(setting, layer)) writeResults(run, layer, setting);
    }
  }
}

}  // namespace kiv
