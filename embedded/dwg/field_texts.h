#pragma once
// Texts of fields. Since R2007 they are UTF-16.

#include <string>
#include <string_view>

#include "embedded/dwg/fields/field.h"

namespace cad::dwg {

std::wstring fromUtf16(std::u16string_view text);
std::u16string toUtf16(std::wstring_view text);

// A field's text as drawings store texts: in the code page, or UTF-8 where the file has it wide. Without the
// zero with which many programs end it.
std::string storedText(const Value& value);
// Whether it has that zero.
bool endsWithZero(const Value& value);

}  // namespace cad::dwg
