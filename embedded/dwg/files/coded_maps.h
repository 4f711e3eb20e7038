#pragma once
// Which pages a file of R2007 has, and which of them make up a section.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace cad::dwg {

// A page, or with a negative number a gap. They follow each other without a break.
struct CodedPage {
  std::int64_t number = 0;
  std::uint64_t size = 0;
  std::uint64_t at = 0;  // in the file
};
base::Result<std::vector<CodedPage>> readCodedPageMap(std::string_view content, std::uint64_t place);
std::string writeCodedPageMap(const std::vector<CodedPage>& pages);

struct CodedSectionPage {
  std::uint64_t start = 0;  // in the section
  std::uint64_t room = 0;   // the size that the page was planned with
  std::uint64_t number = 0;
  std::uint64_t size = 0, packedSize = 0;  // of its content; alike when it is not compressed
  std::uint64_t checksum = 0, crc = 0;
};
struct CodedSection {
  static constexpr std::uint64_t kPlain = 1, kInterleaved = 4;
  std::uint64_t size = 0, pageSize = 0, encryption = 0, hash = 0, unknown = 0, coding = 0;
  std::string name;
  std::string nameBytes;
  std::vector<CodedSectionPage> pages;
};
base::Result<std::vector<CodedSection>> readCodedSectionMap(std::string_view content, std::uint64_t place);
std::string writeCodedSectionMap(const std::vector<CodedSection>& sections);

}  // namespace cad::dwg
