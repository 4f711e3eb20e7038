#pragma once
// How a DWG file begins, for those who read no further, too.

#include <string_view>

namespace cad::dwg {

// Whether a file with this beginning is a DWG file of any version: "AC1015", "AC2.10".
bool isDwg(std::string_view beginning);

// The code of the version, of a file that is one.
std::string_view dwgVersionCode(std::string_view file);

}  // namespace cad::dwg
