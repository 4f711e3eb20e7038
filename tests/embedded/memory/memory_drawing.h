#pragma once
// Drawings of the second storage.

#include <memory>
#include <string>
#include <string_view>

#include "embedded/drawing/drawing.h"

namespace cad::memory {

// Whether the tests are to run on drawings that are kept in memory.
bool isTested();

// What the typed properties, the geometry and the variables of a drawing tell, as a drawing in memory. The
// records have the same numbers; the last one is the header.
std::unique_ptr<Drawing> copyOf(const Drawing& drawing);

// A copy of `drawing` when drawings in memory are tested, else the drawing itself.
std::unique_ptr<Drawing> tested(std::unique_ptr<Drawing> drawing);

// The bytes of a file that is opened as a drawing in memory when those are tested; else `dxf` itself.
std::string testedFile(const std::string& dxf);

}  // namespace cad::memory
