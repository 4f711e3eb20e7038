#pragma once
// Which of an entity's groups tell what every entity has: layer, colour, linetype and so on.
//
// They belong before the first subclass marker or behind AcDbEntity. Several programs write them behind the
// marker of the entity's own class: there they have strayed, and count for a code that no group in the right
// place has, unless that class, or a class that nobody here knows, may mean something of its own by it.

#include <string_view>

namespace cad::dxf {

inline constexpr std::string_view kEntityMarker = "AcDbEntity";

// Where a record's walk is, by the subclass markers that it passed. Applications' groups, embedded objects
// and extended data are the caller's to leave out.
class CommonGroups {
 public:
  void marker(std::string_view subclass) {
    marker_ = subclass;
    atHome_ = !sawEntity_ && subclass == kEntityMarker;
    sawEntity_ = sawEntity_ || atHome_;
  }
  bool atHome() const { return atHome_; }
  bool strayed(int code) const;  // a group of this code, here

 private:
  std::string_view marker_;
  bool atHome_ = true, sawEntity_ = false;
};

// Groups that every entity may have.
bool isCommonCode(int code);

}  // namespace cad::dxf
