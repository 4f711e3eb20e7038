#pragma once
// The variables that a drawing's header may hold: the group code of each, and the versions that have it.

#include <optional>
#include <string_view>

#include "embedded/drawing/shapes.h"
#include "embedded/drawing/storage.h"
#include "embedded/dxf/dxf_storage.h"

namespace cad::dxf {

struct HeaderVariableInfo {
  std::string_view name;  // without the dollar sign
  int code = 0;
  Version first = Version::kR12, last = Version::kUnknown;
};

// Dimension variables included; code 0 when there is no such variable.
HeaderVariableInfo findHeaderVariable(std::string_view name);

// A variable that is a point ("INSBASE"); absent when the header does not have it.
std::optional<Point> headerPoint(const Drawing& drawing, const DxfStorage& storage, std::string_view name);

}  // namespace cad::dxf
