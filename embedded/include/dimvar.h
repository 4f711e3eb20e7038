#pragma once
// The dimension variables as functions: one row for each, from which every class that has them declares
// its reader and its writer. Names, group numbers and defaults stand in the table of the drawing store.
//
// Readers give the object's own value (an override, on a dimension or leader), else its dimension style's,
// else the default. Writers on a dimension or leader make an override, or remove it when the value is the
// style's; they return eInvalidInput for a value outside the limits, eNotApplicable when the drawing's
// version does not have the variable, eNotOpenForWrite.
//
// Lengths and sizes are drawing units before DIMSCALE. Ids: a text style (dimtxsty), an arrow block
// (dimblk, dimblk1, dimblk2, dimldrblk; null is the closed filled arrow) or a linetype; the writers also
// take a name, eKeyNotFound when the drawing does not have it. Arrow names: with or without the leading
// underscore; "." and "" are the closed filled arrow.

#include "AcString.h"
#include "dbcolor.h"
#include "dbid.h"

// INTEGER and REAL rows: reader, writer, variable, least, most. BOOL, TEXT, CHARACTER, ID, COLOR and
// WEIGHT rows: reader, writer, variable.
#define ACDB_LEADER_DIM_VARIABLES(INTEGER, BOOL, REAL, TEXT, CHARACTER, ID, COLOR, WEIGHT) \
  REAL(dimasz, setDimasz, DIMASZ, 0, 1e300)                                                \
  COLOR(dimclrd, setDimclrd, DIMCLRD)                                                      \
  REAL(dimgap, setDimgap, DIMGAP, -1e300, 1e300)                                           \
  ID(dimldrblk, setDimldrblk, DIMLDRBLK)                                                   \
  WEIGHT(dimlwd, setDimlwd, DIMLWD)                                                        \
  BOOL(dimsah, setDimsah, DIMSAH)                                                          \
  REAL(dimscale, setDimscale, DIMSCALE, 0, 1e300)                                          \
  INTEGER(dimtad, setDimtad, DIMTAD, 0, 4)                                                 \
  ID(dimtxsty, setDimtxsty, DIMTXSTY)                                                      \
  REAL(dimtxt, setDimtxt, DIMTXT, 1e-300, 1e300)

