#pragma once
// Which of an entity's groups tell what every entity has: layer, colour, linetype and so on.
//
// They belong before the first subclass marker or behind AcDbEntity. Several programs write them behind the
// marker of the entity's own class: there they have strayed, and count for a code that no group in the right
// place has, unless that class, or a class that nobody here knows, may mean something of its own by it.

#include <algorithm>
#include <iterator>
#include <string_view>

#include "embedded/dxf/group_cursor.h"
#include "embedded/dxf/located.h"

namespace cad::dxf {

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

// Groups that may stray.
constexpr bool mayStray(int code) {
  constexpr int kCodes[] = {6, 8, 48, 60, 62, 67, 370, 420, 430, 440};
  return std::ranges::find(kCodes, code) != std::end(kCodes);
}
// Groups that every entity may have.
bool isCommonCode(int code);
// The group of a property that every entity has, in a record's bytes.
Located locateCommon(std::string_view bytes, const Dialect& dialect, int code);

}  // namespace cad::dxf
