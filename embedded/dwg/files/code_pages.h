#pragma once
// The code pages of drawings by the numbers that DWG files have for them.

#include <cstdint>
#include <optional>
#include <string>

#include "base/codepage.h"

namespace cad::dwg {

// As DXF files name it, "ANSI_932"; the number itself where it has no name.
std::string codePageName(std::uint16_t number);
// Absent: not one that we know.
std::optional<base::CodePage> codePageOf(std::uint16_t number);

}  // namespace cad::dwg
