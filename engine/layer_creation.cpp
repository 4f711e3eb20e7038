// Creation of layers.

#include "dbobjptr.h"
#include "engine/layer_properties.h"
#include "engine/layer_stages.h"
#include "engine/messages.h"
#include "engine/refusal.h"
#include "engine/table_lookup.h"
#include "spec/cvt_lines.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

bool addNamed(AcDbDatabase& database, const std::wstring& name,
              AcDbObjectPointer<AcDbLayerTableRecord>& layer) {
  layer.create();
  AcDbLayerTablePointer table(&database, AcDb::kForWrite);
  return layer->setName(name.c_str()) == Acad::eOk && table.openStatus() == Acad::eOk &&
         table->add(layer.object()) == Acad::eOk;
}

void createLayer(RunState& run, const std::vector<std::wstring>& fields) {
  const std::wstring& name = fields[0];
  AcDbObjectPointer<AcDbLayerTableRecord> layer;
  if (!addNamed(run.database, name, layer)) {
    run.problems.addProblem(layerNotCreatedProblem(name));
    return;
  }
  for (std::size_t i = 0; i < kLayerFieldKinds.size() && i + 1 < fields.size(); ++i) {
    const std::wstring& value = fields[i + 1];
    if (value.empty()) continue;  // what a new layer has stays
    const Acad::ErrorStatus status =
        setLayerProperty(*layer.object(), kLayerFieldKinds[i], value, run.database);
    if (status == Acad::eOk) continue;
    const wchar_t* key = itemKind(kLayerFieldKinds[i])->key;
    const std::wstring written = asWritten(kLayerFieldKinds[i], value);
    run.problems.addToLog(layerCreationProblem(name, key, written));
    run.problems.addNote({key, written, refusalOf(status), 1, Refuser::kLayer});
  }
  switchOffAndOn(*layer.object());
}

}  // namespace

void createLayers(RunState& run) {
  for (const std::wstring& entry : run.list(kLayerCreationList)) {
    const std::vector<std::wstring> fields = splitFields(entry);
    if (fields[0].empty() || !findInTable(run.database.layerTableId(), fields[0]).isNull()) continue;
    createLayer(run, fields);
  }
}

}  // namespace kiv
