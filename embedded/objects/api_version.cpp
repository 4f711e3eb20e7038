#include "embedded/objects/api_version.h"

#if defined(_WIN32)
#define MODULE_EXPORT __declspec(dllexport)
#else
#define MODULE_EXPORT __attribute__((visibility("default")))
#endif

extern "C" MODULE_EXPORT int acrxGetApiVersion() { return cad::kApiVersion; }
