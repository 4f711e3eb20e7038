#pragma once
// Before the declaration of a function that a library of the suite exports. On Windows the module-definition
// file of the library (exports.def) names it.

#if defined(_WIN32)
#define KIV_EXPORT
#else
#define KIV_EXPORT __attribute__((visibility("default")))
#endif
