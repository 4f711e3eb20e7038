#pragma once
// What is painted behind a text of several lines, and its line spacing in the versions without a field for
// it.

#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

// For a new text: all of its extended data is set. Fails when the application's record cannot be made.
base::Status addBackground(Drawing& drawing, const DwgStorage& storage, const TextGeometry& text,
                           FieldChanges& values);

}  // namespace cad::dwg
