#pragma once
// Keeps the blocks that show dimensions true to them.

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/result.h"
#include "embedded/graphics/dimensions/compare.h"
#include "embedded/graphics/dimensions/gather.h"

namespace cad {

// Which entities show a block, whatever it holds: dimensions and references. What is added later is noticed.
class BlockUses {
 public:
  // Whether another entity than this one, not erased, shows the block too. Those of the block `within` do not
  // count.
  bool isShared(const Drawing& drawing, RecordId block, RecordId user, RecordId within = kNoRecord);

 private:
  std::unordered_map<RecordId, std::vector<RecordId>> users_;
  std::size_t known_ = 0;  // the records that have been looked at
};

enum class DimOutcome : std::uint8_t {
  kDrawn,
  kSame,  // the block held this picture already
  // The block is kept:
  kOtherKind,     // arc length, jogged, one that nobody knows
  kNoStyle,       // an old file does not tell it, or the drawing does not have it
  kNoBlock,       // the drawing does not have the block, and the record cannot name another
  kNothingDrawn,  // the points make no picture
};
constexpr bool keepsBlock(DimOutcome outcome) { return outcome > DimOutcome::kSame; }

// Of one drawing, which outlives it.
class DimRedraw {
 public:
  DimRedraw(Drawing& drawing, FontCatalogue::Find findFont)
      : drawing_(drawing), faces_(std::move(findFont)) {}

  struct Result {
    DimOutcome outcome = DimOutcome::kDrawn;
    std::vector<BlockEntity> entities = {};  // what the block would hold
    // What the record is to have, in the dimension's system; none: what it has.
    std::optional<Point> textMiddle = {};
  };
  // The picture of a dimension that has a block; nothing is changed. `former`: the dimension in the state
  // that its block was drawn from.
  Result picture(RecordId dimension, const Record& former);
  // Gives the block this picture in one step of undo, and the record the middle of a text that no person
  // placed. A dimension that shares its block, or whose block the drawing does not have, gets one of its own.
  // A failure leaves everything as it was.
  base::Result<DimOutcome> redraw(RecordId dimension, const Record& former);
  // The block takes over what it has from the dimension without being drawn anew: what stands on the former
  // layer moves to the new one, and what has no linetype of its own follows. False: the block is not the
  // dimension's alone, and stays.
  base::Result<bool> follow(RecordId dimension, const Record& former);

 private:
  Result pictureFor(RecordId dimension, const Record& former, const std::vector<BlockEntity>& kept);
  base::Status write(RecordId dimension, RecordId block, const Result& result);
  base::Status writeContents(RecordId dimension, RecordId block, const std::vector<BlockEntity>& entities);
  base::Status needDefinitionPointLayer(const std::vector<BlockEntity>& entities);

  Drawing& drawing_;
  DimStyles styles_;
  TextFaces faces_;
  BlockUses uses_;
};

}  // namespace cad
