#pragma once
// The entities of the block that shows a dimension: its picture in space, with the layer, the colour, the
// linetype and the lineweight that each part gets.

#include <vector>

#include "embedded/graphics/dimensions/gather.h"

namespace cad {

// The layer of definition points, as the drawing spells it, or as it is to be called there.
std::wstring definitionPointLayer(const Drawing& drawing);

// `kept`: what the block holds; true colours, which dimension styles in files do not tell, are taken from
// there as long as the variable has the colour number that goes with them.
std::vector<BlockEntity> pictureEntities(const Drawing& drawing, RecordId dimension, const DimSource& source,
                                         const DimPicture& picture, const std::vector<BlockEntity>& kept);

}  // namespace cad
