#include "embedded/dwg/damage.h"

#include "embedded/dwg/fields/object_frame.h"

namespace cad::dwg {
namespace {

bool isReadable(const DwgFile& file, const std::vector<FileClass>& classes, const ObjectPlace& place) {
  const base::Result<ObjectBytes> object = file.objectAt(place.offset);
  if (!object.ok()) return false;
  const auto frame = readFrame(object.value().data, object.value().handleBits, file.version(), classes);
  return frame.ok() && frame.value().handle == place.handle;
}

}  // namespace

DamagedObjects findDamage(const DwgFile& file, const std::vector<FileClass>& classes,
                          const std::vector<Record>& records) {
  DamagedObjects damage;
  for (const ObjectPlace& place : file.places())
    if (!file.objectOf(place).crcHolds()) damage.withWrongChecksum.push_back(place.handle);
  for (const Record& record : records) {
    if (record.kind != RecordKind::kOther) continue;
    const ObjectPlace& place = file.places()[static_cast<std::size_t>(record.offset)];
    (isReadable(file, classes, place) ? damage.ownerless : damage.unreadable).push_back(place.handle);
  }
  return damage;
}

}  // namespace cad::dwg
