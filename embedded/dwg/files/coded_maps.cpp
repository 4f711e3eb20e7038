#include "embedded/dwg/files/coded_maps.h"

#include <algorithm>

#include "embedded/dwg/files/coded_header.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

constexpr std::size_t kEntry = 16, kSection = 64, kSectionPage = 56;
constexpr std::uint64_t kLongestName = 0x1000;

}  // namespace

base::Result<std::vector<CodedPage>> readCodedPageMap(std::string_view content, std::uint64_t place) {
  const auto damaged = [&] { return refusal(place, L"The page map is damaged"); };
  if (content.size() % kEntry != 0) return damaged();
  constexpr std::uint64_t kLargest = std::uint64_t{1} << 40;
  std::vector<CodedPage> pages;
  std::vector<std::int64_t> numbers;
  std::uint64_t at = CodedHeader::kPagesAt;
  for (std::size_t i = 0; i < content.size(); i += kEntry) {
    const CodedPage page{rawAt<std::int64_t>(content, i + 8), rawAt<std::uint64_t>(content, i), at};
    if (page.size > kLargest || page.number == 0) return damaged();
    at += page.size;
    pages.push_back(page);
    numbers.push_back(page.number);
  }
  std::sort(numbers.begin(), numbers.end());
  if (std::adjacent_find(numbers.begin(), numbers.end()) != numbers.end()) return damaged();
  return pages;
}

std::string writeCodedPageMap(const std::vector<CodedPage>& pages) {
  std::string content;
  for (const CodedPage& page : pages) appendRaw(content, page.size), appendRaw(content, page.number);
  return content;
}

base::Result<std::vector<CodedSection>> readCodedSectionMap(std::string_view content, std::uint64_t place) {
  const auto damaged = [&] { return refusal(place, L"The section map is damaged"); };
  std::vector<CodedSection> sections;
  std::uint64_t at = 0;
  const auto take = [&] { return at += 8, rawAt<std::uint64_t>(content, at - 8); };
  while (at < content.size()) {
    if (!isWithin(at, kSection, content.size())) return damaged();
    CodedSection section;
    section.size = take();
    section.pageSize = take();
    section.encryption = take();
    section.hash = take();
    const std::uint64_t nameLength = take();
    section.unknown = take();
    section.coding = take();
    const std::uint64_t pages = take();
    if (nameLength > kLongestName || !isWithin(at, nameLength, content.size())) return damaged();
    section.nameBytes = part(content, at, nameLength);
    for (std::size_t i = 0; i + 1 < nameLength && section.nameBytes[i] != '\0'; i += 2) {
      section.name += section.nameBytes[i];
    }
    at += nameLength;
    if (pages > (content.size() - at) / kSectionPage) return damaged();
    for (std::uint64_t i = 0; i < pages; ++i) {
      CodedSectionPage page;
      page.start = take();
      page.room = take();
      page.number = take();
      page.size = take();
      page.packedSize = take();
      page.checksum = take();
      page.crc = take();
      section.pages.push_back(page);
    }
    sections.push_back(std::move(section));
  }
  return sections;
}

std::string writeCodedSectionMap(const std::vector<CodedSection>& sections) {
  std::string content;
  const auto put = [&](std::uint64_t value) { appendRaw(content, value); };
  for (const CodedSection& section : sections) {
    put(section.size), put(section.pageSize), put(section.encryption), put(section.hash);
    put(section.nameBytes.size()), put(section.unknown), put(section.coding), put(section.pages.size());
    content += section.nameBytes;
    for (const CodedSectionPage& page : section.pages) {
      put(page.start), put(page.room), put(page.number);
      put(page.size), put(page.packedSize), put(page.checksum), put(page.crc);
    }
  }
  return content;
}

}  // namespace cad::dwg
