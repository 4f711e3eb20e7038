#pragma once
// The dimension variables: one row for each, the only place where its name, its group numbers, its type
// and its default stand. The file formats and the host interface both take them from here.

#include <cstdint>
#include <string_view>

#include "embedded/drawing/storage.h"

namespace cad {

enum class DimType : std::uint8_t {
  kInteger,
  kReal,
  kText,       // DIMPOST, DIMAPOST
  kTextStyle,  // a text style's name
  kArrow,      // an arrow block's name; "" is the closed filled arrow
  kLinetype,   // a linetype's name
};

// X(name, number, headerCode, oldNumber, type, first version, last version, default)
//   number      group number in a dimension style and in overrides, as the host's reference has it; 0: the
//               variable lives in the drawing's header only
//   headerCode  group code of its value in the header
//   oldNumber   group number in the style before handles took over (R14 and earlier); 0: the same number
//   default     of a drawing in inches with no template; names default to the empty text unless a style
#define CAD_DIM_VARIABLES(X)                                           \
  X(DIMPOST, 3, 1, 0, kText, kR12, kUnknown, 0)                        \
  X(DIMAPOST, 4, 1, 0, kText, kR12, kUnknown, 0)                       \
  X(DIMSCALE, 40, 40, 0, kReal, kR12, kUnknown, 1)                     \
  X(DIMASZ, 41, 40, 0, kReal, kR12, kUnknown, 0.18)                    \
  X(DIMEXO, 42, 40, 0, kReal, kR12, kUnknown, 0.0625)                  \
  X(DIMDLI, 43, 40, 0, kReal, kR12, kUnknown, 0.38)                    \
  X(DIMEXE, 44, 40, 0, kReal, kR12, kUnknown, 0.18)                    \
  X(DIMRND, 45, 40, 0, kReal, kR12, kUnknown, 0)                       \
  X(DIMDLE, 46, 40, 0, kReal, kR12, kUnknown, 0)                       \
  X(DIMTP, 47, 40, 0, kReal, kR12, kUnknown, 0)                        \
  X(DIMTM, 48, 40, 0, kReal, kR12, kUnknown, 0)                        \
  X(DIMFXL, 49, 40, 0, kReal, kR2007, kUnknown, 1)                     \
  X(DIMJOGANG, 50, 40, 0, kReal, kR2007, kUnknown, 0.7853981633974483) \
  X(DIMTFILL, 69, 70, 0, kInteger, kR2007, kUnknown, 0)                \
  X(DIMTFILLCLR, 70, 70, 0, kInteger, kR2007, kUnknown, 0)             \
  X(DIMTOL, 71, 70, 0, kInteger, kR12, kUnknown, 0)                    \
  X(DIMLIM, 72, 70, 0, kInteger, kR12, kUnknown, 0)                    \
  X(DIMTIH, 73, 70, 0, kInteger, kR12, kUnknown, 1)                    \
  X(DIMTOH, 74, 70, 0, kInteger, kR12, kUnknown, 1)                    \
  X(DIMSE1, 75, 70, 0, kInteger, kR12, kUnknown, 0)                    \
  X(DIMSE2, 76, 70, 0, kInteger, kR12, kUnknown, 0)                    \
  X(DIMTAD, 77, 70, 0, kInteger, kR12, kUnknown, 0)                    \
  X(DIMZIN, 78, 70, 0, kInteger, kR12, kUnknown, 0)                    \
  X(DIMAZIN, 79, 70, 0, kInteger, kR2000, kUnknown, 0)                 \
  X(DIMARCSYM, 90, 70, 0, kInteger, kR2007, kUnknown, 0)               \
  X(DIMTXT, 140, 40, 0, kReal, kR12, kUnknown, 0.18)                   \
  X(DIMCEN, 141, 40, 0, kReal, kR12, kUnknown, 0.09)                   \
  X(DIMTSZ, 142, 40, 0, kReal, kR12, kUnknown, 0)                      \
  X(DIMALTF, 143, 40, 0, kReal, kR12, kUnknown, 25.4)                  \
  X(DIMLFAC, 144, 40, 0, kReal, kR12, kUnknown, 1)                     \
  X(DIMTVP, 145, 40, 0, kReal, kR12, kUnknown, 0)                      \
  X(DIMTFAC, 146, 40, 0, kReal, kR12, kUnknown, 1)                     \
  X(DIMGAP, 147, 40, 0, kReal, kR12, kUnknown, 0.09)                   \
  X(DIMALTRND, 148, 40, 0, kReal, kR2000, kUnknown, 0)                 \
  X(DIMALT, 170, 70, 0, kInteger, kR12, kUnknown, 0)                   \
  X(DIMALTD, 171, 70, 0, kInteger, kR12, kUnknown, 2)                  \
  X(DIMTOFL, 172, 70, 0, kInteger, kR12, kUnknown, 0)                  \
  X(DIMSAH, 173, 70, 0, kInteger, kR12, kUnknown, 0)                   \
  X(DIMTIX, 174, 70, 0, kInteger, kR12, kUnknown, 0)                   \
  X(DIMSOXD, 175, 70, 0, kInteger, kR12, kUnknown, 0)                  \
  X(DIMCLRD, 176, 70, 0, kInteger, kR12, kUnknown, 0)                  \
  X(DIMCLRE, 177, 70, 0, kInteger, kR12, kUnknown, 0)                  \
  X(DIMCLRT, 178, 70, 0, kInteger, kR12, kUnknown, 0)                  \
  X(DIMADEC, 179, 70, 0, kInteger, kR2000, kUnknown, 0)                \
  X(DIMUNIT, 270, 70, 0, kInteger, kR13, kR14, 2)                      \
  X(DIMDEC, 271, 70, 0, kInteger, kR13, kUnknown, 4)                   \
  X(DIMTDEC, 272, 70, 0, kInteger, kR13, kUnknown, 4)                  \
  X(DIMALTU, 273, 70, 0, kInteger, kR13, kUnknown, 2)                  \
  X(DIMALTTD, 274, 70, 0, kInteger, kR13, kUnknown, 2)                 \
  X(DIMAUNIT, 275, 70, 0, kInteger, kR13, kUnknown, 0)                 \
  X(DIMFRAC, 276, 70, 0, kInteger, kR2000, kUnknown, 0)                \
  X(DIMLUNIT, 277, 70, 0, kInteger, kR2000, kUnknown, 2)               \
  X(DIMDSEP, 278, 70, 0, kInteger, kR2000, kUnknown, 46)               \
  X(DIMTMOVE, 279, 70, 0, kInteger, kR2000, kUnknown, 0)               \
  X(DIMJUST, 280, 70, 0, kInteger, kR13, kUnknown, 0)                  \
  X(DIMSD1, 281, 70, 0, kInteger, kR13, kUnknown, 0)                   \
  X(DIMSD2, 282, 70, 0, kInteger, kR13, kUnknown, 0)                   \
  X(DIMTOLJ, 283, 70, 0, kInteger, kR13, kUnknown, 1)                  \
  X(DIMTZIN, 284, 70, 0, kInteger, kR13, kUnknown, 0)                  \
  X(DIMALTZ, 285, 70, 0, kInteger, kR13, kUnknown, 0)                  \
  X(DIMALTTZ, 286, 70, 0, kInteger, kR13, kUnknown, 0)                 \
  X(DIMFIT, 287, 70, 0, kInteger, kR13, kR14, 3)                       \
  X(DIMUPT, 288, 70, 0, kInteger, kR13, kUnknown, 0)                   \
  X(DIMATFIT, 289, 70, 0, kInteger, kR2000, kUnknown, 3)               \
  X(DIMFXLON, 290, 70, 0, kInteger, kR2007, kUnknown, 0)               \
  X(DIMTXTDIRECTION, 294, 70, 0, kInteger, kR2010, kUnknown, 0)        \
  X(DIMTXSTY, 340, 7, 0, kTextStyle, kR13, kUnknown, 0)                \
  X(DIMLDRBLK, 341, 1, 0, kArrow, kR2000, kUnknown, 0)                 \
  X(DIMBLK, 342, 1, 5, kArrow, kR12, kUnknown, 0)                      \
  X(DIMBLK1, 343, 1, 6, kArrow, kR12, kUnknown, 0)                     \
  X(DIMBLK2, 344, 1, 7, kArrow, kR12, kUnknown, 0)                     \
  X(DIMLTYPE, 345, 6, 0, kLinetype, kR2007, kUnknown, 0)               \
  X(DIMLTEX1, 346, 6, 0, kLinetype, kR2007, kUnknown, 0)               \
  X(DIMLTEX2, 347, 6, 0, kLinetype, kR2007, kUnknown, 0)               \
  X(DIMLWD, 371, 70, 0, kInteger, kR2000, kUnknown, -2)                \
  X(DIMLWE, 372, 70, 0, kInteger, kR2000, kUnknown, -2)                \
  X(DIMASO, 0, 70, 0, kInteger, kR12, kUnknown, 1)                     \
  X(DIMSHO, 0, 70, 0, kInteger, kR12, kUnknown, 1)                     \
  X(DIMASSOC, 0, 280, 0, kInteger, kR2004, kUnknown, 2)

struct DimVariableInfo {
  std::string_view name;
  int number;
  int headerCode;
  int oldNumber;
  DimType type;
  Version first, last;
  double defaultValue;

  bool isName() const { return type >= DimType::kTextStyle; }
  bool existsIn(Version version) const { return version >= first && version <= last; }
};

inline constexpr DimVariableInfo kDimVariables[] = {
#define CAD_DIM_ROW(name, number, header, old, type, first, last, value) \
  {#name, number, header, old, DimType::type, Version::first, Version::last, value},
    CAD_DIM_VARIABLES(CAD_DIM_ROW)
#undef CAD_DIM_ROW
};

// By the group number of a dimension style (old numbers of arrow blocks included) or by name (upper-case,
// no dollar sign); null when there is no such variable.
constexpr const DimVariableInfo* findDimVariable(int number) {
  for (const DimVariableInfo& info : kDimVariables)
    if (number != 0 && (info.number == number || info.oldNumber == number)) return &info;
  return nullptr;
}
constexpr const DimVariableInfo* findDimVariable(std::string_view name) {
  for (const DimVariableInfo& info : kDimVariables)
    if (info.name == name) return &info;
  return nullptr;
}

}  // namespace cad
