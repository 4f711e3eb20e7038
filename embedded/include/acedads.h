#pragma once
// Editor functions in the C style. Each returns RTNORM, or RTERROR and others as stated.

#include "AcString.h"
#include "AdAChar.h"
#include "acutads.h"
#include "adesk.h"
#include "adsdef.h"

// --- Selection sets --------------------------------------------------------------------------------
// Main entities of model and paper spaces of the current drawing, newest first. Modes "X" and "A"; NULL
// and "I" ask for a set picked beforehand, of which there is none (RTERROR). `filter`: NULL or a chain of
// (group, value) buffers in which texts are wildcards regardless of case; -4 holds operators: "<and",
// "<or", "<xor", "<not" with their ends, and before a number "*", "=", "!=", "<", "<=", ">", ">=", "&".
// RTERROR when nothing is selected or 128 sets are in use; RTREJ when the filter is malformed.
int acedSSGet(const ACHAR* mode, const void* first, const void* second, const resbuf* filter, ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, int index, ads_name entity);  // 0-based
// Adds an entity (a repeated one is ignored); a NULL or nil set makes a new one, a NULL entity adds none.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSDel(const ads_name entity, const ads_name set);   // RTERROR when it is no member
int acedSSMemb(const ads_name entity, const ads_name set);  // RTNORM when it is a member
int acedSSFree(const ads_name set);

// --- System variables ------------------------------------------------------------------------------
// The value with the variable's own type in restype (RTSHORT, RTREAL, RTSTR); a text
// is allocated for the caller (acutDelString, or acutRelRb with the buffer).
int acedGetVar(const ACHAR* name, resbuf* result);
// Refused (RTERROR): an unknown or read-only variable, another type than the variable's, a value outside
// its limits, a name that the drawing does not hold.
int acedSetVar(const ACHAR* name, const resbuf* value);

// --- Input -----------------------------------------------------------------------------------------
int acedUsrBrk();  // 1 when the user has pressed Esc
// The next input event; `track` is a bit field (1 drag, 2 all keys, 4 cursor type, 8 no break message).
// RTERROR when no input can come (a host without a window and without scripted input).
int acedGrRead(int track, int* type, resbuf* result);
// Prompts (NULL: "Select object: ") and waits for a pick: the main entity at the picked point, and the
// point. RTCAN when the user cancels. RTERROR when nothing lies there (ERRNO is 7), on Enter (ERRNO is 52),
// and when no input can come.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);
// Mode 3 highlights an entity, 4 takes the highlight off; 1 and 2, and a NULL entity, have no effect.
// RTERROR for what is no entity of the current drawing and for other modes.
int acedRedraw(const ads_name entity, int mode);

// --- Functions by name -----------------------------------------------------------------------------
// Calls a function that another application has defined. The chain has the name, a text, and then what the
// function is called with. RTNORM: it was called. `result` gets what it returned, to be released by the
// caller, or NULL when it returned nothing. RTERROR: there is no such function.
int acedInvoke(const resbuf* args, resbuf** result);
// For such a function: what it was called with; NULL: nothing. The host's to release, after the call.
resbuf* acedGetArgs();
// What such a function returns; the last one counts. RTERROR when none runs, and for an integer that does not
// fit into a result buffer.
int acedRetInt(int value);
int acedRetNil();

// --- Files -----------------------------------------------------------------------------------------
// Searches the current folder, the drawing's folder, the support path, and the folders of the program and
// of the loaded modules. A name with a folder is looked for only there. Case is ignored.
int acedFindFile(const ACHAR* name, AcString& result);
int acedFindFile(const ACHAR* name, ACHAR* result, size_t capacity);  // RTERROR when it does not fit
