// The model space of any drawing becomes a block of a new one by its geometry and properties alone, or it is
// refused; undo leaves nothing of it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "embedded/drawing/block_copy.h"
#include "embedded/formats/drawing_files.h"
#include "fuzz/require.h"
#include "fuzz/saved_bytes.h"
#include "fuzz/share.h"

namespace {

std::size_t liveEntities(const cad::Drawing& drawing, cad::RecordId block) {
  const auto& entities = drawing.entitiesOf(block);
  return static_cast<std::size_t>(
      std::ranges::count_if(entities, [&](cad::RecordId id) { return !drawing.record(id).erased(); }));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto source = cad::formats::openBytes({reinterpret_cast<const char*>(data), size});
  if (!source) return 0;
  const bool newest = size % 2 != 0;
  const auto target = cad::formats::create(newest ? cad::Version::kR2018 : cad::Version::kR2000);
  cad::Drawing& drawing = *target.value();
  const std::string before = fuzz::savedBytes(drawing);
  static fuzz::Share share("copies");
  {
    cad::Drawing::ChangeScope scope(drawing);
    const auto block = cad::TypedBlockCopy(drawing, *source.value()).copyModelSpace(L"COPY");
    share.add(block.ok());
    if (!block) scope.rollBack();
  }
  if (const cad::RecordId block = drawing.find(cad::Table::kBlock, L"COPY"); block != cad::kNoRecord) {
    const auto again = cad::formats::openBytes(fuzz::savedBytes(drawing));
    fuzz::require(again.ok());
    const cad::RecordId twin = again.value()->find(cad::Table::kBlock, L"COPY");
    fuzz::require(twin != cad::kNoRecord);
    const std::size_t wanted = liveEntities(*source.value(), source.value()->modelSpace());
    fuzz::require(liveEntities(drawing, block) == wanted && liveEntities(*again.value(), twin) == wanted);
  }
  while (drawing.undo()) {
  }
  fuzz::require(fuzz::savedBytes(drawing) == before);
  return 0;
}
