#pragma once
// The dimension variables: one row for each, the only place where its name, its type, its limits, its
// default, the drawing versions that have it and its group numbers stand. Header, dimension style, override
// of a dimension and system variable all take them from here.

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "embedded/drawing/line_weights.h"
#include "embedded/drawing/number_limits.h"
#include "embedded/drawing/storage.h"

namespace cad {

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

// What the file format adds to a variable.
struct DimGroups {
  int number = 0;  // in a dimension style and in overrides; 0: the variable lives in the header only
  int old = 0;     // in a style before handles took over (R14 and earlier); 0: the same number
  int header = 0;  // of its value in the header; 0: the one that its type has
};

struct DimVariableInfo {
  std::string_view name;
  DimType type;
  NumberLimits limits;  // of numbers and characters
  double defaultValue;  // of a drawing in inches with no template; names default to "" unless a style
  DimGroups groups;
  Version first = Version::kR12, last = Version::kUnknown;

  bool isName() const { return type >= DimType::kTextStyle; }
  bool isInteger() const { return type <= DimType::kCharacter; }
  bool existsIn(Version version) const { return version >= first && version <= last; }
};

namespace dim_table {

using enum DimType;
using enum Version;

// The limits are those that the host's reference states for the variable or for the property of dimensions
// that overrides it.
inline constexpr double kMost = std::numeric_limits<double>::max(), kLeast = -kMost;
inline constexpr NumberLimits kNone;       // names and texts
inline constexpr NumberLimits kAny;        // the reference gives the sign or the zero a meaning
inline constexpr NumberLimits kNotStated;  // it states none, and refuses no number
inline constexpr NumberLimits kFromZero{0, kMost};
inline constexpr NumberLimits kNotZero{kLeast, kMost, false};  // below 0: in paper space only
inline constexpr NumberLimits kAboveZero{std::numeric_limits<double>::denorm_min(),
                                         kMost};  // heights of texts
inline constexpr NumberLimits kOnOff{0, 1}, kPlaces{0, 8}, kColors{0, 256},
    kWeights{-3, 211, true, isLineWeight};
inline constexpr NumberLimits kZeros{0, 15};             // 0 to 3, with 4 and 8 added to it
inline constexpr NumberLimits kOneCharacter{1, 0x7FFF};  // a group of sixteen bits keeps it
inline constexpr NumberLimits kJogAngles{0.08726646259971647, 1.5707963267948966};  // 5 to 90 degrees

// name, type, limits, default, group numbers, first and last version
inline constexpr DimVariableInfo kRows[] = {
    {"DIMPOST", kText, kNone, 0, {3}},
    {"DIMAPOST", kText, kNone, 0, {4}},
    {"DIMSCALE", kReal, kFromZero, 1, {40}},
    {"DIMASZ", kReal, kFromZero, 0.18, {41}},
    {"DIMEXO", kReal, kFromZero, 0.0625, {42}},
    {"DIMDLI", kReal, kNotStated, 0.38, {43}},
    {"DIMEXE", kReal, kFromZero, 0.18, {44}},
    {"DIMRND", kReal, kFromZero, 0, {45}},
    {"DIMDLE", kReal, kFromZero, 0, {46}},
    {"DIMTP", kReal, kAny, 0, {47}},
    {"DIMTM", kReal, kAny, 0, {48}},
    {"DIMFXL", kReal, kNotStated, 1, {49}, kR2007},
    {"DIMJOGANG", kReal, kJogAngles, 0.7853981633974483, {50}, kR2007},
    {"DIMTFILL", kInteger, {0, 2}, 0, {69}, kR2007},
    {"DIMTFILLCLR", kInteger, kColors, 0, {70}, kR2007},
    {"DIMTOL", kInteger, kOnOff, 0, {71}},
    {"DIMLIM", kInteger, kOnOff, 0, {72}},
    {"DIMTIH", kInteger, kOnOff, 1, {73}},
    {"DIMTOH", kInteger, kOnOff, 1, {74}},
    {"DIMSE1", kInteger, kOnOff, 0, {75}},
    {"DIMSE2", kInteger, kOnOff, 0, {76}},
    {"DIMTAD", kInteger, {0, 4}, 0, {77}},
    {"DIMZIN", kInteger, kZeros, 0, {78}},
    {"DIMAZIN", kInteger, {0, 3}, 0, {79}, kR2000},
    {"DIMARCSYM", kInteger, {0, 2}, 0, {90}, kR2007},
    {"DIMTXT", kReal, kAboveZero, 0.18, {140}},
    {"DIMCEN", kReal, kAny, 0.09, {141}},
    {"DIMTSZ", kReal, kFromZero, 0, {142}},
    {"DIMALTF", kReal, kNotStated, 25.4, {143}},
    {"DIMLFAC", kReal, kNotZero, 1, {144}},
    {"DIMTVP", kReal, kAny, 0, {145}},
    {"DIMTFAC", kReal, kAboveZero, 1, {146}},
    {"DIMGAP", kReal, kAny, 0.09, {147}},
    {"DIMALTRND", kReal, kFromZero, 0, {148}, kR2000},
    {"DIMALT", kInteger, kOnOff, 0, {170}},
    {"DIMALTD", kInteger, kPlaces, 2, {171}},
    {"DIMTOFL", kInteger, kOnOff, 0, {172}},
    {"DIMSAH", kInteger, kOnOff, 0, {173}},
    {"DIMTIX", kInteger, kOnOff, 0, {174}},
    {"DIMSOXD", kInteger, kOnOff, 0, {175}},
    {"DIMCLRD", kInteger, kColors, 0, {176}},
    {"DIMCLRE", kInteger, kColors, 0, {177}},
    {"DIMCLRT", kInteger, kColors, 0, {178}},
    {"DIMADEC", kInteger, {-1, 8}, 0, {179}, kR2000},
    {"DIMUNIT", kInteger, {1, 8}, 2, {270}, kR13, kR14},
    {"DIMDEC", kInteger, kPlaces, 4, {271}, kR13},
    {"DIMTDEC", kInteger, kPlaces, 4, {272}, kR13},
    {"DIMALTU", kInteger, {1, 8}, 2, {273}, kR13},
    {"DIMALTTD", kInteger, kPlaces, 2, {274}, kR13},
    {"DIMAUNIT", kInteger, {0, 3}, 0, {275}, kR13},
    {"DIMFRAC", kInteger, {0, 2}, 0, {276}, kR2000},
    {"DIMLUNIT", kInteger, {1, 6}, 2, {277}, kR2000},
    {"DIMDSEP", kCharacter, kOneCharacter, 46, {278}, kR2000},
    {"DIMTMOVE", kInteger, {0, 2}, 0, {279}, kR2000},
    {"DIMJUST", kInteger, {0, 4}, 0, {280}, kR13},
    {"DIMSD1", kInteger, kOnOff, 0, {281}, kR13},
    {"DIMSD2", kInteger, kOnOff, 0, {282}, kR13},
    {"DIMTOLJ", kInteger, {0, 2}, 1, {283}, kR13},
    {"DIMTZIN", kInteger, kZeros, 0, {284}, kR13},
    {"DIMALTZ", kInteger, kZeros, 0, {285}, kR13},
    {"DIMALTTZ", kInteger, kZeros, 0, {286}, kR13},
    {"DIMFIT", kInteger, {0, 5}, 3, {287}, kR13, kR14},
    {"DIMUPT", kInteger, kOnOff, 0, {288}, kR13},
    {"DIMATFIT", kInteger, {0, 3}, 3, {289}, kR2000},
    {"DIMFXLON", kInteger, kOnOff, 0, {290}, kR2007},
    {"DIMTXTDIRECTION", kInteger, kOnOff, 0, {294}, kR2010},
    {"DIMTXSTY", kTextStyle, kNone, 0, {340}, kR13},
    {"DIMLDRBLK", kArrow, kNone, 0, {341}, kR2000},
    {"DIMBLK", kArrow, kNone, 0, {342, 5}},
    {"DIMBLK1", kArrow, kNone, 0, {343, 6}},
    {"DIMBLK2", kArrow, kNone, 0, {344, 7}},
    {"DIMLTYPE", kLinetype, kNone, 0, {345}, kR2007},
    {"DIMLTEX1", kLinetype, kNone, 0, {346}, kR2007},
    {"DIMLTEX2", kLinetype, kNone, 0, {347}, kR2007},
    {"DIMLWD", kLineWeight, kWeights, -2, {371}, kR2000},
    {"DIMLWE", kLineWeight, kWeights, -2, {372}, kR2000},
    {"DIMASO", kInteger, kOnOff, 1, {}},
    {"DIMSHO", kInteger, kOnOff, 1, {}},
    {"DIMASSOC", kInteger, {0, 2}, 2, {0, 0, 280}, kR2004},
};

}  // namespace dim_table

inline constexpr std::span<const DimVariableInfo> kDimVariables = dim_table::kRows;

// By the group number of a dimension style (old numbers of arrow blocks included) or by name (upper-case,
// no dollar sign); null when there is no such variable.
constexpr const DimVariableInfo* findDimVariable(int number) {
  for (const DimVariableInfo& info : kDimVariables)
    if (number != 0 && (info.groups.number == number || info.groups.old == number)) return &info;
  return nullptr;
}
constexpr const DimVariableInfo* findDimVariable(std::string_view name) {
  for (const DimVariableInfo& info : kDimVariables)
    if (info.name == name) return &info;
  return nullptr;
}

}  // namespace cad
