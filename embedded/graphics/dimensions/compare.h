#pragma once
// What a block holds, and how it differs from what a dimension's picture would be.

#include <string>
#include <vector>

#include "embedded/drawing/block_entity.h"
#include "embedded/drawing/drawing.h"

namespace cad {

enum class BlockReading : std::uint8_t {
  kWhole,
  kTexts,  // of other entities only type, colours and what goes with them: a glance that costs little
};

// The entities of a block that are not erased, in their order.
std::vector<BlockEntity> blockEntities(const Drawing& drawing, RecordId block,
                                       BlockReading reading = BlockReading::kWhole);

// How far places may lie apart, in drawing units. What stands for a text's width (`byText`) has a tolerance
// of its own.
struct PlaceTolerance {
  double exact = 1e-9;
  double byText = 1e-9;
};

// One line for each difference, none when both are the same picture. `byText`, of the entity of this number:
// whether its place depends on how wide the text is; empty: none of them.
std::vector<std::wstring> differences(const std::vector<BlockEntity>& drawn,
                                      const std::vector<BlockEntity>& kept, const PlaceTolerance& tolerance,
                                      const std::vector<bool>& byText = {});

// Whether the types and the texts alone already differ.
bool differAtAGlance(const std::vector<BlockEntity>& drawn, const std::vector<BlockEntity>& kept,
                     double tolerance);

// Whether there is none, all places within one tolerance.
bool samePicture(const std::vector<BlockEntity>& drawn, const std::vector<BlockEntity>& kept,
                 double tolerance);

}  // namespace cad
