#pragma once
// The names that drawings use for their code pages.

#include <optional>
#include <string_view>

#include "base/codepage.h"

namespace cad::dxf {

// "ANSI_932", "dos850", "iso8859-1", "mac-roman", "big5", ...; ignores case. Absent: not a name we know.
std::optional<base::CodePage> codePageByName(std::string_view name);

}  // namespace cad::dxf
