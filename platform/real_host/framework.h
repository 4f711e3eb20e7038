#pragma once
// The framework in which the host's windows are made, before every other header of a source, as it demands.
// It brings the system's header, with the macros min and max.

#include <afxwin.h>

#include <algorithm>

#undef max
#undef min
// Headers of the host that are written for those macros find functions.
using std::max;
using std::min;
