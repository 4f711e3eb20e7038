#include "embedded/dwg/loader.h"

#include <utility>

#include "embedded/drawing/handle_text.h"
#include "embedded/dwg/arranger.h"
#include "embedded/dwg/damage.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

// Its place is the object at which the way from the blocks' table to the model space ends.
base::Failure noModelSpace(const DwgStorage& storage, const std::vector<Record>& records) {
  const RecordId control = storage.control(Table::kBlockRecord);
  if (control == kNoRecord)
    return refusal(0, L"The drawing is damaged: the table of its blocks cannot be read");
  const Record& table = records[control];
  const Handle entry = storage.fields(table).handle("model space").value_or(0);
  return {L"handle " + handleText(entry != 0 ? entry : storage.handle(table).value_or(0)),
          L"The drawing is damaged: its model space cannot be read"};
}

}  // namespace

base::Result<std::unique_ptr<Drawing>> read(std::shared_ptr<const SourceBytes> source) {
  base::Result<std::unique_ptr<DwgFile>> file = readDwgFile(std::move(source));
  if (!file.ok()) return file.failure();
  base::Result<std::vector<FileClass>> classes =
      readClasses(file.value()->classes(), file.value()->version());
  if (!classes.ok()) return classes.failure();
  auto storage = std::make_unique<DwgStorage>(std::move(file.value()), std::move(classes.value()));
  LoadedRecords loaded;
  {
    Arranger arranger(storage->file(), storage->classes());
    arranger.run();
    storage->setRecords(arranger.takeRecords());
    loaded = arranger.takeLoaded();
  }
  if (loaded.modelSpace == kNoRecord) return noModelSpace(*storage, loaded.records);
  storage->setDamage(findDamage(storage->file(), storage->classes(), loaded.records));
  return std::make_unique<Drawing>(std::move(storage), std::move(loaded));
}

}  // namespace cad::dwg
