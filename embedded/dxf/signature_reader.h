#pragma once
// Picks out of an entity's groups what its signature is made of.

#include <array>
#include <cstddef>
#include <string_view>

#include "embedded/drawing/names.h"
#include "embedded/drawing/record.h"
#include "embedded/dxf/dialect.h"
#include "embedded/dxf/group_cursor.h"
#include "embedded/dxf/record_regions.h"

namespace cad::dxf {

class SignatureReader {
 public:
  // Whether a group of this code says anything here: most of a drawing is coordinates, which do not.
  static constexpr bool heeds(int code) {
    return code < 0 || code >= kCodes || kHeeded[static_cast<std::size_t>(code)];
  }

  void begin(std::string_view type);
  // The groups of the record after the first, in order; those that are not heeded may be left out.
  void group(int code, std::string_view value) {
    if (heeds(code)) take(code, value);
  }
  Signature finish(NamePool& names, const Dialect& dialect) const;
  // What the signature is made of, as it stands in the record, whose bytes must still be there.
  struct Fields {
    std::string_view type, layer, linetype, style, color;
    bool operator==(const Fields&) const = default;
  };
  const Fields& fields() const { return fields_; }

  bool inPaperSpace(const Dialect& dialect) const;
  bool namesLayers() const { return namesLayers_; }  // its extended data does
  // Whether common groups have strayed, or new ones may: AcDbEntity is not the first marker.
  bool straying() const { return straying_; }

 private:
  static constexpr int kCodes = 1000;  // from here on all are heeded
  static constexpr std::array<bool, kCodes> kHeeded = [] {
    std::array<bool, kCodes> heeded{};
    for (int code = 0; code < kCodes; ++code) heeded[static_cast<std::size_t>(code)] = mayStray(code);
    for (const std::size_t code : {7, 100, 101, 102}) heeded[code] = true;
    return heeded;
  }();

  void take(int code, std::string_view value);
  void marker(std::string_view value);
  void common(int code, std::string_view value, std::string_view& field, CommonPick& pick);
  void noteStray(int code);
  void style(std::string_view value);

  Fields fields_;
  std::string_view paper_;
  CommonGroups common_;
  struct Picks {
    CommonPick layer, linetype, color, paper;
  };
  Picks picks_;
  std::string_view textClass_;  // where a text has its style; empty: the record is no text
  // Whether this is the place of a text's style, was one behind a marker, and had a style.
  bool inText_ = true, sawText_ = false, styleInText_ = false;
  bool application_ = false, regular_ = true, namesLayers_ = false, straying_ = false;
};

}  // namespace cad::dxf
