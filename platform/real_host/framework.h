#pragma once
// The framework in which the host's windows are made, before every other header of a source, as it demands.
// It brings the system's header, with the macros min and max, which headers of its own may use.

#undef NOMINMAX
#include <afxwin.h>
#define NOMINMAX

#undef max
#undef min

#include <algorithm>

// Headers of the host that are written for those macros find functions.
using std::max;
using std::min;
