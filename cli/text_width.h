#pragma once
// How much room a text takes on a terminal, in columns: an East Asian character takes two.

#include <string>
#include <string_view>
#include <vector>

namespace kivcli {

std::size_t columnsOf(std::wstring_view text);

// As much of the beginning as fits.
std::wstring_view fitting(std::wstring_view text, std::size_t columns);
// The same with "…" in place of what does not fit.
std::wstring shortened(std::wstring_view text, std::size_t columns);

// Lines of at most `columns`, parted at blanks and between East Asian characters, but not in front of a mark
// that may not begin a line; a word that is longer stands alone.
std::vector<std::wstring> wrapped(std::wstring_view text, std::size_t columns);

}  // namespace kivcli
