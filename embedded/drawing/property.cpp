#include "embedded/drawing/property.h"

#include <cstddef>
#include <limits>

namespace cad {
namespace {

constexpr double kHuge = std::numeric_limits<double>::max();
constexpr double kTiny = std::numeric_limits<double>::denorm_min();  // the least number above zero

using P = Property;
using T = PropertyType;

// What is not copied is made with the object it belongs to, or hangs on objects that are not copied.
constexpr PropertyInfo kProperties[] = {
    {P::kLayer, "layer", T::kName, 0, 0, 0, Table::kLayer},
    {P::kLinetype, "linetype", T::kName, 0, 0, 0, Table::kLinetype},
    {P::kColorIndex, "colour", T::kInteger, 256, 0, 256},
    {P::kLineWeight, "lineweight", T::kInteger, -1, -3, 211},
    {P::kTransparency, "transparency", T::kInteger, 0, 0, 0x020000FF},
    {P::kLinetypeScale, "linetype scale", T::kReal, 1, kTiny, kHuge},
    {P::kInvisible, "invisible", T::kInteger, 0, 0, 1},
    {P::kTextStyle, "text style", T::kName, 0, 0, 0, Table::kTextStyle},
    {P::kTextHeight, "text height", T::kReal, 1, kTiny, kHuge},
    {P::kRotation, "rotation", T::kReal, 0, -kHuge, kHuge},
    {P::kWidthFactor, "width factor", T::kReal, 1, kTiny, kHuge},
    {P::kTextString, "text", T::kText, 0, 0, 0},
    {P::kDimStyle, "dimension style", T::kName, 0, 0, 0, Table::kDimStyle, false},
    {P::kTextRotation, "dimension text rotation", T::kReal, 0, -kHuge, kHuge, Table::kNone, false},
    {P::kDimText, "dimension text", T::kText, 0, 0, 0, Table::kNone, false},
    {P::kDimBlock, "dimension block", T::kName, 0, 0, 0, Table::kBlock, false},
    {P::kBlockName, "block", T::kName, 0, 0, 0, Table::kBlock, false},
    {P::kName, "name", T::kName, 0, 0, 0},
    {P::kStandardFlags, "flags", T::kInteger, 0, 0, 0x7FFF},
    {P::kLayerColor, "layer colour", T::kInteger, 7, -255, 255},
    {P::kLayerLinetype, "layer linetype", T::kName, 0, 0, 0, Table::kLinetype},
    {P::kLayerPlottable, "plottable", T::kInteger, 1, 0, 1},
    {P::kFontFile, "font file", T::kText, 0, 0, 0},
    {P::kBigFontFile, "big font file", T::kText, 0, 0, 0},
    {P::kTypeface, "typeface", T::kText, 0, 0, 0},
    {P::kFontFlags, "font flags", T::kInteger, 0, 0, 0x7FFFFFFF},
    {P::kFixedHeight, "fixed height", T::kReal, 0, 0, kHuge},
    {P::kStyleWidthFactor, "style width factor", T::kReal, 1, kTiny, kHuge},
    {P::kStyleOblique, "oblique angle", T::kReal, 0, -kHuge, kHuge},
    {P::kDescription, "description", T::kText, 0, 0, 0},
};

constexpr bool inOrder() {
  for (std::size_t i = 0; i < std::size(kProperties); ++i) {
    if (static_cast<std::size_t>(kProperties[i].property) != i) return false;
  }
  return std::size(kProperties) == static_cast<std::size_t>(P::kCount);
}
static_assert(inOrder());

}  // namespace

const PropertyInfo& propertyInfo(Property property) {
  return kProperties[static_cast<std::size_t>(property)];
}

std::span<const PropertyInfo> allProperties() { return kProperties; }

}  // namespace cad
