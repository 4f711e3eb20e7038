#pragma once
// One character at a time between a code page and Unicode, as the system's own tables have it.
// Everything else (fast paths, caches, what counts as clean) is common and stands in codepage.cpp.

#include <optional>
#include <string>
#include <string_view>

#include "base/codepage.h"

namespace base::backend {

// False when this system has no table for the page. Never asked for UTF-8 or ASCII.
bool hasPage(CodePage page);

// The character of exactly these one or two bytes; empty when they are not one character of the page.
std::optional<wchar_t> decodeOne(std::string_view bytes, CodePage page);

// The bytes of a character, at most two; empty when the page does not have it. May answer with a
// look-alike's bytes: the caller decodes them again to find out.
std::string encodeOne(wchar_t character, CodePage page);

}  // namespace base::backend
