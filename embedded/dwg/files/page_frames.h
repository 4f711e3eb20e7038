#pragma once
// Pages as they stand in files of R2004 and R2010 to R2018: a header with checksums, the data, and what fills
// them up.

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/dwg/files/page_maps.h"

namespace cad::dwg {

inline constexpr std::uint64_t kPageHeader = 32, kSystemHeader = 20;

// The content of the page map or the section map, whose page is at `at`.
enum class SystemPage : std::uint32_t { kPageMap = 0x41630E3B, kSectionMap = 0x4163003B };
base::Result<std::string> readSystemPage(std::string_view file, std::uint64_t at, SystemPage type);
// Without what fills it up.
std::string writeSystemPage(std::string_view content, SystemPage type);

// The data of a page of a section, as the page has it. `at`: where it stands in the file.
base::Result<std::string_view> readPage(std::string_view file, const Page& page, const PagedSection& section,
                                        const SectionPage& inSection);
// The whole page at `at` with this data, filled up.
std::string writePage(std::string_view data, std::uint64_t at, std::uint32_t type, std::uint64_t start);
// The header of a page depends on where it stands.
bool isPage(std::string_view file, const Page& page);
std::string movedPage(std::string_view bytes, std::uint64_t from, std::uint64_t to);

// The size of a page with so many bytes in it.
std::uint64_t filledSize(std::uint64_t bytes);
void fillUp(std::string& page, std::uint64_t size);

}  // namespace cad::dwg
