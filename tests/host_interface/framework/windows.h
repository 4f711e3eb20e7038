#pragma once
// The system's header with the macros that another compiler's library leaves to it: MinGW's C++ library sees to
// it that they never come. Whoever reads sources tells by KIV_WANTS_MACROS that their build wants them.

#include_next <windows.h>

#if defined(KIV_WANTS_MACROS) && !defined(__AFXWIN_H__)
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif
