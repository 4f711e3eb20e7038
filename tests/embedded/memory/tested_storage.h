#pragma once
// The storage on which the tests run that are written for drawings of every format.

#include <memory>
#include <string>

#include "embedded/drawing/drawing.h"

namespace cad {

// As KIV_TEST_STORAGE tells: "memory", "dwg", else kDxf.
enum class TestedStorage { kDxf, kMemory, kDwg };
TestedStorage testedStorage();
inline bool testsDxf() { return testedStorage() == TestedStorage::kDxf; }
inline bool testsMemory() { return testedStorage() == TestedStorage::kMemory; }
inline bool testsDwg() { return testedStorage() == TestedStorage::kDwg; }

// The drawing in the storage that is tested: itself, or a copy of it.
std::unique_ptr<Drawing> tested(std::unique_ptr<Drawing> drawing);

// The bytes of a file that is opened as a drawing in the storage that is tested.
std::string testedFile(const std::string& dxf);

}  // namespace cad
