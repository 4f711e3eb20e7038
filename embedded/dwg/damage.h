#pragma once
// What is wrong with the objects of a file that could be read all the same.

#include <vector>

#include "embedded/drawing/drawing_records.h"
#include "embedded/dwg/fields/object_types.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {

// `records`: what the file's objects became.
DamagedObjects findDamage(const DwgFile& file, const std::vector<FileClass>& classes,
                          const std::vector<Record>& records);

}  // namespace cad::dwg
