#pragma once
// The dimension variables that a specification can name, as members of the host's dimensions and leaders: one
// row for each, for those who read and those who write. DIMASO and DIMSHO belong to the drawing and have
// none.

#include <array>
#include <string>
#include <variant>

#include "base/dimension_variables.h"
#include "dbdim.h"
#include "dblead.h"

namespace kiv {

// (name, what its writer takes, reader, writer); LEADER_ROW: leaders have it too.
#define KIV_DIMENSION_VARIABLES(ROW, LEADER_ROW)         \
  ROW(DIMADEC, Integer, dimadec, setDimadec)             \
  ROW(DIMALT, Bool, dimalt, setDimalt)                   \
  ROW(DIMALTD, Integer, dimaltd, setDimaltd)             \
  ROW(DIMALTF, Real, dimaltf, setDimaltf)                \
  ROW(DIMALTRND, Real, dimaltrnd, setDimaltrnd)          \
  ROW(DIMALTTD, Integer, dimalttd, setDimalttd)          \
  ROW(DIMALTTZ, Integer, dimalttz, setDimalttz)          \
  ROW(DIMALTU, Integer, dimaltu, setDimaltu)             \
  ROW(DIMALTZ, Integer, dimaltz, setDimaltz)             \
  ROW(DIMAPOST, Text, dimapost, setDimapost)             \
  LEADER_ROW(DIMASZ, Real, dimasz, setDimasz)            \
  ROW(DIMATFIT, Integer, dimatfit, setDimatfit)          \
  ROW(DIMAUNIT, Integer, dimaunit, setDimaunit)          \
  ROW(DIMAZIN, Integer, dimazin, setDimazin)             \
  ROW(DIMBLK, Arrow, dimblk, setDimblk)                  \
  ROW(DIMBLK1, Arrow, dimblk1, setDimblk1)               \
  ROW(DIMBLK2, Arrow, dimblk2, setDimblk2)               \
  ROW(DIMCEN, Real, dimcen, setDimcen)                   \
  LEADER_ROW(DIMCLRD, Color, dimclrd, setDimclrd)        \
  ROW(DIMCLRE, Color, dimclre, setDimclre)               \
  ROW(DIMCLRT, Color, dimclrt, setDimclrt)               \
  ROW(DIMDEC, Integer, dimdec, setDimdec)                \
  ROW(DIMDLE, Real, dimdle, setDimdle)                   \
  ROW(DIMDLI, Real, dimdli, setDimdli)                   \
  ROW(DIMDSEP, Character, dimdsep, setDimdsep)           \
  ROW(DIMEXE, Real, dimexe, setDimexe)                   \
  ROW(DIMEXO, Real, dimexo, setDimexo)                   \
  ROW(DIMFRAC, Integer, dimfrac, setDimfrac)             \
  LEADER_ROW(DIMGAP, Real, dimgap, setDimgap)            \
  ROW(DIMJUST, Integer, dimjust, setDimjust)             \
  LEADER_ROW(DIMLDRBLK, Arrow, dimldrblk, setDimldrblk)  \
  ROW(DIMLFAC, Real, dimlfac, setDimlfac)                \
  ROW(DIMLIM, Bool, dimlim, setDimlim)                   \
  ROW(DIMLUNIT, Integer, dimlunit, setDimlunit)          \
  LEADER_ROW(DIMLWD, Weight, dimlwd, setDimlwd)          \
  ROW(DIMLWE, Weight, dimlwe, setDimlwe)                 \
  ROW(DIMPOST, Text, dimpost, setDimpost)                \
  ROW(DIMRND, Real, dimrnd, setDimrnd)                   \
  LEADER_ROW(DIMSAH, Bool, dimsah, setDimsah)            \
  LEADER_ROW(DIMSCALE, Real, dimscale, setDimscale)      \
  ROW(DIMSD1, Bool, dimsd1, setDimsd1)                   \
  ROW(DIMSD2, Bool, dimsd2, setDimsd2)                   \
  ROW(DIMSE1, Bool, dimse1, setDimse1)                   \
  ROW(DIMSE2, Bool, dimse2, setDimse2)                   \
  ROW(DIMSOXD, Bool, dimsoxd, setDimsoxd)                \
  LEADER_ROW(DIMTAD, Integer, dimtad, setDimtad)         \
  ROW(DIMTDEC, Integer, dimtdec, setDimtdec)             \
  ROW(DIMTFAC, Real, dimtfac, setDimtfac)                \
  ROW(DIMTIH, Bool, dimtih, setDimtih)                   \
  ROW(DIMTIX, Bool, dimtix, setDimtix)                   \
  ROW(DIMTM, Real, dimtm, setDimtm)                      \
  ROW(DIMTMOVE, Integer, dimtmove, setDimtmove)          \
  ROW(DIMTOFL, Bool, dimtofl, setDimtofl)                \
  ROW(DIMTOH, Bool, dimtoh, setDimtoh)                   \
  ROW(DIMTOL, Bool, dimtol, setDimtol)                   \
  ROW(DIMTOLJ, Integer, dimtolj, setDimtolj)             \
  ROW(DIMTP, Real, dimtp, setDimtp)                      \
  ROW(DIMTSZ, Real, dimtsz, setDimtsz)                   \
  ROW(DIMTVP, Real, dimtvp, setDimtvp)                   \
  LEADER_ROW(DIMTXSTY, TextStyle, dimtxsty, setDimtxsty) \
  LEADER_ROW(DIMTXT, Real, dimtxt, setDimtxt)            \
  ROW(DIMTZIN, Integer, dimtzin, setDimtzin)             \
  ROW(DIMUPT, Bool, dimupt, setDimupt)                   \
  ROW(DIMZIN, Integer, dimzin, setDimzin)

// A number (integers, switches as 0 and 1, colours by index, lineweights), a text, or the text style or arrow
// block that is named; null: the default arrow.
using DimensionReading = std::variant<double, std::wstring, AcDbObjectId>;

template <class Number>
DimensionReading readingOf(Number value) {
  return static_cast<double>(value);
}
inline DimensionReading readingOf(const AcCmColor& value) { return static_cast<double>(value.colorIndex()); }
inline DimensionReading readingOf(const ACHAR* value) { return std::wstring(value != nullptr ? value : L""); }
inline DimensionReading readingOf(ACHAR value) { return std::wstring(value != 0 ? 1 : 0, value); }
inline DimensionReading readingOf(AcDbObjectId value) { return value; }

struct DimensionReader {
  // The entity's own value: an override, else its style's. Null: it does not have the variable.
  DimensionReading (*ofDimension)(const AcDbEntity& dimension) = nullptr;
  DimensionReading (*ofLeader)(const AcDbEntity& leader) = nullptr;
};

#define KIV_READ(CLASS, GET) \
  [](const AcDbEntity& entity) { return readingOf(static_cast<const CLASS&>(entity).GET()); }
#define KIV_READER(NAME, TYPE, GET, SET) \
  readers[base::dimRow(#NAME).row] = {KIV_READ(AcDbDimension, GET), nullptr};
#define KIV_LEADER_READER(NAME, TYPE, GET, SET) \
  readers[base::dimRow(#NAME).row] = {KIV_READ(AcDbDimension, GET), KIV_READ(AcDbLeader, GET)};

// By the row of base::kDimVariables.
inline constexpr auto kDimensionReaders = [] {
  std::array<DimensionReader, base::kDimVariables.size()> readers{};
  KIV_DIMENSION_VARIABLES(KIV_READER, KIV_LEADER_READER)
  return readers;
}();

#undef KIV_READ
#undef KIV_READER
#undef KIV_LEADER_READER

}  // namespace kiv
