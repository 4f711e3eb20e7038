#include "embedded/dxf/common_look.h"

#include <array>

namespace cad::dxf {
namespace {

constexpr int kType = 0, kHandle = 5, kLayer = 8, kMarker = 100, kEmbeddedObject = 101, kBracket = 102;

// The codes that are looked at.
constexpr int kCodes = 1000;
constexpr std::array<bool, kCodes> kHeeded = [] {
  std::array<bool, kCodes> heeded{};
  for (int code = 0; code < kCodes; ++code) heeded[static_cast<std::size_t>(code)] = mayStray(code);
  for (const std::size_t code : {kType, kHandle, kMarker, kEmbeddedObject, kBracket}) heeded[code] = true;
  return heeded;
}();
constexpr bool isDull(int code) {
  return code < kCodes && (code < 0 || !kHeeded[static_cast<std::size_t>(code)]);
}

}  // namespace

void CommonLook::read(std::string_view bytes, const Dialect& dialect) {
  count_ = 0;
  insertAt_ = end_ = 0;
  bool hasLayer = false, hasMarker = false;
  GroupCursor cursor(bytes, dialect);
  RegionTracker tracker;
  while (cursor.next(isDull)) {
    const Group& group = cursor.group();
    const Region region = tracker.enter(group.code, group.value);
    if (region >= Region::kEmbedded || tracker.common().leftHome()) break;
    if (region == Region::kApplication || !tracker.common().atHome()) continue;
    const bool isPlace = group.code == kType || group.code == kHandle || group.code == kMarker;
    end_ = group.end;
    if (!isPlace) keep(group);
    // A new group stands behind the layer, without one behind the marker or what else begins the record.
    hasLayer = hasLayer || group.code == kLayer;
    hasMarker = hasMarker || group.code == kMarker;
    if (group.code == (hasLayer ? kLayer : kMarker) || (isPlace && !hasLayer && !hasMarker))
      insertAt_ = group.end;
  }
}

const Group* CommonLook::find(int code) const {
  for (std::size_t i = 0; i < count_; ++i)
    if (groups_[i].code == code) return &groups_[i];
  return nullptr;
}

void CommonLook::keep(const Group& group) {
  for (Group& each : known()) {
    if (each.code != group.code) continue;
    each = group;
    return;
  }
  groups_[count_++] = group;
}

void CommonLook::shift(std::uint32_t from, std::uint32_t difference) {
  for (Group& each : known()) {
    if (each.begin < from) continue;
    each.begin += difference;
    each.valueBegin += difference;
    each.end += difference;
  }
  if (insertAt_ > from) insertAt_ += difference;
  end_ += difference;
}

void CommonLook::valueReplaced(int code, std::string_view value) {
  for (Group& each : known()) {
    if (each.code != code) continue;
    const auto difference =
        static_cast<std::uint32_t>(value.size()) - static_cast<std::uint32_t>(each.value.size());
    shift(each.begin + 1, difference);
    each.value = value;
    each.end += difference;
  }
}

void CommonLook::groupInserted(std::string_view bytes, const Dialect& dialect) {
  shift(insertAt_, static_cast<std::uint32_t>(bytes.size()));
  Group group;
  if (!readGroup(bytes, 0, dialect, group)) return;
  group.begin += insertAt_;
  group.valueBegin += insertAt_;
  group.end += insertAt_;
  keep(group);
}

}  // namespace cad::dxf
