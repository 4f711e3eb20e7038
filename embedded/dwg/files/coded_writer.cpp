#include "embedded/dwg/files/coded_writer.h"

#include <algorithm>
#include <utility>

#include "embedded/dwg/files/coded_pages.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/section_changes.h"

namespace cad::dwg {

CodedWriter::CodedWriter(std::string_view file, const CodedHeader& header,
                         const std::vector<CodedPage>& pages, const std::vector<CodedSection>& map)
    : file_(file), header_(header), map_(map) {
  for (const CodedPage& page : pages) {
    pages_.push_back({page, &page, std::nullopt});
    const auto number = static_cast<std::uint64_t>(page.number < 0 ? -page.number : page.number);
    largestNumber_ = std::max(largestNumber_, number);
  }
}

std::vector<CodedWriter::NewPage>::iterator CodedWriter::find(std::uint64_t number) {
  return std::find_if(pages_.begin(), pages_.end(), [&](const NewPage& page) {
    return page.page.number == static_cast<std::int64_t>(number);
  });
}

void CodedWriter::put(NewPage page, std::uint64_t behind) {
  const auto at = behind == 0 ? find(header_[CodedHeader::kSectionMapId]) : std::next(find(behind));
  pages_.insert(at, std::move(page));
}

void CodedWriter::change(std::string_view name, std::string_view old, std::string_view now) {
  CodedSection& section =
      *std::find_if(map_.begin(), map_.end(), [&](const CodedSection& s) { return s.name == name; });
  std::vector<CodedSectionPage> before = std::exchange(section.pages, {});
  std::sort(before.begin(), before.end(),
            [](const CodedSectionPage& a, const CodedSectionPage& b) { return a.start < b.start; });
  constexpr std::size_t kSmallestPage = 0x100;
  const std::size_t most = std::max(static_cast<std::size_t>(section.pageSize), kSmallestPage);
  section.size = now.size();
  std::uint64_t last = 0;
  auto had = before.begin();  // the first page that does not begin before `start`
  for (std::size_t start = 0; start < now.size();) {
    const auto beginsHere = [&] { return had != before.end() && had->start == start; };
    while (had != before.end() && had->start < start) pages_.erase(find(had->number)), ++had;
    const bool isHere = beginsHere();
    std::size_t length = isHere ? static_cast<std::size_t>(had->size) : most;
    if (isHere && length > 0 && now.substr(start, length) == old.substr(start, length)) {
      section.pages.push_back(*had);
      last = had++->number, start += length;
      continue;
    }
    // The pages behind it begin where they began: some of them may stay the same.
    const auto next = isHere ? std::next(had) : had;
    length = std::min(next == before.end() ? std::max(length, most) : std::max(length, std::size_t{1}),
                      now.size() - start);
    if (next != before.end()) length = std::min(length, static_cast<std::size_t>(next->start) - start);
    NewPage page;
    CodedSectionPage inSection = isHere ? *had : CodedSectionPage();
    inSection.start = start;
    if (!isHere) inSection.number = ++largestNumber_;
    page.bytes = writeCodedPage(now.substr(start, length), section.coding, header_[CodedHeader::kCrcSeed],
                                header_.padding(), inSection);
    page.page.number = static_cast<std::int64_t>(inSection.number);
    page.page.size = page.bytes->size();
    section.pages.push_back(inSection);
    if (isHere) {
      page.old = find(inSection.number)->old;
      *find(inSection.number) = std::move(page);
      ++had;
    } else {
      put(std::move(page), last);
    }
    last = inSection.number, start += length;
  }
  for (; had != before.end(); ++had) pages_.erase(find(had->number));
}

void CodedWriter::place() {
  std::uint64_t at = CodedHeader::kPagesAt;
  for (NewPage& page : pages_) page.page.at = at, at += page.page.size;
}

std::uint64_t CodedWriter::moved(std::uint64_t address) const {
  const auto page = std::find_if(pages_.begin(), pages_.end(), [&](const NewPage& candidate) {
    return candidate.old != nullptr && candidate.page.number > 0 && candidate.old->at == address;
  });
  return page == pages_.end() ? address : page->page.at;
}

void CodedWriter::movePreview() {
  for (CodedSection& section : map_) {
    if (section.name != kPreviewName || section.coding != CodedSection::kPlain || section.pages.size() != 1) {
      continue;
    }
    CodedSectionPage& inSection = section.pages.front();
    NewPage& page = *find(inSection.number);
    if (page.old->at == page.page.at) continue;
    const auto content = readCodedPage(file_, *page.old, section, inSection, header_[CodedHeader::kCrcSeed]);
    if (!content) continue;
    std::string preview = content.value();
    cad::dwg::movePreview(preview, page.old->at, page.page.at);
    std::string bytes =
        writeCodedPage(preview, section.coding, header_[CodedHeader::kCrcSeed], header_.padding(), inSection);
    fillWith(bytes, page.page.size, header_.padding());
    if (bytes.size() == page.page.size) page.bytes = std::move(bytes);
  }
}

void CodedWriter::writeSectionMap() {
  const std::string content = writeCodedSectionMap(map_);
  CodedMapFacts facts;
  for (const auto id : {CodedHeader::kSectionMapId, CodedHeader::kSecondSectionMapId}) {
    const auto page = find(header_[id]);
    if (page == pages_.end()) continue;
    page->page.size = std::max(page->page.size, codedMapRoom(content.size()));
    page->bytes = writeCodedMap(content, page->page.size, header_.seed(CodedHeader::kSectionMapSeed),
                                header_.padding(), facts);
  }
  header_[CodedHeader::kSectionMapSize] = facts.size;
  header_[CodedHeader::kSectionMapPackedSize] = facts.packedSize;
  header_[CodedHeader::kSectionMapRepeats] = facts.repeats;
  header_[CodedHeader::kSectionMapCrc] = facts.crc;
  header_[CodedHeader::kSectionMapPackedCrc] = facts.packedCrc;
}

void CodedWriter::writePageMap() {
  std::vector<CodedPage> pages;
  for (const NewPage& page : pages_) pages.push_back(page.page);
  const std::string content = writeCodedPageMap(pages);
  CodedMapFacts facts;
  for (const auto id : {CodedHeader::kPageMapId, CodedHeader::kSecondPageMapId}) {
    const auto page = find(header_[id]);
    if (page == pages_.end()) continue;
    page->bytes = writeCodedMap(content, page->page.size, header_.seed(CodedHeader::kPageMapSeed),
                                header_.padding(), facts);
  }
  header_[CodedHeader::kPageMapSize] = facts.size;
  header_[CodedHeader::kPageMapPackedSize] = facts.packedSize;
  header_[CodedHeader::kPageMapRepeats] = facts.repeats;
  header_[CodedHeader::kPageMapCrc] = facts.crc;
  header_[CodedHeader::kPageMapPackedCrc] = facts.packedCrc;
}

std::string CodedWriter::written() {
  // The section map tells the sums of the preview, which depend on where that is: all sizes come first.
  writeSectionMap();
  for (const auto id : {CodedHeader::kPageMapId, CodedHeader::kSecondPageMapId}) {
    const auto page = find(header_[id]);
    constexpr std::uint64_t kEntry = 16;
    if (page != pages_.end())
      page->page.size = std::max(page->page.size, codedMapRoom(pages_.size() * kEntry));
  }
  place();
  movePreview();
  writeSectionMap();
  writePageMap();

  const auto offset = [&](CodedHeader::Field id) -> std::uint64_t {
    const auto page = find(header_[id]);
    return page == pages_.end() ? 0 : page->page.at - CodedHeader::kPagesAt;
  };
  const std::uint64_t end = pages_.back().page.at + pages_.back().page.size;
  constexpr std::uint64_t kFromSecond = CodedHeader::kPagesAt + CodedHeader::kLength;
  const std::uint64_t oldSecond = header_[CodedHeader::kSecondHeaderAt];
  header_[CodedHeader::kPageMapAt] = offset(CodedHeader::kPageMapId);
  header_[CodedHeader::kSecondPageMapAt] = offset(CodedHeader::kSecondPageMapId);
  header_[CodedHeader::kPageCount] = pages_.size();
  header_[CodedHeader::kLargestPageId] = std::max(header_[CodedHeader::kLargestPageId], largestNumber_);
  header_[CodedHeader::kSecondHeaderAt] = end - CodedHeader::kPagesAt;
  const std::string_view rest = isWithin(oldSecond, kFromSecond, file_.size())
                                    ? file_.substr(static_cast<std::size_t>(oldSecond + kFromSecond))
                                    : std::string_view();
  header_[CodedHeader::kFileSize] = end + CodedHeader::kLength + rest.size();
  const std::string header = header_.written();

  std::string out(file_.substr(0, CodedHeader::kAt));
  out += header;
  for (const NewPage& page : pages_) {
    out += page.bytes ? *page.bytes : part(file_, page.old->at, page.old->size);
  }
  out += header;
  out += rest;
  for (const std::uint64_t at : kAddressesAt) {
    putRaw(out, at, static_cast<std::uint32_t>(moved(rawAt<std::uint32_t>(out, at))));
  }
  return out;
}

}  // namespace cad::dwg
