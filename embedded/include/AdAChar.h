#pragma once
// The host's character: one wide character; texts are terminated by a zero.

using ACHAR = wchar_t;

#ifndef ACRX_T
#define ACRX_T(text) L##text
#endif
