#pragma once
// Text as drawings store it: bytes in the drawing's code page, with \U+XXXX for characters that the code
// page lacks and \M+nXXXX for two-byte characters of a named Asian code page.

#include <string>
#include <string_view>

#include "base/codepage.h"

namespace cad {

// Bytes that are not valid in the code page become U+FFFD; an escape that is not complete stays as it is.
std::wstring decodeStored(std::string_view stored, base::CodePage page);
// Control characters, which would break a line, become ^J and the like.
std::string encodeStored(std::wstring_view text, base::CodePage page);

// Length in bytes of the character or escape at `position`: where stored text may not be cut.
std::size_t storedUnit(std::string_view stored, std::size_t position, base::CodePage page);

}  // namespace cad
