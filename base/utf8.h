#pragma once
// UTF-8 by hand: the C library's converters would cost more than the work itself.

#include <string>
#include <string_view>

#include "base/codepage.h"

namespace base::utf8 {

Decoded decode(std::string_view bytes);
Encoded encode(std::wstring_view text);

// As above, but a byte that is not UTF-8 becomes the lone surrogate U+DC00 + byte and comes back as
// that byte: a file name in another encoding survives the way through wide text.
std::wstring decodeName(std::string_view bytes);
std::string encodeName(std::wstring_view text);

}  // namespace base::utf8
