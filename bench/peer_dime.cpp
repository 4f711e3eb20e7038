// The work of office-plan.cvt as a program on libdime: peer_dime IN.dxf OUT.dxf

#include <dime/Input.h>
#include <dime/Layer.h>
#include <dime/Model.h>
#include <dime/Output.h>
#include <dime/entities/Entity.h>
#include <dime/entities/Text.h>
#include <dime/records/Record.h>
#include <dime/sections/EntitiesSection.h>
#include <dime/sections/TablesSection.h>
#include <dime/tables/LayerTable.h>
#include <dime/tables/Table.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/codepage.h"

namespace {

std::string narrow(std::wstring_view text) { return base::encode(text, base::kJapanese).bytes; }

class Conversion {
 public:
  explicit Conversion(dimeModel& model) : model_(model) {}

  void createLayers() {
    auto* tables = static_cast<dimeTablesSection*>(model_.findSection("TABLES"));
    for (int i = 0; i < tables->getNumTables(); ++i) {
      dimeTable* table = tables->getTable(i);
      if (table->tableType() == dimeBase::dimeLayerTableType) layers_ = table;
    }
    for (int i = 1; i <= 10; ++i) {
      char number[8];
      std::snprintf(number, sizeof number, "%02d", i);
      create(narrow(L"W-壁") + number, 7);
    }
    dimensionLayer_ = create(narrow(L"寸法線"), 2);
  }

  void convert(dimeEntity& entity) {
    const std::string_view type = entity.getEntityName(), layer = entity.getLayerName();
    if (type == "TEXT" || type == "MTEXT" || type == "ATTDEF") {
      if (layer.starts_with(texts_)) convertText(entity, type);
    } else if (type == "DIMENSION") {
      entity.setLayer(dimensionLayer_);
      entity.setColorNumber(256);
    } else if (type == "HATCH") {
      entity.setColorNumber(252);
    } else if (layer.starts_with(walls_)) {
      entity.setLayer(model_.getLayer((newWalls_ + std::string(layer.substr(walls_.size()))).c_str()));
      entity.setColorNumber(7);
    } else if (layer.starts_with(services_)) {
      entity.setColorNumber(5);
    }
  }

 private:
  const dimeLayer* create(const std::string& name, short color) {
    auto* record = new dimeLayerTable;
    record->setLayerName(name.c_str(), nullptr);
    record->setColorNumber(color);
    record->registerLayer(&model_);
    layers_->insertTableEntry(record);
    return model_.getLayer(name.c_str());
  }

  static void convertText(dimeEntity& entity, std::string_view type) {
    if (type == "TEXT") {
      auto& text = static_cast<dimeText&>(entity);
      text.setHeight(text.getHeight() * 2);
    } else {
      dimeParam height;
      entity.getRecord(40, height);
      height.double_data *= 2;
      entity.setRecord(40, height);
    }
    entity.setColorNumber(3);
  }

  dimeModel& model_;
  dimeTable* layers_ = nullptr;
  const dimeLayer* dimensionLayer_ = nullptr;
  const std::string texts_ = narrow(L"文字"), walls_ = narrow(L"A-壁"), newWalls_ = narrow(L"W-壁"),
                    services_ = narrow(L"S-設備");
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  dimeInput input;
  dimeModel model(true);  // with the library's own memory pool, its fastest setting
  if (!input.setFile(argv[1]) || !model.read(&input)) return 1;
  Conversion conversion(model);
  conversion.createLayers();
  auto* entities = static_cast<dimeEntitiesSection*>(model.findSection("ENTITIES"));
  for (int i = 0; i < entities->getNumEntities(); ++i) conversion.convert(*entities->getEntity(i));
  dimeOutput output;
  return output.setFilename(argv[2]) && model.write(&output) ? 0 : 1;
}
