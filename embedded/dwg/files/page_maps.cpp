#include "embedded/dwg/files/page_maps.h"

#include <algorithm>

#include "embedded/dwg/files/paged_header.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

constexpr std::size_t kEntry = 8, kGap = 16;
constexpr std::size_t kHead = 20, kSection = 32, kName = 64, kSectionPage = 16;

// The bytes of a map, one value after the other.
class Cursor {
 public:
  explicit Cursor(std::string_view bytes) : bytes_(bytes) {}
  bool has(std::uint64_t count) const { return isWithin(at_, count, bytes_.size()); }
  template <class Integer>
  Integer take() {
    const auto value = rawAt<Integer>(bytes_, at_);
    at_ += sizeof(Integer);
    return value;
  }
  std::string_view take(std::size_t count) {
    at_ += count;
    return part(bytes_, at_ - count, count);
  }
  std::string_view rest() const { return bytes_.substr(static_cast<std::size_t>(at_)); }

 private:
  std::string_view bytes_;
  std::uint64_t at_ = 0;
};

}  // namespace

base::Result<std::vector<Page>> readPageMap(std::string_view content, std::uint64_t place) {
  std::vector<Page> pages;
  Cursor cursor(content);
  std::uint64_t at = PagedHeader::kPagesAt;
  while (cursor.has(kEntry)) {
    Page page;
    page.number = cursor.take<std::int32_t>();
    page.size = cursor.take<std::uint32_t>();
    page.at = at;
    at += page.size;
    if (page.number < 0) {
      if (!cursor.has(kGap)) break;
      page.gap = cursor.take(kGap);
    }
    pages.push_back(std::move(page));
  }
  std::vector<std::int32_t> numbers;
  for (const Page& page : pages) numbers.push_back(page.number);
  std::sort(numbers.begin(), numbers.end());
  const bool isTwice = std::adjacent_find(numbers.begin(), numbers.end()) != numbers.end();
  if (isTwice || !cursor.rest().empty() || std::binary_search(numbers.begin(), numbers.end(), 0)) {
    return refusal(place, L"The page map is damaged");
  }
  return pages;
}

std::string writePageMap(const std::vector<Page>& pages) {
  std::string content;
  for (const Page& page : pages) {
    appendRaw(content, page.number);
    appendRaw(content, page.size);
    content += page.gap;
  }
  return content;
}

base::Result<SectionMap> readSectionMap(std::string_view content, std::uint64_t place) {
  const auto damaged = [&] { return refusal(place, L"The section map is damaged"); };
  SectionMap map;
  Cursor cursor(content);
  if (!cursor.has(kHead)) return damaged();
  map.head = cursor.take(kHead);
  const auto count = rawAt<std::uint32_t>(map.head, 0);
  for (std::uint32_t i = 0; i < count; ++i) {
    if (!cursor.has(kSection + kName)) return damaged();
    PagedSection section;
    section.size = cursor.take<std::uint64_t>();
    const auto pages = cursor.take<std::uint32_t>();
    section.pageSize = cursor.take<std::uint32_t>();
    section.unknown = cursor.take<std::uint32_t>();
    section.compression = cursor.take<std::uint32_t>();
    section.type = cursor.take<std::uint32_t>();
    section.encryption = cursor.take<std::uint32_t>();
    section.nameBytes = cursor.take(kName);
    section.name = section.nameBytes.substr(0, section.nameBytes.find('\0'));
    if (!cursor.has(std::uint64_t{pages} * kSectionPage)) return damaged();
    for (std::uint32_t j = 0; j < pages; ++j) {
      SectionPage page;
      page.number = cursor.take<std::uint32_t>();
      page.dataSize = cursor.take<std::uint32_t>();
      page.start = cursor.take<std::uint64_t>();
      section.pages.push_back(page);
    }
    map.sections.push_back(std::move(section));
  }
  map.rest = cursor.rest();
  return map;
}

std::string writeSectionMap(const SectionMap& map) {
  std::string content = map.head;
  for (const PagedSection& section : map.sections) {
    appendRaw(content, section.size);
    appendRaw(content, static_cast<std::uint32_t>(section.pages.size()));
    appendRaw(content, section.pageSize);
    appendRaw(content, section.unknown);
    appendRaw(content, section.compression);
    appendRaw(content, section.type);
    appendRaw(content, section.encryption);
    content += section.nameBytes;
    for (const SectionPage& page : section.pages) {
      appendRaw(content, page.number);
      appendRaw(content, page.dataSize);
      appendRaw(content, page.start);
    }
  }
  return content + map.rest;
}

}  // namespace cad::dwg
