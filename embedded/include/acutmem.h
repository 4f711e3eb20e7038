#pragma once
// Texts on the heap that cross the interface.

#include "AdAChar.h"
#include "acadstrc.h"

// A copy that resval.rstring may own. eInvalidInput for NULL; `copy` is NULL unless eOk.
Acad::ErrorStatus acutNewString(const ACHAR* text, ACHAR*& copy);
void acutDelString(ACHAR*& text);  // NULL afterwards
