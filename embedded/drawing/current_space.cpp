#include "embedded/drawing/current_space.h"

namespace cad {

bool isModelCurrent(const Drawing& drawing) {
  const auto tilemode = drawing.headerVariable("TILEMODE");
  const auto* model = tilemode ? std::get_if<std::int64_t>(&*tilemode) : nullptr;
  return model == nullptr || *model != 0;
}

RecordId currentSpace(const Drawing& drawing) {
  return isModelCurrent(drawing) ? drawing.modelSpace() : drawing.paperSpace();
}

}  // namespace cad
