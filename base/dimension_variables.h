#pragma once
// The dimension variables: one row for each, with its name, its type, its limits, its default, its group
// numbers, the drawing versions that have it and its type in specifications. The declarations of the
// host's interface, which repeat name and type, are checked against it when they are compiled. Header,
// dimension style, override of a dimension, system variable and catalogue all take them from here.

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "base/drawing_version.h"
#include "base/lineweights.h"
#include "base/number_limits.h"

namespace base {

enum class DimType : std::uint8_t {
  kInteger,
  kLineWeight,  // an integer, one of the steps
  kCharacter,   // kept as the character's number
  kReal,
  kText,       // DIMPOST, DIMAPOST
  kTextStyle,  // a text style's name
  kArrow,      // an arrow block's name; "" is the closed filled arrow
  kLinetype,   // a linetype's name
};

struct DimGroups {
  int number = 0;  // in a dimension style and in overrides; 0: the variable lives in the header only
  int old = 0;     // in a style before handles took over (R14 and earlier); 0: the same number
  int header = 0;  // of its value in the header; 0: the one that its type has
};

// The type that a variable's value has in conversion specifications: not always the host's.
enum class DimOffer : std::uint8_t { kNotOffered, kAsInteger, kAsReal, kAsText };

struct DimVariableInfo {
  std::string_view name;
  DimType type;
  NumberLimits limits;  // of numbers and characters
  double defaultValue;  // of a drawing in inches with no template; names default to "" unless a style
  DimGroups groups;
  VersionRange versions = {};
  DimOffer offer = DimOffer::kNotOffered;
  // In kDimVariables: how a variable is told from others. A program and a library each have a table.
  std::uint8_t row = 0;

