#pragma once
// The arrowheads that a host ships: block definitions of unit size, the point at the origin, the
// dimension line arriving from -X.

#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/geometry.h"
#include "embedded/drawing/record.h"

namespace cad {
class Drawing;
}

namespace cad::support {

struct ArrowBlock {
  const wchar_t* name;  // as the host writes it: "_ArchTick"
  std::vector<Shape> shapes;
};

// Null for a name that is not a built-in arrow. Ignores case; the underscore belongs to the name.
const ArrowBlock* findArrowBlock(std::wstring_view name);

// The drawing's block of this name. Some programs leave out the underscore with which the names of the
// built-in arrows' blocks begin, so a name in a file is looked for with it, too. kNoRecord: no such block.
RecordId arrowBlockOfFile(const Drawing& drawing, std::wstring_view name);

// The table record of the arrow's block, defined first when the drawing does not have it; the record
// carries the host's own spelling of the name. Refused: a name that is not a built-in arrow.
base::Result<RecordId> ensureArrowBlock(Drawing& drawing, std::wstring_view arrowName);

}  // namespace cad::support