#define ACDB_OTHER_DIM_VARIABLES(INTEGER, BOOL, REAL, TEXT, CHARACTER, ID, COLOR, WEIGHT) \
  INTEGER(dimadec, setDimadec, DIMADEC, -1, 8)                                            \
  BOOL(dimalt, setDimalt, DIMALT)                                                         \
  INTEGER(dimaltd, setDimaltd, DIMALTD, 0, 8)                                             \
  REAL(dimaltf, setDimaltf, DIMALTF, 1e-300, 1e300)                                       \
  REAL(dimaltrnd, setDimaltrnd, DIMALTRND, 0, 1e300)                                      \
  INTEGER(dimalttd, setDimalttd, DIMALTTD, 0, 8)                                          \
  INTEGER(dimalttz, setDimalttz, DIMALTTZ, 0, 15)                                         \
  INTEGER(dimaltu, setDimaltu, DIMALTU, 1, 8)                                             \
  INTEGER(dimaltz, setDimaltz, DIMALTZ, 0, 15)                                            \
  TEXT(dimapost, setDimapost, DIMAPOST)                                                   \
  INTEGER(dimarcsym, setDimarcsym, DIMARCSYM, 0, 2)                                       \
  INTEGER(dimatfit, setDimatfit, DIMATFIT, 0, 3)                                          \
  INTEGER(dimaunit, setDimaunit, DIMAUNIT, 0, 4)                                          \
  INTEGER(dimazin, setDimazin, DIMAZIN, 0, 3)                                             \
  ID(dimblk, setDimblk, DIMBLK)                                                           \
  ID(dimblk1, setDimblk1, DIMBLK1)                                                        \
  ID(dimblk2, setDimblk2, DIMBLK2)                                                        \
  REAL(dimcen, setDimcen, DIMCEN, -1e300, 1e300)                                          \
  COLOR(dimclre, setDimclre, DIMCLRE)                                                     \
  COLOR(dimclrt, setDimclrt, DIMCLRT)                                                     \
  INTEGER(dimdec, setDimdec, DIMDEC, 0, 8)                                                \
  REAL(dimdle, setDimdle, DIMDLE, 0, 1e300)                                               \
  REAL(dimdli, setDimdli, DIMDLI, 0, 1e300)                                               \
  CHARACTER(dimdsep, setDimdsep, DIMDSEP)                                                 \
  REAL(dimexe, setDimexe, DIMEXE, 0, 1e300)                                               \
  REAL(dimexo, setDimexo, DIMEXO, 0, 1e300)                                               \
  INTEGER(dimfrac, setDimfrac, DIMFRAC, 0, 2)                                             \
  REAL(dimfxlen, setDimfxlen, DIMFXL, 0, 1e300)                                           \
  BOOL(dimfxlenOn, setDimfxlenOn, DIMFXLON)                                               \
  REAL(dimjogang, setDimjogang, DIMJOGANG, 0, 1.5707963267948966)                         \
  INTEGER(dimjust, setDimjust, DIMJUST, 0, 4)                                             \
  REAL(dimlfac, setDimlfac, DIMLFAC, -1e300, 1e300)                                       \
  BOOL(dimlim, setDimlim, DIMLIM)                                                         \
  ID(dimltex1, setDimltex1, DIMLTEX1)                                                     \
  ID(dimltex2, setDimltex2, DIMLTEX2)                                                     \
  ID(dimltype, setDimltype, DIMLTYPE)                                                     \
  INTEGER(dimlunit, setDimlunit, DIMLUNIT, 1, 6)                                          \
  WEIGHT(dimlwe, setDimlwe, DIMLWE)                                                       \
  TEXT(dimpost, setDimpost, DIMPOST)                                                      \
  REAL(dimrnd, setDimrnd, DIMRND, 0, 1e300)                                               \
  BOOL(dimsd1, setDimsd1, DIMSD1)                                                         \
  BOOL(dimsd2, setDimsd2, DIMSD2)                                                         \
  BOOL(dimse1, setDimse1, DIMSE1)                                                         \
  BOOL(dimse2, setDimse2, DIMSE2)                                                         \
  BOOL(dimsoxd, setDimsoxd, DIMSOXD)                                                      \
  INTEGER(dimtdec, setDimtdec, DIMTDEC, 0, 8)                                             \
  REAL(dimtfac, setDimtfac, DIMTFAC, 1e-300, 1e300)                                       \
  INTEGER(dimtfill, setDimtfill, DIMTFILL, 0, 2)                                          \
  COLOR(dimtfillclr, setDimtfillclr, DIMTFILLCLR)                                         \
  BOOL(dimtih, setDimtih, DIMTIH)                                                         \
  BOOL(dimtix, setDimtix, DIMTIX)                                                         \
  REAL(dimtm, setDimtm, DIMTM, -1e300, 1e300)                                             \
  INTEGER(dimtmove, setDimtmove, DIMTMOVE, 0, 2)                                          \
  BOOL(dimtofl, setDimtofl, DIMTOFL)                                                      \
  BOOL(dimtoh, setDimtoh, DIMTOH)                                                         \
  BOOL(dimtol, setDimtol, DIMTOL)                                                         \
  INTEGER(dimtolj, setDimtolj, DIMTOLJ, 0, 2)                                             \
  REAL(dimtp, setDimtp, DIMTP, -1e300, 1e300)                                             \
  REAL(dimtsz, setDimtsz, DIMTSZ, 0, 1e300)                                               \
  REAL(dimtvp, setDimtvp, DIMTVP, -1e300, 1e300)                                          \
  BOOL(dimtxtdirection, setDimtxtdirection, DIMTXTDIRECTION)                              \
  INTEGER(dimtzin, setDimtzin, DIMTZIN, 0, 15)                                            \
  BOOL(dimupt, setDimupt, DIMUPT)                                                         \
  INTEGER(dimzin, setDimzin, DIMZIN, 0, 15)

#define ACDB_DIM_DECLARE_INTEGER(get, set, variable, least, most) \
  int get() const;                                                \
  Acad::ErrorStatus set(int value);
#define ACDB_DIM_DECLARE_BOOL(get, set, variable) \
  bool get() const;                               \
  Acad::ErrorStatus set(bool value);
#define ACDB_DIM_DECLARE_REAL(get, set, variable, least, most) \
  double get() const;                                          \
  Acad::ErrorStatus set(double value);
#define ACDB_DIM_DECLARE_TEXT(get, set, variable) \
  const ACHAR* get() const;                       \
  Acad::ErrorStatus get(AcString& text) const;    \
  Acad::ErrorStatus set(const ACHAR* value);
#define ACDB_DIM_DECLARE_CHARACTER(get, set, variable) \
  ACHAR get() const;                                   \
  Acad::ErrorStatus set(ACHAR value);
#define ACDB_DIM_DECLARE_ID(get, set, variable) \
  AcDbObjectId get() const;                     \
  Acad::ErrorStatus set(AcDbObjectId value);    \
  Acad::ErrorStatus set(const ACHAR* name);
#define ACDB_DIM_DECLARE_COLOR(get, set, variable) \
  AcCmColor get() const;                           \
  Acad::ErrorStatus set(const AcCmColor& value);
#define ACDB_DIM_DECLARE_WEIGHT(get, set, variable) \
  AcDb::LineWeight get() const;                     \
  Acad::ErrorStatus set(AcDb::LineWeight value);

#define ACDB_DECLARE_DIM_ROWS(ROWS)                                                                   \
  ROWS(ACDB_DIM_DECLARE_INTEGER, ACDB_DIM_DECLARE_BOOL, ACDB_DIM_DECLARE_REAL, ACDB_DIM_DECLARE_TEXT, \
       ACDB_DIM_DECLARE_CHARACTER, ACDB_DIM_DECLARE_ID, ACDB_DIM_DECLARE_COLOR, ACDB_DIM_DECLARE_WEIGHT)
