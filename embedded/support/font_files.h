#pragma once
// The files of the usual Windows fonts: text styles name the file beside the typeface.

#include <string>
#include <string_view>

namespace cad::support {

// "msgothic.ttc" for "ＭＳ ゴシック" or "MS Gothic". Ignores case, the width of letters and the "@" of
// vertical writing. Empty for a typeface that is not in the table.
std::wstring_view fontFileOf(std::wstring_view typeface);

// The file of the bold or slanted face beside that of the regular one; the same file when there is none in
// the table.
std::wstring styledFontFile(std::wstring_view regular, bool bold, bool italic);

}  // namespace cad::support
