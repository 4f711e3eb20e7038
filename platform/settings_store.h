#pragma once
// The plain functions that the suite's settings module exports. Keys are compared ignoring case.

namespace kiv {

// dll_kiv_getcfgCmn: the length of the key's text, or -1 when no text is kept under it. With a buffer of
// `capacity` characters the text and its terminating zero are copied, cut to fit.
using GetCommonSetting = int (*)(const wchar_t* key, wchar_t* text, int capacity);

// dll_kiv_setcfgCmn: 1, or 0 when the text could not be kept.
using SetCommonSetting = int (*)(const wchar_t* key, const wchar_t* text);

}  // namespace kiv
