#pragma once
// What a file is that is no drawing which can be read, so that the refusal can say what to do about it.

#include <string_view>

namespace cad::formats {

// By the file's first bytes. Null when they are none that are known here.
const wchar_t* foreignFormat(std::string_view bytes);

}  // namespace cad::formats
