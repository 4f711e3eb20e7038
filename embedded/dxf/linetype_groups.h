#pragma once
// The pattern in a linetype's record.

#include <vector>

#include "embedded/dxf/record_tools.h"

namespace cad::dxf {

// A text or shape whose style record cannot be found is left out.
std::vector<Dash> readDashes(const Drawing& drawing, const DxfStorage& storage, RecordId linetype);

}  // namespace cad::dxf
