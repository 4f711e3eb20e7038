// Any bytes are read or refused, and a drawing that was read is saved as it came.

#include <cstddef>
#include <cstdint>
#include <string>

#include "embedded/drawing/dim_variables.h"
#include "embedded/formats/drawing_files.h"
#include "fuzz/saved_bytes.h"
#include "fuzz/share.h"

namespace {

// What a selection and the command line's summary read.
void readAll(cad::Drawing& drawing) {
  for (cad::RecordId id = 0; id < drawing.recordCount(); ++id) {
    drawing.handle(id);
    if (drawing.record(id).kind != cad::RecordKind::kEntity) continue;
    drawing.integer(id, cad::Property::kColorIndex);
    drawing.real(id, cad::Property::kTextHeight);
    drawing.text(id, cad::Property::kTextString);
    drawing.name(id, cad::Property::kLayer);
    drawing.dimVariable(id, cad::dimRow("DIMASZ"));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  auto loaded = cad::formats::openBytes(bytes);
  static fuzz::Share share("drawings");
  share.add(loaded.ok());
  if (!loaded) return 0;
  cad::Drawing& drawing = *loaded.value();
  readAll(drawing);
  fuzz::require(fuzz::savedBytes(drawing) == bytes);
  return 0;
}
