#include "embedded/dwg/files/paged_writer.h"

#include <algorithm>
#include <utility>

#include "embedded/dwg/files/page_compression.h"
#include "embedded/dwg/files/page_frames.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/section_changes.h"

namespace cad::dwg {
namespace {

// Content is filled up with zeros to a whole page, but for pages of a size that nobody has.
constexpr std::size_t kLargestFilled = 0x10000, kLeastContent = 4;

std::string packed(std::string_view content, const PagedSection& section) {
  std::string filled(content);
  const std::size_t whole = section.pageSize <= kLargestFilled ? section.pageSize : kLeastContent;
  filled.resize(std::max(filled.size(), whole), '\0');
  return section.compression == PagedSection::kCompressed ? compressPage(filled) : filled;
}

bool areRegular(const std::vector<SectionPage>& pages, std::size_t size) {
  return std::all_of(pages.begin(), pages.end(),
                     [&](const SectionPage& page) { return page.start % size == 0; });
}

}  // namespace

PagedWriter::PagedWriter(std::string_view file, const PagedHeader& header, const std::vector<Page>& pages,
                         const SectionMap& map)
    : file_(file), header_(header), oldPages_(pages), map_(map) {
  for (const Page& page : pages) {
    NewPage kept;
    kept.page = page;
    kept.old = &page;
    pages_.push_back(std::move(kept));
    largestNumber_ = std::max(largestNumber_, static_cast<std::uint32_t>(std::max(page.number, 0)));
  }
  for (const PagedSection& section : map.sections) {
    if (section.name == kPreviewName && section.compression == PagedSection::kPlain &&
        !section.pages.empty()) {
      previewPage_ = section.pages.front().number;
    }
  }
}

std::vector<PagedWriter::NewPage>::iterator PagedWriter::find(std::uint32_t number) {
  return std::find_if(pages_.begin(), pages_.end(), [&](const NewPage& page) {
    return page.page.number == static_cast<std::int32_t>(number);
  });
}

void PagedWriter::put(NewPage page, std::uint32_t behind) {
  const auto at = behind == 0 ? find(header_.sectionMapId()) : std::next(find(behind));
  pages_.insert(at, std::move(page));
}

void PagedWriter::change(std::string_view name, std::string_view old, std::string_view now) {
  PagedSection& section = *std::find_if(map_.sections.begin(), map_.sections.end(),
                                        [&](const PagedSection& s) { return s.name == name; });
  const std::vector<SectionPage> before = std::exchange(section.pages, {});
  const std::size_t size = std::max<std::size_t>(section.pageSize, kLeastContent);
  const bool mayKeep = areRegular(before, size);
  section.size = now.size();
  std::uint32_t last = 0;
  for (std::size_t start = 0; start < now.size(); start += size) {
    const std::string_view content = now.substr(start, size);
    const auto had = std::find_if(before.begin(), before.end(),
                                  [&](const SectionPage& page) { return page.start == start; });
    if (mayKeep && start < old.size() && content == old.substr(start, size)) {
      if (had != before.end()) section.pages.push_back(*had), last = had->number;
      continue;
    }
    NewPage page;
    page.data = packed(content, section);
    page.type = section.type;
    page.start = start;
    const std::uint32_t number = had != before.end() ? had->number : ++largestNumber_;
    section.pages.push_back({number, static_cast<std::uint32_t>(page.data.size()), start});
    page.page.number = static_cast<std::int32_t>(number);
    page.page.size = static_cast<std::uint32_t>(filledSize(kPageHeader + page.data.size()));
    if (had != before.end()) {
      *find(number) = std::move(page);
    } else {
      put(std::move(page), last);
    }
    last = number;
  }
  for (const SectionPage& page : before) {
    const bool isKept = std::any_of(section.pages.begin(), section.pages.end(),
                                    [&](const SectionPage& kept) { return kept.number == page.number; });
    if (!isKept) pages_.erase(find(page.number));
  }
}

void PagedWriter::place() {
  std::uint64_t at = PagedHeader::kPagesAt;
  for (NewPage& page : pages_) page.page.at = at, at += page.page.size;
}

std::uint64_t PagedWriter::moved(std::uint64_t address) const {
  const auto was = std::find_if(oldPages_.begin(), oldPages_.end(), [&](const Page& page) {
    return page.number > 0 && page.at + kPageHeader == address;
  });
  if (was == oldPages_.end()) return address;
  const auto is = std::find_if(pages_.begin(), pages_.end(),
                               [&](const NewPage& page) { return page.page.number == was->number; });
  return is == pages_.end() ? address : is->page.at + kPageHeader;
}

std::string PagedWriter::bytesOf(const NewPage& page) const {
  if (page.old == nullptr) return writePage(page.data, page.page.at, page.type, page.start);
  const std::string_view bytes = part(file_, page.old->at, page.old->size);
  if (page.old->at == page.page.at || !isPage(file_, *page.old)) return std::string(bytes);
  if (page.page.number != static_cast<std::int32_t>(previewPage_)) {
    return movedPage(bytes, page.old->at, page.page.at);
  }
  const auto section = std::find_if(map_.sections.begin(), map_.sections.end(),
                                    [](const PagedSection& s) { return s.name == kPreviewName; });
  const auto data = readPage(file_, *page.old, *section, section->pages.front());
  if (!data) return movedPage(bytes, page.old->at, page.page.at);
  std::string preview(data.value());
  movePreview(preview, page.old->at + kPageHeader, page.page.at + kPageHeader);
  std::string whole = writePage(preview, page.page.at, section->type, section->pages.front().start);
  fillUp(whole, page.page.size);
  return whole;
}

// What a file has behind its pages and its second header.
std::string_view PagedWriter::behindPages(std::uint64_t secondHeaderAt) const {
  const Page& last = oldPages_.back();
  if (secondHeaderAt != 0 && secondHeaderAt < last.at) return {};
  const std::uint64_t begin = secondHeaderAt != 0 ? secondHeaderAt : last.at;
  const std::uint64_t length = secondHeaderAt != 0 ? std::uint64_t{PagedHeader::kLength} : last.size;
  if (!isWithin(begin, length, file_.size())) return {};
  return part(file_, begin + length, file_.size() - begin - length);
}

std::string PagedWriter::written() {
  const std::string sectionMap = writeSystemPage(writeSectionMap(map_), SystemPage::kSectionMap);
  find(header_.sectionMapId())->page.size = static_cast<std::uint32_t>(filledSize(sectionMap.size()));
  const auto own = find(header_.pageMapId());
  std::string pageMap;
  // The map tells its own size, which only grows.
  for (bool fits = false; !fits;) {
    std::vector<Page> pages;
    for (const NewPage& page : pages_) pages.push_back(page.page);
    pageMap = writeSystemPage(writePageMap(pages), SystemPage::kPageMap);
    const auto size = static_cast<std::uint32_t>(filledSize(pageMap.size()));
    fits = size <= own->page.size;
    own->page.size = std::max(own->page.size, size);
  }
  place();
  const std::uint64_t oldSecond = header_.secondHeaderAt();
  const std::string_view rest = behindPages(oldSecond);

  std::string out(file_.substr(0, PagedHeader::kPagesAt));
  PagedHeader::Pages facts;
  for (NewPage& page : pages_) {
    const auto number = static_cast<std::uint32_t>(page.page.number);
    if (page.page.number > 0) facts.lastId = number, ++facts.count;
    facts.end = page.page.at + page.page.size;
    if (number == header_.sectionMapId()) {
      out += sectionMap;
    } else if (&page == &*own) {
      facts.mapAt = page.page.at;
      out += pageMap;
      // What would fill it up is left out at the file's end.
      if (&page == &pages_.back() && (oldSecond != 0 || rest.empty())) break;
    } else {
      out += bytesOf(page);
    }
    if (out.size() < facts.end) out += randomBytes(static_cast<std::size_t>(facts.end) - out.size());
  }
  for (const std::uint64_t at : kAddressesAt) {
    putRaw(out, at, static_cast<std::uint32_t>(moved(rawAt<std::uint32_t>(out, at))));
  }
  facts.largestId = largestNumber_;
  facts.secondHeaderAt = oldSecond == 0 ? 0 : out.size();
  header_.setPages(facts);
  const std::string header = header_.written();
  out.replace(PagedHeader::kAt, PagedHeader::kLength, header);
  if (oldSecond != 0) out += header;
  out += rest;
  return out;
}

}  // namespace cad::dwg
