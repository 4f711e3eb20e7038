#pragma once
// Global functions of the drawing database.

#include "AdAChar.h"
#include "acadstrc.h"
#include "acdbads.h"
#include "adsdef.h"
#include "dbid.h"

class AcDbDatabase;

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);

// Loads the linetypes whose names match the wildcard `name` from a linetype file, found by the rules of
// acedFindFile, into a database. eFileNotFound: no such file; eUndefinedLineType: the file defines none
// of that name; eDuplicateRecordName: the drawing has it already (nothing is reloaded).
Acad::ErrorStatus acdbLoadLineTypeFile(const ACHAR* name, const ACHAR* file, AcDbDatabase* database);
