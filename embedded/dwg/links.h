#pragma once
// What erased and added records change in others when the drawing is written: the order of a block's
// entities, the references to a block that it lists, the entries of tables.

#include <span>
#include <vector>

#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

// The objects whose bytes differ from those of their records, with all other changes of the record in them.
base::Result<std::vector<ChangedObject>> linkChanges(const DwgStorage& storage,
                                                     std::span<const Record> records);

}  // namespace cad::dwg
