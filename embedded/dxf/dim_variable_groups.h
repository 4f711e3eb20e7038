#pragma once
// The group numbers of the dimension variables.

#include <algorithm>

#include "embedded/drawing/dim_variable_table.h"

namespace cad::dxf {

struct DimGroups {
  std::string_view name;
  int number = 0;  // in a dimension style and in overrides; 0: the variable lives in the header only
  int old = 0;     // in a style before handles took over (R14 and earlier); 0: the same number
  int header = 0;  // of its value in the header; 0: the one that its type has
};

// In the order of kDimVariables.
inline constexpr DimGroups kDimGroups[] = {
    {"DIMPOST", 3},          {"DIMAPOST", 4},     {"DIMSCALE", 40},
    {"DIMASZ", 41},          {"DIMEXO", 42},      {"DIMDLI", 43},
    {"DIMEXE", 44},          {"DIMRND", 45},      {"DIMDLE", 46},
    {"DIMTP", 47},           {"DIMTM", 48},       {"DIMFXL", 49},
    {"DIMJOGANG", 50},       {"DIMTFILL", 69},    {"DIMTFILLCLR", 70},
    {"DIMTOL", 71},          {"DIMLIM", 72},      {"DIMTIH", 73},
    {"DIMTOH", 74},          {"DIMSE1", 75},      {"DIMSE2", 76},
    {"DIMTAD", 77},          {"DIMZIN", 78},      {"DIMAZIN", 79},
    {"DIMARCSYM", 90},       {"DIMTXT", 140},     {"DIMCEN", 141},
    {"DIMTSZ", 142},         {"DIMALTF", 143},    {"DIMLFAC", 144},
    {"DIMTVP", 145},         {"DIMTFAC", 146},    {"DIMGAP", 147},
    {"DIMALTRND", 148},      {"DIMALT", 170},     {"DIMALTD", 171},
    {"DIMTOFL", 172},        {"DIMSAH", 173},     {"DIMTIX", 174},
    {"DIMSOXD", 175},        {"DIMCLRD", 176},    {"DIMCLRE", 177},
    {"DIMCLRT", 178},        {"DIMADEC", 179},    {"DIMUNIT", 270},
    {"DIMDEC", 271},         {"DIMTDEC", 272},    {"DIMALTU", 273},
    {"DIMALTTD", 274},       {"DIMAUNIT", 275},   {"DIMFRAC", 276},
    {"DIMLUNIT", 277},       {"DIMDSEP", 278},    {"DIMTMOVE", 279},
    {"DIMJUST", 280},        {"DIMSD1", 281},     {"DIMSD2", 282},
    {"DIMTOLJ", 283},        {"DIMTZIN", 284},    {"DIMALTZ", 285},
    {"DIMALTTZ", 286},       {"DIMFIT", 287},     {"DIMUPT", 288},
    {"DIMATFIT", 289},       {"DIMFXLON", 290},   {"DIMTXTDIRECTION", 294},
    {"DIMTXSTY", 340},       {"DIMLDRBLK", 341},  {"DIMBLK", 342, 5},
    {"DIMBLK1", 343, 6},     {"DIMBLK2", 344, 7}, {"DIMLTYPE", 345},
    {"DIMLTEX1", 346},       {"DIMLTEX2", 347},   {"DIMLWD", 371},
    {"DIMLWE", 372},         {"DIMASO"},          {"DIMSHO"},
    {"DIMASSOC", 0, 0, 280},
};
static_assert(std::ranges::equal(kDimGroups, kDimVariables, {}, &DimGroups::name, &DimVariableInfo::name));

constexpr const DimGroups& groupsOf(const DimVariableInfo& variable) { return kDimGroups[variable.row]; }

}  // namespace cad::dxf
