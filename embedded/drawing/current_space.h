#pragma once
// The space in which a drawing was left.

#include "embedded/drawing/drawing.h"

namespace cad {

bool isModelCurrent(const Drawing& drawing);  // as TILEMODE says; without it it is
RecordId currentSpace(const Drawing& drawing);

}  // namespace cad
