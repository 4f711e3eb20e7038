#pragma once
// The dimension variables as functions: one row for each, from which every class that has them declares
// its reader and its writer. Types, limits and defaults stand in the table of dimension variables, and a
// row that the table does not have, or has with another type, does not compile.
//
// Readers give the object's own value (an override, on a dimension or leader), else its dimension style's,
// else the default. Writers on a dimension or leader make an override, or remove it when the value is the
// style's; they return eInvalidInput for a value outside the limits, eNotApplicable when the drawing's
// version does not have the variable, eNotOpenForWrite.
//
// Lengths and sizes are drawing units before DIMSCALE. Ids: a text style (dimtxsty), an arrow block
// (dimblk, dimblk1, dimblk2, dimldrblk; null is the closed filled arrow) or a linetype; the writers also
// take a name, eKeyNotFound when the drawing does not have it. Arrow names are those of blocks that the
// drawing has (AcDmUtil::getArrowId makes the built-in ones); "." and "" are the closed filled arrow.

#include "AcString.h"
#include "dbcolor.h"
#include "dbid.h"

// Every row: reader, writer, variable.
#define ACDB_LEADER_DIM_VARIABLES(INTEGER, BOOL, REAL, TEXT, CHARACTER, ID, COLOR, WEIGHT) \
  REAL(dimasz, setDimasz, DIMASZ)                                                          \
  COLOR(dimclrd, setDimclrd, DIMCLRD)                                                      \
  REAL(dimgap, setDimgap, DIMGAP)                                                          \
  ID(dimldrblk, setDimldrblk, DIMLDRBLK)                                                   \
  WEIGHT(dimlwd, setDimlwd, DIMLWD)                                                        \
  BOOL(dimsah, setDimsah, DIMSAH)                                                          \
  REAL(dimscale, setDimscale, DIMSCALE)                                                    \
  INTEGER(dimtad, setDimtad, DIMTAD)                                                       \
  ID(dimtxsty, setDimtxsty, DIMTXSTY)                                                      \
  REAL(dimtxt, setDimtxt, DIMTXT)

