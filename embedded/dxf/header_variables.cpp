#include "embedded/dxf/header_variables.h"

#include "embedded/drawing/dim_variables.h"

namespace cad::dxf {
namespace {

using V = Version;

constexpr HeaderVariableInfo kVariables[] = {
    {"ANGBASE", 50},
    {"ANGDIR", 70},
    {"ATTDIA", 70, V::kR12, V::kR14},
    {"ATTMODE", 70},
    {"ATTREQ", 70, V::kR12, V::kR14},
    {"AUNITS", 70},
    {"AUPREC", 70},
    {"BLIPMODE", 70, V::kR12, V::kR14},
    {"CECOLOR", 62},
    {"CELTSCALE", 40, V::kR13},
    {"CELTYPE", 6},
    {"CELWEIGHT", 370, V::kR2000},
    {"CHAMFERA", 40},
    {"CHAMFERB", 40},
    {"CHAMFERC", 40, V::kR13},
    {"CHAMFERD", 40, V::kR13},
    {"CLAYER", 8},
    {"CMLJUST", 70, V::kR13},
    {"CMLSCALE", 40, V::kR13},
    {"CMLSTYLE", 2, V::kR13},
    {"COORDS", 70, V::kR12, V::kR14},
    {"DELOBJ", 70, V::kR13, V::kR14},
    {"DIMSTYLE", 2},
    {"DISPSILH", 70, V::kR13},
    {"DRAGMODE", 70, V::kR12, V::kR14},
    {"ELEVATION", 40},
    {"ENDCAPS", 280, V::kR2000},
    {"EXTNAMES", 290, V::kR2000},
    {"FILLETRAD", 40},
    {"FILLMODE", 70},
    {"HANDLING", 70, V::kR12, V::kR14},
    {"HIDETEXT", 280, V::kR2004},
    {"INSUNITS", 70, V::kR2000},
    {"JOINSTYLE", 280, V::kR2000},
    {"LIMCHECK", 70},
    {"LTSCALE", 40},
    {"LUNITS", 70},
    {"LUPREC", 70},
    {"LWDISPLAY", 290, V::kR2000},
    {"MAXACTVP", 70},
    {"MEASUREMENT", 70, V::kR14},
    {"MENU", 1},
    {"MIRRTEXT", 70},
    {"ORTHOMODE", 70},
    {"OSMODE", 70, V::kR12, V::kR14},
    {"PDMODE", 70},
    {"PDSIZE", 40},
    {"PELEVATION", 40},
    {"PICKSTYLE", 70, V::kR13, V::kR14},
    {"PLIMCHECK", 70},
    {"PLINEGEN", 70},
    {"PLINEWID", 40},
    {"PROXYGRAPHICS", 70, V::kR14},
    {"PSLTSCALE", 70},
    {"QTEXTMODE", 70},
    {"REGENMODE", 70},
    {"SHADEDGE", 70},
    {"SHADEDIF", 70},
    {"SKETCHINC", 40},
    {"SKPOLY", 70},
    {"SORTENTS", 280, V::kR2004},
    {"SPLFRAME", 70, V::kR12, V::kR2004},
    {"SPLINESEGS", 70},
    {"SPLINETYPE", 70},
    {"SURFTAB1", 70},
    {"SURFTAB2", 70},
    {"SURFTYPE", 70},
    {"SURFU", 70},
    {"SURFV", 70},
    {"TEXTSIZE", 40},
    {"TEXTSTYLE", 7},
    {"THICKNESS", 40},
    {"TILEMODE", 70},
    {"TRACEWID", 40},
    {"TREEDEPTH", 70, V::kR13},
    {"UNITMODE", 70},
    {"USERI1", 70},
    {"USERI2", 70},
    {"USERI3", 70},
    {"USERI4", 70},
    {"USERI5", 70},
    {"USERR1", 40},
    {"USERR2", 40},
    {"USERR3", 40},
    {"USERR4", 40},
    {"USERR5", 40},
    {"USRTIMER", 70},
    {"VISRETAIN", 70},
    {"WORLDVIEW", 70},
    {"XEDIT", 290, V::kR2000},
};

int headerCode(const DimVariableInfo& dim) {
  if (dim.groups.header != 0) return dim.groups.header;
  switch (dim.type) {
    case DimType::kReal:
      return 40;
    case DimType::kText:
    case DimType::kArrow:
      return 1;
    case DimType::kTextStyle:
      return 7;
    case DimType::kLinetype:
      return 6;
    default:
      return 70;
  }
}

}  // namespace

HeaderVariableInfo findHeaderVariable(std::string_view name) {
  if (const DimVariableInfo* dim = findDimVariable(name))
    return {dim->name, headerCode(*dim), dim->versions.first, dim->versions.last};
  for (const HeaderVariableInfo& info : kVariables)
    if (info.name == name) return info;
  return {};
}

}  // namespace cad::dxf
