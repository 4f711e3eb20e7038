// Settings whose conditions and results are properties of layers.

#include <array>
#include <memory>
#include <span>

#include "dbobjptr.h"
#include "engine/compiled_setting.h"
#include "engine/flat_setting.h"
#include "engine/layer_properties.h"
#include "engine/layer_stages.h"
#include "engine/messages.h"
#include "engine/pattern_rename.h"
#include "engine/record_filter.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

struct LayerResult {
  int kind;
  std::wstring key, value;
};

struct LayerSetting {
  std::array<ConditionValues<std::wstring>, kPlotKind + 1> conditions;  // by item kind
  std::vector<LayerResult> results;
};

LayerSetting compile(const std::wstring& line) {
  const FlatSetting flat = parseFlatSetting(line);
  LayerSetting setting;
  for (const FlatItem& item : flat.conditions) {
    if (const auto meaning = lookUpKey(item.key)) {
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

std::vector<LayerFacts> readLayers(RunState& run) {
  std::vector<LayerFacts> layers;
  AcDbLayerTablePointer table(&run.database, AcDb::kForRead);
  AcDbLayerTableIterator* made = nullptr;
  if (table.openStatus() != Acad::eOk || table->newIterator(made) != Acad::eOk) return layers;
  const std::unique_ptr<AcDbLayerTableIterator> records(made);
  for (; !records->done(); records->step()) {
    AcDbObjectId id;
    records->getRecordId(id);
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() == Acad::eOk) {
      layers.push_back(readLayer(*layer.object()));
    } else {
      run.problems.addProblem(layerRecordProblem(run.names.of(id).name));
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

void writeResult(RunState& run, AcDbLayerTableRecord& record, const LayerFacts& layer,
                 const LayerSetting& setting, const LayerResult& result) {
  if (result.kind == kLayerKind) {
    const std::wstring name = newName(layer, setting, result.value);
    if (name != layer.name && record.setName(name.c_str()) != Acad::eOk) {
      run.problems.addProblem(layerRenameProblem(layer.name, name));
    }
    return;
  }
  const Acad::ErrorStatus status = setLayerProperty(record, result.kind, result.value, run.database);
  if (status == Acad::eOk) return;
  const bool isCurrent = result.kind == kFreezeKind && status == Acad::eInvalidLayer;
  run.problems.addProblem(isCurrent ? currentLayerFreezeProblem(layer.name)
                                    : layerSettingProblem(layer.name, result.key, result.value));
}

void writeResults(RunState& run, const LayerFacts& layer, const LayerSetting& setting) {
  AcDbObjectPointer<AcDbLayerTableRecord> record(layer.id, AcDb::kForWrite);
  if (record.openStatus() != Acad::eOk) {
    run.problems.addProblem(layerRecordProblem(layer.name));
    return;
  }
  for (const LayerResult& result : setting.results) {
    writeResult(run, *record.object(), layer, setting, result);
  }
  switchOffAndOn(*record.object());
}

}  // namespace

void applyLayerSettings(RunState& run) {
  if (run.list(kLayerSettingList).empty()) return;
  const std::vector<LayerFacts> layers = readLayers(run);
  for (const std::wstring& line : run.list(kLayerSettingList)) {
    const LayerSetting setting = compile(line);
    if (setting.results.empty()) continue;
    for (const LayerFacts& layer : layers) {
      if (passes(setting, layer)) writeResults(run, layer, setting);
    }
  }
}

}  // namespace kiv
