#pragma once
// The groups of a record with the part of the record that each stands in: the same group code means
// different things in different parts.

#include <cstdint>
#include <string_view>

#include "embedded/dxf/common_groups.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

enum class Region : std::uint8_t {
  kHead,          // before the first subclass marker; the whole record in R12
  kSubclass,      // see RegionCursor::subclass()
  kApplication,   // 102 {...}, its brackets included
  kEmbedded,      // an embedded object (101)
  kExtendedData,  // 1000 and above
};

class RegionTracker {
 public:
  // The region of a group; call for every group in order.
  Region enter(int code, std::string_view value) {
    if (code < 100) return application_ ? Region::kApplication : outer_;
    return turn(code, value);
  }
  std::string_view subclass() const { return subclass_; }  // the last marker's text
  const CommonGroups& common() const { return common_; }

 private:
  Region turn(int code, std::string_view value);

  Region outer_ = Region::kHead;
  bool application_ = false;
  CommonGroups common_;
  std::string_view subclass_;
};

class RegionCursor {
 public:
  RegionCursor(std::string_view bytes, const Dialect& dialect) : cursor_(bytes, dialect) {}
  bool next() {
    if (!cursor_.next()) return false;
    region_ = tracker_.enter(cursor_.group().code, cursor_.group().value);
    return true;
  }
  const Group& group() const { return cursor_.group(); }
  Region region() const { return region_; }
  std::string_view subclass() const { return tracker_.subclass(); }
  // Whether the groups here are those that every entity has, and whether one of another code may be, though
  // it has strayed.
  bool leftHome() const { return tracker_.common().leftHome(); }
  bool offer(CommonPick& pick, int code) const { return isPlain() && pick.offer(tracker_.common(), code); }
  bool inCommon() const { return isPlain() && tracker_.common().atHome(); }
  bool maybeCommon(int code) const { return isPlain() && tracker_.common().strayed(code); }

 private:
  bool isPlain() const { return region_ == Region::kHead || region_ == Region::kSubclass; }

  GroupCursor cursor_;
  RegionTracker tracker_;
  Region region_ = Region::kHead;
};

}  // namespace cad::dxf
