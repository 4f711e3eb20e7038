#pragma once
// The groups that tell an entity's geometry.

#include <string_view>

#include "embedded/dxf/record_builder.h"

namespace cad::dxf {

// From the class marker on. False: an entity of this type consists of something else.
bool addGeometry(Drawing& drawing, RecordBuilder& builder, std::string_view type, const Geometry& geometry);

}  // namespace cad::dxf
