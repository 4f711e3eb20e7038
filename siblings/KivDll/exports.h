#pragma once
// What this module exports, as plain functions without name decoration. Nothing is thrown.

#if defined(_WIN32)
#define KIV_EXPORT extern "C" __declspec(dllexport)
#else
#define KIV_EXPORT extern "C" __attribute__((visibility("default")))
#endif

// The length of the key's text, or -1 when no text is kept under it. With a buffer of `capacity` characters
// the text and its terminating zero are copied, cut to fit. Keys are compared ignoring case.
KIV_EXPORT int dll_kiv_getcfgCmn(const wchar_t* key, wchar_t* text, int capacity);

// 1, or 0 when the text could not be kept.
KIV_EXPORT int dll_kiv_setcfgCmn(const wchar_t* key, const wchar_t* text);

// Prompts, lets the user pick an entity that `mask` admits (bits: kiv_dll::EntityKind) and hands its values
// for the item, 1 to 16, to `take` one by one, with the caller's `context`. 1, or 0 when nothing was picked,
// the entity is of a wrong kind or has no such value; `take` was not called then.
KIV_EXPORT int dll_kiv_entsel(const wchar_t* prompt, int item, unsigned mask,
                              void (*take)(const wchar_t* value, void* context), void* context);
