#pragma once
// The files of the usual Windows fonts: text styles name the file beside the typeface.

#include <string_view>

namespace cad::support {

// "msgothic.ttc" for "ＭＳ ゴシック" or "MS Gothic". Ignores case, the width of letters and the "@" of
// vertical writing. Empty for a typeface that is not in the table.
std::wstring_view fontFileOf(std::wstring_view typeface);

}  // namespace cad::support
