#include "acdb.h"
#include "acdbads.h"
#include "embedded/editor/host_state.h"
#include "embedded/objects/database_access.h"

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
  id.setNull();
  if (name == nullptr || ads_name_nil(name) || name[1] == -1) return Acad::eInvalidAdsName;
  AcDbObjectId wanted;
  wanted.setFromOldId(name[0]);
  if (!wanted.isValid()) return Acad::eInvalidAdsName;
  id = wanted;
  return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
  ads_name_clear(name);
  if (id.isNull()) return Acad::eNullObjectId;
  name[0] = id.asOldId();
  return Acad::eOk;
}

int acdbEntLast(ads_name result) {
  const cad::Document* document = cad::hostState().documents.current();
  if (document == nullptr || result == nullptr) return RTERROR;
  ads_name_clear(result);
  const cad::RecordId last = cad::drawingOf(*document->database()).lastEntity();
  if (last == cad::kNoRecord) return RTERROR;
  result[0] = cad::idOf(*document->database(), last).asOldId();
  return RTNORM;
}

int acdbEntDel(const ads_name entity) {
  AcDbObjectId id;
  cad::Document* document = cad::hostState().documents.current();
  if (document == nullptr || acdbGetObjectId(id, entity) != Acad::eOk ||
      id.database() != document->database() || cad::needsLock(*document->database()))
    return RTERROR;
  cad::Drawing& drawing = document->drawing();
  const cad::RecordId record = cad::recordOf(id);
  if (record == cad::kNoRecord || drawing.record(record).kind != cad::RecordKind::kEntity) return RTERROR;
  const cad::NameId layer = drawing.name(record, cad::Property::kLayer);
  if (layer != cad::kNoName && drawing.isLayerLocked(layer)) return RTERROR;
  return drawing.setErased(record, !drawing.record(record).erased()).ok() ? RTNORM : RTERROR;
}
