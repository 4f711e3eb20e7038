#include "embedded/drawing/sheets.h"

#include <algorithm>
#include <utility>

namespace cad {
namespace {

constexpr wchar_t kModelName[] = L"Model", kOnlyPaperName[] = L"Layout1";

}  // namespace

std::vector<Layout> layoutsOf(const Drawing& drawing, std::vector<Sheet> sheets) {
  std::ranges::stable_sort(sheets, {}, &Sheet::order);
  std::vector<Layout> layouts{{kModelName, drawing.modelSpace()}};
  for (Sheet& sheet : sheets) {
    const bool isPaper = sheet.layout.block != kNoRecord && sheet.layout.block != drawing.modelSpace();
    if (isPaper) layouts.push_back(std::move(sheet.layout));
  }
  if (std::ranges::find(layouts, drawing.paperSpace(), &Layout::block) == layouts.end())
    layouts.push_back({kOnlyPaperName, drawing.paperSpace()});
  return layouts;
}

}  // namespace cad
