#pragma once
// What a file is that is no drawing which can be read, so that the refusal can say what to do about it.

#include <string>
#include <string_view>

namespace cad::formats {

// A sentence, by the file's first bytes. Empty when they are none that are known here.
std::wstring foreignFormat(std::string_view bytes);

}  // namespace cad::formats
