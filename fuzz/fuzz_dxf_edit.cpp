// Changes that the host accepts leave a drawing that can be read again, and undo takes all of them back.

#include <unistd.h>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/files.h"
#include "embedded/dxf/loader.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

std::string savedBytes(cad::Drawing& drawing) {
  static const std::filesystem::path path =
      std::filesystem::path(std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp") /
      ("kiv-fuzz-edit-" + std::to_string(getpid()) + ".dxf");
  require(drawing.save(path).ok());
  auto saved = base::readFile(path);
  std::filesystem::remove(path);
  require(saved.ok());
  return std::move(saved.value());
}

// Refusals are as good as successes here.
void change(cad::Drawing& drawing, cad::NameId layer, cad::RecordId id) {
  (void)drawing.setInteger(id, cad::Property::kColorIndex, 3).ok();
  (void)drawing.setName(id, cad::Property::kLayer, layer).ok();
  (void)drawing.setInteger(id, cad::Property::kLineWeight, 25).ok();
  (void)drawing.setReal(id, cad::Property::kTextHeight, 2.5).ok();
  (void)drawing.setReal(id, cad::Property::kRotation, 90).ok();
  (void)drawing.setDimVariable(id, 41, 3.0).ok();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  auto loaded = cad::dxf::loadBytes(bytes);
  if (!loaded) return 0;
  cad::Drawing& drawing = *loaded.value();
  drawing.beginUndoGroup();
  const auto added = drawing.addTableRecord(cad::Table::kLayer, L"壁");
  const cad::NameId layer = drawing.names().intern(std::wstring_view(L"壁"));
  const std::size_t count = drawing.recordCount();
  for (cad::RecordId id = 0; id < count; ++id) {
    if (drawing.record(id).kind == cad::RecordKind::kEntity) change(drawing, layer, id);
  }
  drawing.endUndoGroup();
  require(cad::dxf::loadBytes(savedBytes(drawing)).ok());
  if (added.ok()) require(drawing.undo());
  while (drawing.undo()) {
  }
  require(savedBytes(drawing) == bytes);
  return 0;
}
