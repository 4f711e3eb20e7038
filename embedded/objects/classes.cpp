// The descriptors of all classes, and run-time class information itself.

#include "dbapserv.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "dbtable.h"
#include "rxclass.h"

AcRxClass::AcRxClass(const ACHAR* name, const ACHAR* dxfName, const AcRxClass* parent)
    : name_(name ? name : L""), dxfName_(dxfName ? dxfName : L""), parent_(parent) {}

AcRxClass* AcRxObject::desc() {
  static AcRxClass descriptor(L"AcRxObject", nullptr, nullptr);
  return &descriptor;
}
AcRxClass* AcRxObject::isA() const { return desc(); }

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxClass, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbHostApplicationServices, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, L"TABLE")
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, L"BLOCK_RECORD")
ACRX_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, L"DIMSTYLE")
ACRX_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, L"LAYER")
ACRX_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, L"LTYPE")
ACRX_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, L"APPID")
ACRX_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, L"STYLE")

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, L"POLYLINE")
ACRX_DEFINE_MEMBERS(AcDbArc, AcDbCurve, L"ARC")
ACRX_DEFINE_MEMBERS(AcDbAttribute, AcDbText, L"ATTRIB")
ACRX_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, L"ATTDEF")
ACRX_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, L"INSERT")
ACRX_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, L"CIRCLE")
ACRX_DEFINE_MEMBERS(AcDbDimension, AcDbEntity, L"DIMENSION")
ACRX_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve, L"ELLIPSE")
ACRX_DEFINE_MEMBERS(AcDbFace, AcDbEntity, L"3DFACE")
ACRX_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, L"HATCH")
ACRX_DEFINE_MEMBERS(AcDbLeader, AcDbCurve, L"LEADER")
ACRX_DEFINE_MEMBERS(AcDbLine, AcDbCurve, L"LINE")
ACRX_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, L"INSERT")
ACRX_DEFINE_MEMBERS(AcDbMText, AcDbEntity, L"MTEXT")
ACRX_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, L"POINT")
ACRX_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, L"LWPOLYLINE")
ACRX_DEFINE_MEMBERS(AcDbRay, AcDbCurve, L"RAY")
ACRX_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, L"SEQEND")
ACRX_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, L"SOLID")
ACRX_DEFINE_MEMBERS(AcDbSpline, AcDbCurve, L"SPLINE")
ACRX_DEFINE_MEMBERS(AcDbTable, AcDbBlockReference, L"ACAD_TABLE")
ACRX_DEFINE_MEMBERS(AcDbText, AcDbEntity, L"TEXT")
ACRX_DEFINE_MEMBERS(AcDbTrace, AcDbEntity, L"TRACE")
ACRX_DEFINE_MEMBERS(AcDbVertex, AcDbEntity, L"VERTEX")
ACRX_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, L"VIEWPORT")
ACRX_DEFINE_MEMBERS(AcDbXline, AcDbCurve, L"XLINE")

AcDbHostApplicationServices* acdbHostApplicationServices() {
  static AcDbHostApplicationServices services;
  return &services;
}
