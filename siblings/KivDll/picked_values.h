#pragma once
// The values of an entity for one item.

#include <string>
#include <vector>

#include "dbmain.h"

namespace kiv {

enum class PickedItem : int {
  kLayer = 1,
  kLinetype,
  kColor,
  kTextStyle,
  kTextHeight,
  kTextAngle,
  kWidthFactor,
  kBlock,
  kDimStyle,
  kLineWeight,
  kTransparency,
  kLinetypeScale,
  kDisplay,
  kLock,
  kFreeze,
  kPlot
};

// Empty when the entity has no such value. The layer gives nine texts: name, colour, linetype, then a label,
// a blank and the value for display, lock, freeze, plot, lineweight and transparency. Every other item gives
// one. Angles are degrees. The text properties of a dimension are those of its text.
std::vector<std::wstring> pickedValues(const AcDbEntity& entity, PickedItem item);

}  // namespace kiv
