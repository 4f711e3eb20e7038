#pragma once
// The groups of a record that tell its geometry: without what every entity has, application groups,
// embedded objects and extended data.

#include <optional>
#include <string>
#include <vector>

#include "embedded/drawing/geometry.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

class GeometryGroups {
 public:
  GeometryGroups(const DxfStorage& storage, const Record& record);
  GeometryGroups(const GeometryGroups&) = delete;
  GeometryGroups& operator=(const GeometryGroups&) = delete;

  const std::vector<Group>& all() const { return groups_; }
  bool invisible() const { return invisible_; }
  // The values of a group; of several the first. Numbers that are not finite count as 0.
  double real(int code, double otherwise = 0) const;
  int integer(int code, int otherwise = 0) const;
  bool has(int code) const { return find(code) != nullptr; }
  Point point(int code, const Point& otherwise = {}) const;  // x, and y and z in code + 10 and code + 20
  std::vector<Point> points(int code) const;                 // each begins with its x
  std::vector<double> reals(int code) const;
  std::wstring text(int code) const;
  Point normal() const { return point(210, {0, 0, 1}); }

  double value(const Group& group) const;
  int whole(const Group& group) const;

 private:
  const Group* find(int code) const;

  const DxfStorage& storage_;
  std::string scratch_;
  std::vector<Group> groups_;
  bool invisible_ = false;
};

// Of a record of the type that the name says.
Geometry readHatch(const GeometryGroups& groups);
Geometry readLightPolyline(const GeometryGroups& groups);
Geometry readPolyline(const Drawing& drawing, const DxfStorage& storage, RecordId polyline);
Geometry readFace(const GeometryGroups& groups);
Geometry readViewport(const Drawing& drawing, const DxfStorage& storage, RecordId viewport);

}  // namespace cad::dxf
