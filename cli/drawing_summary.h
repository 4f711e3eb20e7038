#pragma once
// What a drawing contains, in numbers.

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace kivcli {

struct DrawingSummary {
  cad::DrawingFacts facts;
  std::map<std::string, std::size_t> entitiesByType;  // of model space and every paper space
  std::size_t entities = 0;                           // their sum
  std::size_t blockEntities = 0;                      // inside block definitions
  // Records that stand in the drawing, without those that the host only implies.
  std::size_t layers = 0, linetypes = 0, textStyles = 0;
  std::size_t blocks = 0;  // definitions, without the spaces
};

DrawingSummary summarize(const cad::Drawing& drawing);

// One line per fact, to be printed below the drawing's name.
std::vector<std::wstring> summaryLines(const DrawingSummary& summary);

}  // namespace kivcli
