#include "spec/dimension_catalogue.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/fold.h"

namespace kiv {
namespace {

constexpr bool isOffered(const base::DimVariableInfo& info) {
  return info.offer.type != base::DimOffer::Type::kNotOffered;
}

constexpr auto kCatalogue = [] {
  std::array<DimensionVariable, std::ranges::count_if(base::kDimVariables, isOffered)> rows;
  auto row = rows.begin();
  for (const base::DimVariableInfo& info : base::kDimVariables) {
    if (!isOffered(info)) continue;
    row->info = &info;
    std::ranges::copy(info.name, row->name);
    ++row;
  }
  std::ranges::sort(rows, {}, [](const DimensionVariable& each) { return each.info->name; });
  return rows;
}();

}  // namespace

std::span<const DimensionVariable> dimensionCatalogue() { return kCatalogue; }

const DimensionVariable& dimensionCatalogueRow(int row) { return kCatalogue[static_cast<std::size_t>(row)]; }

int findDimensionVariable(std::wstring_view name) {
  const auto found = std::ranges::find_if(
      kCatalogue, [&](const DimensionVariable& row) { return base::equalFolded(row.name, name); });
  return found == kCatalogue.end() ? -1 : static_cast<int>(found - kCatalogue.begin());
}

}  // namespace kiv
