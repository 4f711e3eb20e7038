#pragma once
// Drawings of another format as DWG files.

#include <string>

#include "embedded/drawing/drawing.h"

namespace cad::dwg {

// What the typed properties, the geometry and the variables of a drawing tell, as a file of its version, or
// of R2000 when DWG files of its version are not read. Objects keep their handles; those that have none get
// the lowest that are free. Entities of types that nobody knows are what all entities have. Throws
// std::logic_error for what cannot be copied: meshes and faces, paths of hatches that are not polylines, and
// what is refused.
std::string dwgOf(const Drawing& drawing);

}  // namespace cad::dwg
