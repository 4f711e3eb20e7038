#include "embedded/dwg/loader.h"

#include <utility>

#include "embedded/dwg/arranger.h"
#include "embedded/dwg/damage.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

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
  if (loaded.modelSpace == kNoRecord)
    return base::Failure{{}, L"The drawing is damaged: its model space cannot be read"};
  storage->setDamage(findDamage(storage->file(), storage->classes(), loaded.records));
  return std::make_unique<Drawing>(std::move(storage), std::move(loaded));
}

}  // namespace cad::dwg
