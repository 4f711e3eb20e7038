#pragma once
// The dimension variables: one row for each, the only place where its name, its type, its limits, its
// default and the drawing versions that have it stand. Header, dimension style, override of a dimension and
// system variable all take them from here.

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "embedded/drawing/line_weights.h"
#include "embedded/drawing/number_limits.h"
#include "embedded/drawing/version.h"

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

struct DimVariableInfo {
  std::string_view name;
  DimType type;
  NumberLimits limits;  // of numbers and characters
  double defaultValue;  // of a drawing in inches with no template; names default to "" unless a style
  Version first = Version::kR12, last = Version::kUnknown;
  // In kDimVariables: how a variable is told from others. A program and a library each have a table.
  std::uint8_t row = 0;

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
inline constexpr NumberLimits kOneCharacter{1, 0x7FFF};  // files keep it in sixteen bits
inline constexpr NumberLimits kJogAngles{0.08726646259971647, 1.5707963267948966};  // 5 to 90 degrees

// name, type, limits, default, first and last version
inline constexpr DimVariableInfo kRows[] = {
    {"DIMPOST", kText, kNone, 0},
    {"DIMAPOST", kText, kNone, 0},
    {"DIMSCALE", kReal, kFromZero, 1},
    {"DIMASZ", kReal, kFromZero, 0.18},
    {"DIMEXO", kReal, kFromZero, 0.0625},
    {"DIMDLI", kReal, kNotStated, 0.38},
    {"DIMEXE", kReal, kFromZero, 0.18},
    {"DIMRND", kReal, kFromZero, 0},
    {"DIMDLE", kReal, kFromZero, 0},
    {"DIMTP", kReal, kAny, 0},
    {"DIMTM", kReal, kAny, 0},
    {"DIMFXL", kReal, kNotStated, 1, kR2007},
    {"DIMJOGANG", kReal, kJogAngles, 0.7853981633974483, kR2007},
    {"DIMTFILL", kInteger, {0, 2}, 0, kR2007},
    {"DIMTFILLCLR", kInteger, kColors, 0, kR2007},
    {"DIMTOL", kInteger, kOnOff, 0},
    {"DIMLIM", kInteger, kOnOff, 0},
    {"DIMTIH", kInteger, kOnOff, 1},
    {"DIMTOH", kInteger, kOnOff, 1},
    {"DIMSE1", kInteger, kOnOff, 0},
    {"DIMSE2", kInteger, kOnOff, 0},
    {"DIMTAD", kInteger, {0, 4}, 0},
    {"DIMZIN", kInteger, kZeros, 0},
    {"DIMAZIN", kInteger, {0, 3}, 0, kR2000},
    {"DIMARCSYM", kInteger, {0, 2}, 0, kR2007},
    {"DIMTXT", kReal, kAboveZero, 0.18},
    {"DIMCEN", kReal, kAny, 0.09},
    {"DIMTSZ", kReal, kFromZero, 0},
    {"DIMALTF", kReal, kNotStated, 25.4},
    {"DIMLFAC", kReal, kNotZero, 1},
    {"DIMTVP", kReal, kAny, 0},
    {"DIMTFAC", kReal, kAboveZero, 1},
    {"DIMGAP", kReal, kAny, 0.09},
    {"DIMALTRND", kReal, kFromZero, 0, kR2000},
    {"DIMALT", kInteger, kOnOff, 0},
    {"DIMALTD", kInteger, kPlaces, 2},
    {"DIMTOFL", kInteger, kOnOff, 0},
    {"DIMSAH", kInteger, kOnOff, 0},
    {"DIMTIX", kInteger, kOnOff, 0},
    {"DIMSOXD", kInteger, kOnOff, 0},
    {"DIMCLRD", kInteger, kColors, 0},
    {"DIMCLRE", kInteger, kColors, 0},
    {"DIMCLRT", kInteger, kColors, 0},
    {"DIMADEC", kInteger, {-1, 8}, 0, kR2000},
    {"DIMUNIT", kInteger, {1, 8}, 2, kR13, kR14},
    {"DIMDEC", kInteger, kPlaces, 4, kR13},
    {"DIMTDEC", kInteger, kPlaces, 4, kR13},
    {"DIMALTU", kInteger, {1, 8}, 2, kR13},
    {"DIMALTTD", kInteger, kPlaces, 2, kR13},
    {"DIMAUNIT", kInteger, {0, 3}, 0, kR13},
    {"DIMFRAC", kInteger, {0, 2}, 0, kR2000},
    {"DIMLUNIT", kInteger, {1, 6}, 2, kR2000},
    {"DIMDSEP", kCharacter, kOneCharacter, 46, kR2000},
    {"DIMTMOVE", kInteger, {0, 2}, 0, kR2000},
    {"DIMJUST", kInteger, {0, 4}, 0, kR13},
    {"DIMSD1", kInteger, kOnOff, 0, kR13},
    {"DIMSD2", kInteger, kOnOff, 0, kR13},
    {"DIMTOLJ", kInteger, {0, 2}, 1, kR13},
    {"DIMTZIN", kInteger, kZeros, 0, kR13},
    {"DIMALTZ", kInteger, kZeros, 0, kR13},
    {"DIMALTTZ", kInteger, kZeros, 0, kR13},
    {"DIMFIT", kInteger, {0, 5}, 3, kR13, kR14},
    {"DIMUPT", kInteger, kOnOff, 0, kR13},
    {"DIMATFIT", kInteger, {0, 3}, 3, kR2000},
    {"DIMFXLON", kInteger, kOnOff, 0, kR2007},
    {"DIMTXTDIRECTION", kInteger, kOnOff, 0, kR2010},
    {"DIMTXSTY", kTextStyle, kNone, 0, kR13},
    {"DIMLDRBLK", kArrow, kNone, 0, kR2000},
    {"DIMBLK", kArrow, kNone, 0},
    {"DIMBLK1", kArrow, kNone, 0},
    {"DIMBLK2", kArrow, kNone, 0},
    {"DIMLTYPE", kLinetype, kNone, 0, kR2007},
    {"DIMLTEX1", kLinetype, kNone, 0, kR2007},
    {"DIMLTEX2", kLinetype, kNone, 0, kR2007},
    {"DIMLWD", kLineWeight, kWeights, -2, kR2000},
    {"DIMLWE", kLineWeight, kWeights, -2, kR2000},
    {"DIMASO", kInteger, kOnOff, 1},
    {"DIMSHO", kInteger, kOnOff, 1},
    {"DIMASSOC", kInteger, {0, 2}, 2, kR2004},
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

}  // namespace cad
