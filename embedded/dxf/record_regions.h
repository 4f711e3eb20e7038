#pragma once
// The parts of a record: the same group code means different things in different parts. And which of an
// entity's groups tell what every entity has: layer, colour, linetype and so on.
//
// These belong before the first subclass marker or behind AcDbEntity. Several programs write them behind the
// marker of the entity's own class: there they have strayed, and count for a code that no group in the right
// place has. Layer, linetype, lineweight and transparency do so in every class; the others not where that
// class, or a class that nobody here knows, may mean something of its own by them.

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

// --- What every entity has --------------------------------------------------------------------------------

inline constexpr std::string_view kEntityMarker = "AcDbEntity";

// Classes of which every group is known here. In others a code may have any meaning.
bool isKnownClass(std::string_view subclass);

// Where a record's walk is, by the subclass markers that it passed. Applications' groups, embedded objects
// and extended data are the caller's to leave out.
class CommonGroups {
 public:
  void marker(std::string_view subclass) {
    marker_ = subclass;
    atHome_ = !sawEntity_ && equalNoCase(subclass, kEntityMarker);
    sawEntity_ = sawEntity_ || atHome_;
  }
  bool atHome() const { return atHome_; }
  bool strayed(int code) const;  // a group of this code, here
  bool inKnownClass() const { return isKnownClass(marker_); }
  bool sawHome() const { return sawEntity_; }
  bool leftHome() const { return sawEntity_ && !atHome_; }  // and does not come back

 private:
  std::string_view marker_;
  bool atHome_ = true, sawEntity_ = false;
};

// Which of the groups of one code counts: of those at home the last, else of those that strayed.
class CommonPick {
 public:
  // A group of the code, where the walk is: whether it counts in place of those before it.
  bool offer(const CommonGroups& where, int code) {
    if (!where.atHome()) return !atHome_ && where.strayed(code);
    return atHome_ = true;
  }
  bool atHome() const { return atHome_; }  // the one that counts is

 private:
  bool atHome_ = false;
};

// A record's flag: what every entity has may stand among its type's own data.
inline constexpr std::uint8_t kStraying = Record::kOfStorage;

// Groups that may stray.
constexpr bool mayStray(int code) {
  constexpr int kCodes[] = {6, 8, 48, 60, 62, 67, 370, 420, 430, 440};
  return std::ranges::find(kCodes, code) != std::end(kCodes);
}
// Groups of every entity that do not go with it into another drawing: what hangs on objects that stay, the
// layout, and preview graphics.
constexpr bool staysBehind(int code) {
  constexpr int kCodes[] = {67, 92, 160, 284, 310, 347, 348, 390, 410};
  return std::ranges::find(kCodes, code) != std::end(kCodes);
}
// Groups that every entity may have.
constexpr bool isCommonCode(int code) { return mayStray(code) || staysBehind(code); }

// --- The parts of a record --------------------------------------------------------------------------------

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
    if (code < 100) return present();
    return turn(code, value);
  }
  // Of a group that begins no other part, if one comes next.
  Region present() const { return application_ ? Region::kApplication : outer_; }
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

// --- A property's group in a record's bytes
// -----------------------------------------------------------------

inline constexpr int kColorNumber = 62, kTrueColor = 420, kColorName = 430;

struct Located {
  std::optional<Group> group;  // of several the one that counts
  std::uint32_t insertAt = 0;  // where a new group belongs
  // With a colour number: the true colour and its name, whose place the number takes.
  std::optional<Group> trueColor, colorName;
};

// The group of a property that every entity has, in a record's bytes. `straying`: those behind AcDbEntity are
// looked through too.
Located locateCommon(std::string_view bytes, const Dialect& dialect, int code, bool straying);

}  // namespace cad::dxf
