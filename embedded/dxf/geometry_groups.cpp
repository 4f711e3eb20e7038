#include "embedded/dxf/geometry_groups.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "embedded/dxf/record_regions.h"

namespace cad::dxf {
namespace {

constexpr int kInvisible = 60;

}  // namespace

GeometryGroups::GeometryGroups(const DxfStorage& storage, const Record& record) : storage_(storage) {
  constexpr std::size_t kUsual = 24;
  groups_.reserve(kUsual);
  RegionCursor cursor(storage.bytes(record, scratch_), storage.dialect());
  CommonPick told;
  while (cursor.next()) {
    const Region region = cursor.region();
    if (region == Region::kExtendedData || region == Region::kEmbedded) break;
    const bool own = region == Region::kSubclass && !equalNoCase(cursor.subclass(), kEntityMarker);
    if (own || region == Region::kHead) groups_.push_back(cursor.group());
    if (cursor.group().code == kInvisible && cursor.offer(told, kInvisible))
      invisible_ = whole(cursor.group()) == 1;
  }
}

const Group* GeometryGroups::find(int code) const {
  for (const Group& group : groups_)
    if (group.code == code) return &group;
  return nullptr;
}

double GeometryGroups::value(const Group& group) const {
  const double number = realValue(group, storage_.dialect()).value_or(0);
  return std::isfinite(number) ? number : 0;
}

int GeometryGroups::whole(const Group& group) const {
  const std::int64_t number = integerValue(group, storage_.dialect()).value_or(0);
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

double GeometryGroups::real(int code, double otherwise) const {
  const Group* group = find(code);
  return group == nullptr ? otherwise : value(*group);
}

int GeometryGroups::integer(int code, int otherwise) const {
  const Group* group = find(code);
  return group == nullptr ? otherwise : whole(*group);
}

Point GeometryGroups::point(int code, const Point& otherwise) const {
  return {real(code, otherwise.x), real(code + 10, otherwise.y), real(code + 20, otherwise.z)};
}

std::vector<Point> GeometryGroups::points(int code) const {
  std::vector<Point> found;
  for (const Group& group : groups_) {
    if (group.code == code) found.push_back({value(group), 0, 0});
    if (found.empty()) continue;
    if (group.code == code + 10) found.back().y = value(group);
    if (group.code == code + 20) found.back().z = value(group);
  }
  return found;
}

std::vector<double> GeometryGroups::reals(int code) const {
  std::vector<double> found;
  for (const Group& group : groups_)
    if (group.code == code) found.push_back(value(group));
  return found;
}

std::wstring GeometryGroups::text(int code) const {
  const Group* group = find(code);
  return group == nullptr ? std::wstring() : storage_.decode(trimmed(group->value));
}

}  // namespace cad::dxf
