// Viewports of paper spaces. Files older than 2000 keep the view in extended data.

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/geometry_groups.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

constexpr int kOff = 0x20000, kHasBoundary = 0x10000;  // of the flags

void readView(const Drawing& drawing, const GeometryGroups& groups, ViewportGeometry& shape) {
  shape.viewCentre = groups.point(12);
  shape.direction = groups.point(16, {0, 0, 1});
  shape.target = groups.point(17);
  shape.viewHeight = groups.real(45);
  shape.twist = groups.real(51);
  const int flags = groups.integer(90);
  if ((flags & kOff) != 0) shape.on = false;
  for (const Group& group : groups.all()) {
    const bool isLayer = group.code == 331 || group.code == 341;
    const bool isBoundary = group.code == 340 && (flags & kHasBoundary) != 0;
    if (!isLayer && !isBoundary) continue;
    const RecordId named = drawing.findHandle(handleValue(group).value_or(0));
    if (named == kNoRecord) continue;
    if (isBoundary) {
      shape.boundary = named;
    } else {
      shape.frozenLayers.push_back(named);
    }
  }
}

// Behind "MVIEW": the target and the direction, then reals, of which the first five count (the twist, the
// height, the centre), and at the end the names of layers.
void readOldView(const Drawing& drawing, const DxfStorage& storage, RecordId viewport,
                 ViewportGeometry& shape) {
  const RecordGroups groups(storage, drawing.record(viewport));
  const Dialect& dialect = storage.dialect();
  std::vector<double> reals;
  Point* points[] = {&shape.target, &shape.direction};
  std::size_t pointCount = 0;
  bool inView = false;
  for (std::size_t i = groups.plainCount(); i < groups.all().size(); ++i) {
    const Group& group = groups.all()[i];
    const double value = realValue(group, dialect).value_or(0);
    if (group.code == 1000) inView = inView || trimmed(group.value) == "MVIEW";
    if (!inView) continue;
    if (group.code == 1010) ++pointCount;
    if (pointCount >= 1 && pointCount <= 2) {
      Point& point = *points[pointCount - 1];
      if (group.code == 1010) point = {value, 0, 0};
      if (group.code == 1020) point.y = value;
      if (group.code == 1030) point.z = value;
    }
    if (group.code == 1040) reals.push_back(value);
    if (group.code != kLayerName) continue;
    const RecordId layer =
        drawing.find(Table::kLayer, std::wstring_view(storage.decode(trimmed(group.value))));
    if (layer != kNoRecord) shape.frozenLayers.push_back(layer);
  }
  constexpr std::size_t kUsed = 4;
  if (reals.size() < kUsed) return;
  shape.twist = reals[0];
  shape.viewHeight = reals[1];
  shape.viewCentre = {reals[2], reals[3], 0};
}

}  // namespace

Geometry readViewport(const Drawing& drawing, const DxfStorage& storage, RecordId viewport) {
  const GeometryGroups groups(storage, drawing.record(viewport));
  ViewportGeometry shape;
  shape.centre = groups.point(10);
  shape.width = groups.real(40);
  shape.height = groups.real(41);
  shape.isSpace = groups.integer(69) == 1;
  shape.on = groups.integer(68, 1) != 0;
  if (groups.has(45)) {
    readView(drawing, groups, shape);
  } else {
    readOldView(drawing, storage, viewport, shape);
  }
  return {std::move(shape)};
}

}  // namespace cad::dxf
