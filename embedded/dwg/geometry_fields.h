#pragma once
// The geometry of entities, from their fields.

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/geometry.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

struct GeometrySource {
  const Drawing& drawing;
  const DwgStorage& storage;
  RecordId id;
  ObjectKind kind;
  const Fields& fields;

  Point normal() const { return fields.point("extrusion", {0, 0, 1}); }
  double degrees(std::string_view name, double fallback = 0) const {
    return fields.find(name) == nullptr ? fallback : fields.real(name) / kRadiansPerDegree;
  }
  // A point of two coordinates with the elevation as its third.
  Point raised(std::string_view name) const;
};

Geometry readText(const GeometrySource& from);  // TEXT, ATTRIB, ATTDEF
Geometry readMText(const GeometrySource& from);
Geometry readDimension(const GeometrySource& from);
Geometry readHatch(const GeometrySource& from);
Geometry readPolyline(const GeometrySource& from);
Geometry readLightPolyline(const GeometrySource& from);
Geometry readFace(const GeometrySource& from);
Geometry readViewport(const GeometrySource& from);

}  // namespace cad::dwg
