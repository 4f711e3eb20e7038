#pragma once
// Pages as they stand in files of R2007.

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/dwg/files/coded_maps.h"

namespace cad::dwg {

// What the header tells of the page map or the section map.
struct CodedMapFacts {
  std::uint64_t size = 0, packedSize = 0, repeats = 0;
  std::uint64_t crc = 0, packedCrc = 0;
};
// The map at `at`; `name` is for refusals.
base::Result<std::string> readCodedMap(std::string_view file, std::uint64_t at, const CodedMapFacts& facts,
                                       std::uint64_t seed, const std::wstring& name);
// The size that a page with such a map must have at least.
std::uint64_t codedMapRoom(std::uint64_t size);
// The page with `room` bytes, and what there is to tell of it.
std::string writeCodedMap(std::string_view content, std::uint64_t room, std::uint64_t seed,
                          std::string_view padding, CodedMapFacts& facts);

// The content of a section's page.
base::Result<std::string> readCodedPage(std::string_view file, const CodedPage& page,
                                        const CodedSection& section, const CodedSectionPage& inSection,
                                        std::uint64_t seed);
// The page with this content; the sizes and sums are set in `inSection`.
std::string writeCodedPage(std::string_view content, std::uint64_t coding, std::uint64_t seed,
                           std::string_view padding, CodedSectionPage& inSection);

void fillWith(std::string& page, std::uint64_t size, std::string_view padding);

}  // namespace cad::dwg
