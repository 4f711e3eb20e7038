#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {

bool describeOwn(FieldVisitor& v) {
  using enum ObjectKind;
  switch (v.kind()) {
    case kOther:
      return false;
    case kText:
    case kAttrib:
    case kAttdef:
      return describeTextLine(v), true;
    case kBlock:
      return v.text("name"), true;
    case kEndblk:
    case kSeqend:
      return true;
    case kInsert:
    case kMinsert:
      return describeInsert(v), true;
    case kTable:
      return describeInsert(v), false;
    case kVertex2d:
    case kVertex3d:
    case kVertexMesh:
    case kVertexPface:
    case kVertexPfaceFace:
      return describeVertex(v), true;
    case kPolyline2d:
    case kPolyline3d:
    case kPolylineMesh:
    case kPolylinePface:
      return describePolyline(v), true;
    case kArc:
    case kCircle:
    case kLine:
    case kPoint:
    case kEllipse:
    case kSolid:
    case kTrace:
    case k3dFace:
      return describeSimple(v), true;
    case kSpline:
      return describeSpline(v), true;
    case kLwpolyline:
      return describeLwpolyline(v), true;
    case kMtext:
      return describeMtext(v), true;
    case kLeader:
      return describeLeader(v), true;
    case kTolerance:
      return describeTolerance(v), true;
    case kDbColor:
      return v.color("color"), true;
    case kHatch:
      return describeHatch(v), true;
    case kViewport:
      return describeViewport(v), true;
    case kDimensionOrdinate:
    case kDimensionLinear:
    case kDimensionAligned:
    case kDimensionAngular3Point:
    case kDimensionAngular2Line:
    case kDimensionRadius:
    case kDimensionDiameter:
    case kDimensionArc:
    case kDimensionJogged:
      return describeDimension(v), true;
    case kBlockControl:
    case kLayerControl:
    case kStyleControl:
    case kLinetypeControl:
    case kViewControl:
    case kUcsControl:
    case kVportControl:
    case kAppIdControl:
    case kDimStyleControl:
    case kViewportEntityControl:
      return describeControl(v), true;
    case kBlockHeader:
      return describeBlockHeader(v), true;
    case kLayer:
    case kStyle:
    case kLinetype:
    case kAppId:
      return describeTableRecord(v), true;
    case kDimStyle:
      return describeDimStyle(v), true;
    case kDictionary:
      return describeDictionary(v), true;
    case kLayout:
      return describeLayout(v), true;
  }
  return false;
}

}  // namespace cad::dwg
