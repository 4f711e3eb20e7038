#pragma once
// The entities of the block that shows a dimension: its picture in space, with the layer, the colour, the
// linetype and the lineweight that each part gets.

#include <vector>

#include "embedded/graphics/dimensions/gather.h"

namespace cad {

inline constexpr wchar_t kDefinitionPointLayer[] = L"Defpoints";

// The definition points stand on kDefinitionPointLayer as the drawing spells it. `kept`: what the block
// holds; true colours, which dimension styles in files do not tell, are taken from there as long as the
// variable has the colour number that goes with them.
std::vector<BlockEntity> entitiesOf(const Drawing& drawing, RecordId dimension, const DimSource& source,
                                    const DimPicture& picture, const std::vector<BlockEntity>& kept);

}  // namespace cad
