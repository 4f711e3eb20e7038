#include "embedded/dxf/common_groups.h"

#include <algorithm>
#include <iterator>

namespace cad::dxf {
namespace {

constexpr int kStraying[] = {6, 8, 48, 60, 62, 67, 370, 420, 430, 440};

// In none of these classes has a group of the codes above a meaning of its own, but for the exceptions below.
constexpr std::string_view kClasses[] = {
    "AcDb2LineAngularDimension",
    "AcDb2dPolyline",
    "AcDb2dVertex",
    "AcDb3PointAngularDimension",
    "AcDb3dPolyline",
    "AcDb3dPolylineVertex",
    "AcDb3dSolid",
    "AcDbAlignedDimension",
    "AcDbArc",
    "AcDbArcDimension",
    "AcDbAttribute",
    "AcDbAttributeDefinition",
    "AcDbBlockBegin",
    "AcDbBlockEnd",
    "AcDbBlockReference",
    "AcDbCircle",
    "AcDbDiametricDimension",
    "AcDbDimension",
    "AcDbEllipse",
    "AcDbFace",
    "AcDbFaceRecord",
    "AcDbFcf",
    "AcDbHatch",
    "AcDbLeader",
    "AcDbLine",
    "AcDbMInsertBlock",
    "AcDbMText",
    "AcDbMline",
    "AcDbModelerGeometry",
    "AcDbOrdinateDimension",
    "AcDbPoint",
    "AcDbPolyFaceMesh",
    "AcDbPolyFaceMeshVertex",
    "AcDbPolygonMesh",
    "AcDbPolygonMeshVertex",
    "AcDbPolyline",
    "AcDbRadialDimension",
    "AcDbRadialDimensionLarge",
    "AcDbRasterImage",
    "AcDbRay",
    "AcDbRegion",
    "AcDbRotatedDimension",
    "AcDbShape",
    "AcDbSpline",
    "AcDbText",
    "AcDbTrace",
    "AcDbVertex",
    "AcDbWipeout",
    "AcDbXline",
};
static_assert(std::ranges::is_sorted(kClasses));

// Column widths, and the colour of the background.
constexpr int kOwnOfMText[] = {48, 420, 430};

bool holds(const auto& codes, int code) {
  return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace

bool CommonGroups::strayed(int code) const {
  if (atHome_ || !holds(kStraying, code)) return false;
  if (marker_ == "AcDbMText" && holds(kOwnOfMText, code)) return false;
  return std::ranges::binary_search(kClasses, marker_);
}

bool isCommonCode(int code) {
  constexpr int kOthers[] = {92, 160, 284, 310, 347, 348, 390, 410};
  return holds(kStraying, code) || holds(kOthers, code);
}

}  // namespace cad::dxf
