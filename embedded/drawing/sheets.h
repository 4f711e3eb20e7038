#pragma once
// The sheets of paper that a file tells of, as the layouts of its drawing.

#include <cstdint>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace cad {

inline constexpr double kMillimetresPerInch = 25.4;

struct Sheet {
  Layout layout;
  std::int64_t order = 0;  // of its tab
};

// Model space first, then the sheets by their tabs; the paper space also where no sheet is of it. A sheet
// without a space, or of model space, is none.
std::vector<Layout> layoutsOf(const Drawing& drawing, std::vector<Sheet> sheets);

}  // namespace cad
