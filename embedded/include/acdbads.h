#pragma once
// Drawing database functions in the C style. All work on the current document's drawing.

#include "AdAChar.h"
#include "adsdef.h"

int acdbEntLast(ads_name result);  // the newest entity of model or paper space; RTERROR when none
// Erases an entity, or brings an erased one back. RTERROR for anything but a main entity.
int acdbEntDel(const ads_name entity);
// A table record as a chain of groups in the manner of the oldest DXF version: 0 the record type, 2 the
// name, 70 the flags, then what the table has (layers 62 and 6, linetypes 3, styles 40, 41, 50, 3, 4).
// Tables: LAYER, LTYPE, VIEW, STYLE, BLOCK, UCS, DIMSTYLE, VPORT, APPID. NULL when absent. `setNext` is
// accepted and has no effect. The caller releases the chain.
resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext);
// The records of a table one after the other, in the same form; a `rewind` that is not 0 begins anew. NULL
// after the last one. The caller releases the chain.
resbuf* acdbTblNext(const ACHAR* table, int rewind);
// RTNORM when the text may name a table record: none of < > / \ " : ; ? * , = ` and, unless `pipeTest`
// allows it inside, |.
int acdbSNValid(const ACHAR* name, int pipeTest);
