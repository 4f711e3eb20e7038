#include "embedded/dxf/subclasses.h"

namespace cad::dxf {
namespace {

using Parts = std::vector<SubclassPart>;

struct PlainType {
  std::string_view type, marker;
};

constexpr PlainType kPlainTypes[] = {
    {"LINE", "AcDbLine"},   {"POINT", "AcDbPoint"}, {"CIRCLE", "AcDbCircle"},        {"SOLID", "AcDbTrace"},
    {"TRACE", "AcDbTrace"}, {"3DFACE", "AcDbFace"}, {"INSERT", "AcDbBlockReference"}};

Parts polylineParts(std::int64_t flags) {
  if ((flags & 8) != 0) return {{"AcDb3dPolyline", {}}};
  if ((flags & 16) != 0) return {{"AcDbPolygonMesh", {}}};
  if ((flags & 64) != 0) return {{"AcDbPolyFaceMesh", {}}};
  return {{"AcDb2dPolyline", {}}};
}

Parts vertexParts(std::int64_t flags) {
  if ((flags & 128) != 0 && (flags & 64) == 0) return {{"AcDbFaceRecord", {}}};
  // The first part is empty on purpose: no group has the code 0 here.
  if ((flags & 128) != 0) return {{"AcDbVertex", {0}}, {"AcDbPolyFaceMeshVertex", {}}};
  if ((flags & 64) != 0) return {{"AcDbVertex", {0}}, {"AcDbPolygonMeshVertex", {}}};
  if ((flags & 32) != 0) return {{"AcDbVertex", {0}}, {"AcDb3dPolylineVertex", {}}};
  return {{"AcDbVertex", {0}}, {"AcDb2dVertex", {}}};
}

Parts dimensionParts(std::int64_t flags) {
  const SubclassPart base{"AcDbDimension",
                          {2, 10, 20, 30, 11, 21, 31, 12, 22, 32, 70, 1, 51, 53, 3, 210, 220, 230}};
  switch (flags & 7) {
    case 0:
      return {
          base, {"AcDbAlignedDimension", {13, 23, 33, 14, 24, 34, 40, 50, 52}}, {"AcDbRotatedDimension", {}}};
    case 1:
      return {base, {"AcDbAlignedDimension", {}}};
    case 2:
      return {base, {"AcDb2LineAngularDimension", {}}};
    case 3:
      return {base, {"AcDbDiametricDimension", {}}};
    case 4:
      return {base, {"AcDbRadialDimension", {}}};
    case 5:
      return {base, {"AcDb3PointAngularDimension", {}}};
    default:
      return {base, {"AcDbOrdinateDimension", {}}};
  }
}

}  // namespace

std::vector<SubclassPart> subclassParts(std::string_view type, std::int64_t flags) {
  for (const PlainType& plain : kPlainTypes)
    if (plain.type == type) return {{plain.marker, {}}};
  if (type == "ARC") return {{"AcDbCircle", {39, 10, 20, 30, 40, 210, 220, 230}}, {"AcDbArc", {}}};
  if (type == "TEXT") return {{"AcDbText", {}}, {"AcDbText", {73}}};
  if (type == "ATTRIB") return {{"AcDbText", {}}, {"AcDbAttribute", {2, 70, 73, 74}}};
  if (type == "ATTDEF") return {{"AcDbText", {}}, {"AcDbAttributeDefinition", {3, 2, 70, 73, 74}}};
  if (type == "POLYLINE") return polylineParts(flags);
  if (type == "VERTEX") return vertexParts(flags);
  if (type == "DIMENSION") return dimensionParts(flags);
  return {};
}

}  // namespace cad::dxf