#define ACDB_OTHER_DIM_VARIABLES(INTEGER, BOOL, REAL, TEXT, CHARACTER, ID, COLOR, WEIGHT) \
  INTEGER(dimadec, setDimadec, DIMADEC)                                                   \
  BOOL(dimalt, setDimalt, DIMALT)                                                         \
  INTEGER(dimaltd, setDimaltd, DIMALTD)                                                   \
  REAL(dimaltf, setDimaltf, DIMALTF)                                                      \
  REAL(dimaltrnd, setDimaltrnd, DIMALTRND)                                                \
  INTEGER(dimalttd, setDimalttd, DIMALTTD)                                                \
  INTEGER(dimalttz, setDimalttz, DIMALTTZ)                                                \
  INTEGER(dimaltu, setDimaltu, DIMALTU)                                                   \
  INTEGER(dimaltz, setDimaltz, DIMALTZ)                                                   \
  TEXT(dimapost, setDimapost, DIMAPOST)                                                   \
  INTEGER(dimarcsym, setDimarcsym, DIMARCSYM)                                             \
  INTEGER(dimatfit, setDimatfit, DIMATFIT)                                                \
  INTEGER(dimaunit, setDimaunit, DIMAUNIT)                                                \
  INTEGER(dimazin, setDimazin, DIMAZIN)                                                   \
  ID(dimblk, setDimblk, DIMBLK)                                                           \
  ID(dimblk1, setDimblk1, DIMBLK1)                                                        \
  ID(dimblk2, setDimblk2, DIMBLK2)                                                        \
  REAL(dimcen, setDimcen, DIMCEN)                                                         \
  COLOR(dimclre, setDimclre, DIMCLRE)                                                     \
  COLOR(dimclrt, setDimclrt, DIMCLRT)                                                     \
  INTEGER(dimdec, setDimdec, DIMDEC)                                                      \
  REAL(dimdle, setDimdle, DIMDLE)                                                         \
  REAL(dimdli, setDimdli, DIMDLI)                                                         \
  CHARACTER(dimdsep, setDimdsep, DIMDSEP)                                                 \
  REAL(dimexe, setDimexe, DIMEXE)                                                         \
  REAL(dimexo, setDimexo, DIMEXO)                                                         \
  INTEGER(dimfrac, setDimfrac, DIMFRAC)                                                   \
  REAL(dimfxlen, setDimfxlen, DIMFXL)                                                     \
  BOOL(dimfxlenOn, setDimfxlenOn, DIMFXLON)                                               \
  REAL(dimjogang, setDimjogang, DIMJOGANG)                                                \
  INTEGER(dimjust, setDimjust, DIMJUST)                                                   \
  REAL(dimlfac, setDimlfac, DIMLFAC)                                                      \
  BOOL(dimlim, setDimlim, DIMLIM)                                                         \
  ID(dimltex1, setDimltex1, DIMLTEX1)                                                     \
  ID(dimltex2, setDimltex2, DIMLTEX2)                                                     \
  ID(dimltype, setDimltype, DIMLTYPE)                                                     \
  INTEGER(dimlunit, setDimlunit, DIMLUNIT)                                                \
  WEIGHT(dimlwe, setDimlwe, DIMLWE)                                                       \
  TEXT(dimpost, setDimpost, DIMPOST)                                                      \
  REAL(dimrnd, setDimrnd, DIMRND)                                                         \
  BOOL(dimsd1, setDimsd1, DIMSD1)                                                         \
  BOOL(dimsd2, setDimsd2, DIMSD2)                                                         \
  BOOL(dimse1, setDimse1, DIMSE1)                                                         \
  BOOL(dimse2, setDimse2, DIMSE2)                                                         \
  BOOL(dimsoxd, setDimsoxd, DIMSOXD)                                                      \
  INTEGER(dimtdec, setDimtdec, DIMTDEC)                                                   \
  REAL(dimtfac, setDimtfac, DIMTFAC)                                                      \
  INTEGER(dimtfill, setDimtfill, DIMTFILL)                                                \
  COLOR(dimtfillclr, setDimtfillclr, DIMTFILLCLR)                                         \
  BOOL(dimtih, setDimtih, DIMTIH)                                                         \
  BOOL(dimtix, setDimtix, DIMTIX)                                                         \
  REAL(dimtm, setDimtm, DIMTM)                                                            \
  INTEGER(dimtmove, setDimtmove, DIMTMOVE)                                                \
  BOOL(dimtofl, setDimtofl, DIMTOFL)                                                      \
  BOOL(dimtoh, setDimtoh, DIMTOH)                                                         \
  BOOL(dimtol, setDimtol, DIMTOL)                                                         \
  INTEGER(dimtolj, setDimtolj, DIMTOLJ)                                                   \
  REAL(dimtp, setDimtp, DIMTP)                                                            \
  REAL(dimtsz, setDimtsz, DIMTSZ)                                                         \
  REAL(dimtvp, setDimtvp, DIMTVP)                                                         \
  BOOL(dimtxtdirection, setDimtxtdirection, DIMTXTDIRECTION)                              \
  INTEGER(dimtzin, setDimtzin, DIMTZIN)                                                   \
  BOOL(dimupt, setDimupt, DIMUPT)                                                         \
  INTEGER(dimzin, setDimzin, DIMZIN)

#define ACDB_DIM_DECLARE_INTEGER(get, set, variable) \
  int get() const;                                   \
  Acad::ErrorStatus set(int value);
#define ACDB_DIM_DECLARE_BOOL(get, set, variable) \
  bool get() const;                               \
  Acad::ErrorStatus set(bool value);
#define ACDB_DIM_DECLARE_REAL(get, set, variable) \
  double get() const;                             \
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
