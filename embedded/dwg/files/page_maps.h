#pragma once
// Which pages R2004 and R2010 to R2018 have, and which of them make up a section.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace cad::dwg {

// A page, or with a negative number a gap. They follow each other without a break.
struct Page {
  std::int32_t number = 0;
  std::uint32_t size = 0;  // with its header and what fills it up
  std::uint64_t at = 0;    // in the file
  std::string gap;         // what a gap tells besides: 16 bytes
};
base::Result<std::vector<Page>> readPageMap(std::string_view content, std::uint64_t place);
std::string writePageMap(const std::vector<Page>& pages);

struct SectionPage {
  std::uint32_t number = 0;
  std::uint32_t dataSize = 0;
  std::uint64_t start = 0;  // in the section
};
struct PagedSection {
  static constexpr std::uint32_t kPlain = 1, kCompressed = 2;
  std::uint64_t size = 0;
  std::uint32_t pageSize = 0;  // of its pages' content
  std::uint32_t unknown = 0;
  std::uint32_t compression = 0, type = 0, encryption = 0;
  std::string name;
  std::string nameBytes;  // 64, with what is behind the name's end
  std::vector<SectionPage> pages;
};
struct SectionMap {
  std::string head;  // 20 bytes, the number of sections first
  std::vector<PagedSection> sections;
  std::string rest;  // what follows them
};
base::Result<SectionMap> readSectionMap(std::string_view content, std::uint64_t place);
std::string writeSectionMap(const SectionMap& map);

}  // namespace cad::dwg
