// Any bytes are read or refused, and a drawing that was read is saved as it came.

#include <unistd.h>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/files.h"
#include "embedded/dxf/loader.h"

namespace {

// In memory where the system has such a folder.
const std::filesystem::path& target() {
  static const std::filesystem::path path = [] {
    const std::filesystem::path shared = "/dev/shm";
    const auto folder =
        std::filesystem::is_directory(shared) ? shared : std::filesystem::temp_directory_path();
    return folder / ("kiv-fuzz-" + std::to_string(getpid()) + ".dxf");
  }();
  return path;
}

void require(bool condition) {
  if (!condition) std::abort();
}

// What a selection and the command line's summary read.
void readAll(cad::Drawing& drawing) {
  for (cad::RecordId id = 0; id < drawing.recordCount(); ++id) {
    drawing.handle(id);
    if (drawing.record(id).kind != cad::RecordKind::kEntity) continue;
    drawing.integer(id, cad::Property::kColorIndex);
    drawing.real(id, cad::Property::kTextHeight);
    drawing.text(id, cad::Property::kTextString);
    drawing.name(id, cad::Property::kLayer);
    drawing.dimVariable(id, 41);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  auto loaded = cad::dxf::loadBytes(bytes);
  if (!loaded) return 0;
  cad::Drawing& drawing = *loaded.value();
  readAll(drawing);
  require(drawing.save(target()).ok());
  const auto saved = base::readFile(target());
  std::filesystem::remove(target());
  require(saved.ok() && saved.value() == bytes);
  return 0;
}
