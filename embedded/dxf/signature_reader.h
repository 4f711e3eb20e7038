#pragma once
// Picks out of an entity's groups what its signature is made of.

#include <string_view>

#include "embedded/drawing/names.h"
#include "embedded/drawing/record.h"
#include "embedded/dxf/dialect.h"
#include "embedded/dxf/group_cursor.h"
#include "embedded/dxf/record_regions.h"

namespace cad::dxf {

class SignatureReader {
 public:
  void begin(std::string_view type);
  // Every group of the record after the first, in order.
  void group(int code, std::string_view value) {
    // Coordinates are most of a drawing and none of them matters here.
    if (code >= 9 && code < 48) return;
    take(code, value);
  }
  Signature finish(NamePool& names, const Dialect& dialect);
  // Whether the record has what the one before it had; its signature is then the same. The bytes of both
  // must still be there.
  bool sameAsBefore() const { return fields_ == before_; }

  bool inPaperSpace(const Dialect& dialect) const;
  bool namesLayers() const { return namesLayers_; }  // its extended data does
  // Whether common groups have strayed, or new ones may: AcDbEntity is not the first marker.
  bool straying() const { return straying_; }

 private:
  void take(int code, std::string_view value);
  void marker(std::string_view value);
  void common(int code, std::string_view value, std::string_view& field, CommonPick& pick);
  void noteStray(int code);
  void style(std::string_view value);
  NameId intern(NamePool& names, std::string_view value, std::size_t slot);

  struct Fields {
    std::string_view type, layer, linetype, style, color, paper;
    bool operator==(const Fields&) const = default;
  };
  Fields fields_, before_;
  CommonGroups common_;
  struct Picks {
    CommonPick layer, linetype, color, paper;
  };
  Picks picks_;
  std::string_view textClass_;  // where a text has its style; empty: the record is no text
  // Whether this is the place of a text's style, was one behind a marker, and had a style.
  bool inText_ = true, sawText_ = false, styleInText_ = false;
  bool application_ = false, regular_ = true, namesLayers_ = false, straying_ = false;
  // Neighbouring entities mostly have the same names.
  struct Recent {
    std::string_view value;
    NameId name = kNoName;
  };
  Recent recent_[4];
};

}  // namespace cad::dxf
