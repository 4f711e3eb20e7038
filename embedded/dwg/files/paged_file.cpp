#include "embedded/dwg/files/paged_file.h"

#include <algorithm>
#include <set>

#include "embedded/dwg/files/object_map.h"
#include "embedded/dwg/files/page_compression.h"
#include "embedded/dwg/files/page_frames.h"
#include "embedded/dwg/files/paged_writer.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
base::Result<std::unique_ptr<DwgFile>> PagedFile::read(std::shared_ptr<const SourceBytes> source,
                                                       const DrawingFacts& facts) {
  std::unique_ptr<PagedFile> file(new PagedFile(std::move(source)));
  file->facts_ = facts;
  if (auto read = file->readMaps(); !read) return read.failure();
  if (auto checked = file->checkPages(); !checked) return checked.failure();
  if (auto read = file->readSections(); !read) return read.failure();
  if (auto checked = file->checkPlaces(); !checked) return checked.failure();
  file->facts_.lacksEnd = file->lacksSecondHeader();
  return std::unique_ptr<DwgFile>(std::move(file));
}

base::Status PagedFile::readMaps() {
  auto header = PagedHeader::read(file());
  if (!header) return header.failure();
  header_ = std::move(header.value());
  if (isEncrypted(file())) return refusal(kSecurityAt, L"The drawing is encrypted with a password");
  const std::uint64_t mapAt = header_.pageMapAt();
  const auto pageMap = readSystemPage(file(), mapAt, SystemPage::kPageMap);
  if (!pageMap) return pageMap.failure();
  auto pages = readPageMap(pageMap.value(), mapAt);
  if (!pages) return pages.failure();
  pages_ = std::move(pages.value());
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (pages_[i].number > 0) byNumber_[static_cast<std::uint32_t>(pages_[i].number)] = i;
  }
  const auto own = byNumber_.find(header_.pageMapId()), sections = byNumber_.find(header_.sectionMapId());
  if (own == byNumber_.end() || sections == byNumber_.end() || pages_[own->second].at != mapAt ||
      own == sections) {
    return refusal(mapAt, L"The page map is damaged");
  }
  const std::uint64_t at = pages_[sections->second].at;
  const auto sectionMap = readSystemPage(file(), at, SystemPage::kSectionMap);
  if (!sectionMap) return sectionMap.failure();
  auto map = readSectionMap(sectionMap.value(), at);
  if (!map) return map.failure();
  map_ = std::move(map.value());
  return {};
}

// All pages are in the file, but for what fills up the page map at its end; none is in two sections.
base::Status PagedFile::checkPages() {
  for (const Page& page : pages_) {
    const bool isMap = page.number == static_cast<std::int32_t>(header_.pageMapId());
    if (!isMap && !isWithin(page.at, page.size, file().size())) {
      return refusal(file().size(),
                     L"The file is cut off: page " + std::to_wstring(page.number) + L" lies outside of it");
    }
  }
  std::vector<bool> isUsed(pages_.size());
  for (const std::uint32_t number : {header_.pageMapId(), header_.sectionMapId()}) {
    isUsed[byNumber_.at(number)] = true;
  }
  const std::uint64_t place = pages_[byNumber_.at(header_.sectionMapId())].at;
  for (const PagedSection& section : map_.sections) {
    for (const SectionPage& page : section.pages) {
      const auto found = byNumber_.find(page.number);
      if (found == byNumber_.end() || isUsed[found->second]) {
        return refusal(place, L"The section map names a page that does not exist, or one twice");
      }
      isUsed[found->second] = true;
    }
  }
  return {};
}

// It stands behind the pages, the same bytes once more.
bool PagedFile::lacksSecondHeader() const {
  const std::uint64_t at = header_.secondHeaderAt();
  if (at == 0) return false;  // the file was written without one
  return !isWithin(at, PagedHeader::kLength, file().size()) ||
         part(file(), at, PagedHeader::kLength) != part(file(), PagedHeader::kAt, PagedHeader::kLength);
}

const PagedSection* PagedFile::section(std::string_view name) const {
  const auto found = std::find_if(map_.sections.begin(), map_.sections.end(),
                                  [&](const PagedSection& s) { return s.name == name; });
  return found == map_.sections.end() ? nullptr : &*found;
}

std::uint64_t PagedFile::placeOf(const PagedSection& section) const {
  return section.pages.empty() ? 0 : pages_[byNumber_.at(section.pages.front().number)].at;
}

base::Result<std::string> PagedFile::unpacked(const char* name, bool isNeeded) {
  const std::wstring wideName(name, name + std::char_traits<char>::length(name));
  const PagedSection* const section = this->section(name);
  if (section == nullptr) {
    if (!isNeeded) return std::string();
    return refusal(pages_[byNumber_.at(header_.sectionMapId())].at, wideName + L" is missing");
  }
  const std::uint64_t place = placeOf(*section);
  const auto damaged = [&](std::uint64_t at) { return refusal(at, wideName + L" is damaged"); };
  if (section->encryption == 1) return refusal(place, L"The drawing is encrypted with a password");
  // Pages that are left out are zeros.
  unpackedSize_ += std::min(section->size, largestUnpacked());
  if (section->size >= largestUnpacked() || unpackedSize_ > largestUnpacked())
    return refusal(place, wideName + L" is larger than the file can hold");
  std::string content(static_cast<std::size_t>(section->size), '\0');
  std::set<std::uint64_t> starts;
  for (const SectionPage& page : section->pages) {
    const Page& inFile = pages_[byNumber_.at(page.number)];
    if (!starts.insert(page.start).second) return damaged(inFile.at);
    const auto data = readPage(file(), inFile, *section, page);
    if (!data) return data.failure();
    std::string unpackedPage;
    std::string_view bytes = data.value();
    if (section->compression == PagedSection::kCompressed) {
      const std::uint64_t most = std::min<std::uint64_t>(section->pageSize, largestUnpacked());
      auto decompressed = decompressPage(bytes, most);
      if (!decompressed) return damaged(inFile.at);
      unpackedPage = std::move(*decompressed);
      bytes = unpackedPage;
    }
    if (page.start > content.size()) return damaged(inFile.at);
    bytes = bytes.substr(0, content.size() - static_cast<std::size_t>(page.start));
    std::copy(bytes.begin(), bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(page.start));
  }
  return content;
}

base::Status PagedFile::readSections() {
  const auto unpack = [&](const char* name, bool isNeeded) { return unpacked(name, isNeeded); };
  if (auto read = readUnpacked(sections_, unpack); !read) return read;
  return readContent(sections_, placeOf(*section(kHeaderName)), placeOf(*section(kClassesName)),
                     placeOf(*section(kHandlesName)));
}

base::Status PagedFile::writeTo(const FileChanges& changes, Sink& sink) const {
  auto changed = changedSections(*this, sections_, changes);
  if (!changed) return changed.failure();
  if (changed.value().empty()) return sink.write(file()), base::Status();
  PagedWriter writer(file(), header_, pages_, map_);
  for (const auto& [name, content] : changed.value()) writer.change(name, sections_.named(name), content);
  const std::string written = writer.written();
  if (auto fits = withinLimits(written.size()); !fits) return fits;
  sink.write(written);
  return {};
}

}  // namespace cad::dwg
