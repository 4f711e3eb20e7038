#pragma once
// What a file is that is no DXF drawing, so that the refusal can say what to do about it.

#include <string>
#include <string_view>

namespace cad::dxf {

// A sentence, by the file's first bytes. Empty when they are none that are known here.
std::wstring foreignFormat(std::string_view bytes);

}  // namespace cad::dxf