  constexpr bool isName() const { return type >= DimType::kTextStyle; }
  constexpr bool isInteger() const { return type <= DimType::kCharacter; }
  constexpr bool isOffered() const { return offer != DimOffer::kNotOffered; }
  constexpr bool isOfHeaderOnly() const { return groups.number == 0; }
  constexpr bool existsIn(Version version) const { return versions.hold(version); }
};

namespace dim_table {

using enum DimType;
using enum DimOffer;
using enum Version;

consteval DimVariableInfo row(std::string_view name, DimType type, const NumberLimits& limits,
                              double defaultValue, DimGroups groups, VersionRange versions,
                              DimOffer offer = kNotOffered) {
  return {name, type, limits, defaultValue, groups, versions, offer};
}

// The limits are those that the host's reference states for the variable or for the property of dimensions
// that overrides it.
inline constexpr double kMost = std::numeric_limits<double>::max(), kLeast = -kMost;
inline constexpr NumberLimits kNoNumber;   // names and texts
inline constexpr NumberLimits kAny;        // the reference gives the sign or the zero a meaning
inline constexpr NumberLimits kNotStated;  // it states none, and refuses no number
inline constexpr NumberLimits kFromZero{0, kMost};
inline constexpr NumberLimits kNotZero{kLeast, kMost, false};  // below 0: in paper space only
inline constexpr NumberLimits kAboveZero{std::numeric_limits<double>::denorm_min(),
                                         kMost};  // heights of texts
inline constexpr NumberLimits kOnOff{0, 1}, kPlaces{0, 8}, kColors{0, 256};
inline constexpr NumberLimits kZeros{0, 15};             // 0 to 3, with 4 and 8 added to it
inline constexpr NumberLimits kOneCharacter{1, 0x7FFF};  // files keep it in sixteen bits
inline constexpr NumberLimits kJogAngles{0.08726646259971647, 1.5707963267948966};  // 5 to 90 degrees

// name, type, limits, default, group numbers, first and last version, offer to specifications
inline constexpr DimVariableInfo kRows[] = {
    row("DIMPOST", kText, kNoNumber, 0, {3}, {}, kAsText),
    row("DIMAPOST", kText, kNoNumber, 0, {4}, {}, kAsText),
    row("DIMSCALE", kReal, kFromZero, 1, {40}, {}, kAsReal),
    row("DIMASZ", kReal, kFromZero, 0.18, {41}, {}, kAsReal),
    row("DIMEXO", kReal, kFromZero, 0.0625, {42}, {}, kAsReal),
    row("DIMDLI", kReal, kNotStated, 0.38, {43}, {}, kAsReal),
    row("DIMEXE", kReal, kFromZero, 0.18, {44}, {}, kAsReal),
    row("DIMRND", kReal, kFromZero, 0, {45}, {}, kAsReal),
    row("DIMDLE", kReal, kFromZero, 0, {46}, {}, kAsReal),
    row("DIMTP", kReal, kAny, 0, {47}, {}, kAsReal),
    row("DIMTM", kReal, kAny, 0, {48}, {}, kAsReal),
    row("DIMFXL", kReal, kNotStated, 1, {49}, {kR2007}),
    row("DIMJOGANG", kReal, kJogAngles, 0.7853981633974483, {50}, {kR2007}),
    row("DIMTFILL", kInteger, {0, 2}, 0, {69}, {kR2007}),
    row("DIMTFILLCLR", kInteger, kColors, 0, {70}, {kR2007}),
    row("DIMTOL", kInteger, kOnOff, 0, {71}, {}, kAsInteger),
    row("DIMLIM", kInteger, kOnOff, 0, {72}, {}, kAsInteger),
    row("DIMTIH", kInteger, kOnOff, 1, {73}, {}, kAsInteger),
    row("DIMTOH", kInteger, kOnOff, 1, {74}, {}, kAsInteger),
    row("DIMSE1", kInteger, kOnOff, 0, {75}, {}, kAsInteger),
    row("DIMSE2", kInteger, kOnOff, 0, {76}, {}, kAsInteger),
    row("DIMTAD", kInteger, {0, 4}, 0, {77}, {}, kAsInteger),
    row("DIMZIN", kInteger, kZeros, 0, {78}, {}, kAsInteger),
    row("DIMAZIN", kInteger, {0, 3}, 0, {79}, {kR2000}, kAsInteger),
    row("DIMARCSYM", kInteger, {0, 2}, 0, {90}, {kR2007}),
    row("DIMTXT", kReal, kAboveZero, 0.18, {140}, {}, kAsReal),
    row("DIMCEN", kReal, kAny, 0.09, {141}, {}, kAsReal),
    row("DIMTSZ", kReal, kFromZero, 0, {142}, {}, kAsReal),
    row("DIMALTF", kReal, kNotStated, 25.4, {143}, {}, kAsInteger),
    row("DIMLFAC", kReal, kNotZero, 1, {144}, {}, kAsReal),
    row("DIMTVP", kReal, kAny, 0, {145}, {}, kAsReal),
    row("DIMTFAC", kReal, kAboveZero, 1, {146}, {}, kAsReal),
    row("DIMGAP", kReal, kAny, 0.09, {147}, {}, kAsReal),
    row("DIMALTRND", kReal, kFromZero, 0, {148}, {kR2000}, kAsInteger),
    row("DIMALT", kInteger, kOnOff, 0, {170}, {}, kAsInteger),
    row("DIMALTD", kInteger, kPlaces, 2, {171}, {}, kAsInteger),
    row("DIMTOFL", kInteger, kOnOff, 0, {172}, {}, kAsInteger),
    row("DIMSAH", kInteger, kOnOff, 0, {173}, {}, kAsInteger),
    row("DIMTIX", kInteger, kOnOff, 0, {174}, {}, kAsInteger),
    row("DIMSOXD", kInteger, kOnOff, 0, {175}, {}, kAsInteger),
    row("DIMCLRD", kInteger, kColors, 0, {176}, {}, kAsInteger),
    row("DIMCLRE", kInteger, kColors, 0, {177}, {}, kAsInteger),
    row("DIMCLRT", kInteger, kColors, 0, {178}, {}, kAsInteger),
    row("DIMADEC", kInteger, {-1, 8}, 0, {179}, {kR2000}, kAsInteger),
    row("DIMUNIT", kInteger, {1, 8}, 2, {270}, {kR13, kR14}),
    row("DIMDEC", kInteger, kPlaces, 4, {271}, {kR13}, kAsInteger),
    row("DIMTDEC", kInteger, kPlaces, 4, {272}, {kR13}, kAsInteger),
    row("DIMALTU", kInteger, {1, 8}, 2, {273}, {kR13}, kAsInteger),
    row("DIMALTTD", kInteger, kPlaces, 2, {274}, {kR13}, kAsInteger),
    row("DIMAUNIT", kInteger, {0, 3}, 0, {275}, {kR13}, kAsInteger),
    row("DIMFRAC", kInteger, {0, 2}, 0, {276}, {kR2000}, kAsInteger),
    row("DIMLUNIT", kInteger, {1, 6}, 2, {277}, {kR2000}, kAsInteger),
    row("DIMDSEP", kCharacter, kOneCharacter, 46, {278}, {kR2000}, kAsText),
    row("DIMTMOVE", kInteger, {0, 2}, 0, {279}, {kR2000}, kAsInteger),
    row("DIMJUST", kInteger, {0, 4}, 0, {280}, {kR13}, kAsInteger),
    row("DIMSD1", kInteger, kOnOff, 0, {281}, {kR13}, kAsInteger),
    row("DIMSD2", kInteger, kOnOff, 0, {282}, {kR13}, kAsInteger),
    row("DIMTOLJ", kInteger, {0, 2}, 1, {283}, {kR13}, kAsInteger),
    row("DIMTZIN", kInteger, kZeros, 0, {284}, {kR13}, kAsInteger),
    row("DIMALTZ", kInteger, kZeros, 0, {285}, {kR13}, kAsInteger),
    row("DIMALTTZ", kInteger, kZeros, 0, {286}, {kR13}, kAsInteger),
    row("DIMFIT", kInteger, {0, 5}, 3, {287}, {kR13, kR14}),
    row("DIMUPT", kInteger, kOnOff, 0, {288}, {kR13}, kAsInteger),
    row("DIMATFIT", kInteger, {0, 3}, 3, {289}, {kR2000}, kAsInteger),
    row("DIMFXLON", kInteger, kOnOff, 0, {290}, {kR2007}),
    row("DIMTXTDIRECTION", kInteger, kOnOff, 0, {294}, {kR2010}),
    row("DIMTXSTY", kTextStyle, kNoNumber, 0, {340}, {kR13}, kAsText),
    row("DIMLDRBLK", kArrow, kNoNumber, 0, {341}, {kR2000}, kAsText),
    row("DIMBLK", kArrow, kNoNumber, 0, {342, 5}, {}, kAsText),
    row("DIMBLK1", kArrow, kNoNumber, 0, {343, 6}, {}, kAsText),
    row("DIMBLK2", kArrow, kNoNumber, 0, {344, 7}, {}, kAsText),
    row("DIMLTYPE", kLinetype, kNoNumber, 0, {345}, {kR2007}),
    row("DIMLTEX1", kLinetype, kNoNumber, 0, {346}, {kR2007}),
    row("DIMLTEX2", kLinetype, kNoNumber, 0, {347}, {kR2007}),
    row("DIMLWD", kLineWeight, kLineweightLimits, -2, {371}, {kR2000}, kAsInteger),
    row("DIMLWE", kLineWeight, kLineweightLimits, -2, {372}, {kR2000}, kAsInteger),
    row("DIMASO", kInteger, kOnOff, 1, {}, {}, kAsInteger),
    row("DIMSHO", kInteger, kOnOff, 1, {}, {}, kAsReal),
    row("DIMASSOC", kInteger, {0, 2}, 2, {0, 0, 280}, {kR2004}),
};

}  // namespace dim_table

inline constexpr auto kDimVariables = [] {
  auto rows = std::to_array(dim_table::kRows);
  for (std::size_t row = 0; row < rows.size(); ++row) rows[row].row = static_cast<std::uint8_t>(row);
  return rows;
}();

// By name (upper-case, no dollar sign); null when there is no such variable.
constexpr const DimVariableInfo* findDimVariable(std::string_view name) {
  for (const DimVariableInfo& info : kDimVariables)
    if (info.name == name) return &info;
  return nullptr;
}

// The row of a variable that is known to exist; a misspelt name does not compile.
consteval const DimVariableInfo& dimRow(std::string_view name) {
  for (const DimVariableInfo& info : kDimVariables)
    if (info.name == name) return info;
  throw "no such dimension variable";
}

}  // namespace base
