#pragma once
// Before the declaration of a function that a sibling exports.

#if defined(_WIN32)
#define KIV_EXPORT __declspec(dllexport)
#else
#define KIV_EXPORT __attribute__((visibility("default")))
#endif
