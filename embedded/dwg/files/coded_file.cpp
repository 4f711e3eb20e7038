#include "embedded/dwg/files/coded_file.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "embedded/dwg/files/coded_pages.h"
#include "embedded/dwg/files/coded_writer.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

// Takes the range unless it overlaps another one.
bool takesFree(std::map<std::uint64_t, std::uint64_t>& ends, std::uint64_t begin, std::uint64_t end) {
  const auto [own, isNew] = ends.try_emplace(begin, end);
  const auto next = std::next(own);
  return isNew && (next == ends.end() || next->first >= end) &&
         (own == ends.begin() || std::prev(own)->second <= begin);
}

}  // namespace

base::Result<std::unique_ptr<DwgFile>> CodedFile::read(std::shared_ptr<const SourceBytes> source,
                                                       const DrawingFacts& facts) {
  std::unique_ptr<CodedFile> file(new CodedFile(std::move(source)));
  file->facts_ = facts;
  if (auto read = file->readMaps(); !read) return read.failure();
  if (auto checked = file->checkPages(); !checked) return checked.failure();
  if (auto read = file->readSections(); !read) return read.failure();
  if (auto checked = file->checkPlaces(); !checked) return checked.failure();
  file->facts_.lacksEnd = file->lacksSecondHeader();
  return std::unique_ptr<DwgFile>(std::move(file));
}

const CodedPage* CodedFile::page(std::uint64_t number) const {
  const auto found = byNumber_.find(number);
  return found == byNumber_.end() ? nullptr : &pages_[found->second];
}

base::Status CodedFile::readMaps() {
  auto header = CodedHeader::read(file());
  if (!header) return header.failure();
  header_ = std::move(header.value());
  if (isEncrypted(file())) return refusal(kSecurityAt, L"The drawing is encrypted with a password");
  const std::uint64_t mapOffset = header_[CodedHeader::kPageMapAt];
  if (mapOffset > file().size()) return refusal(CodedHeader::kAt, L"The page map lies outside of the file");
  const std::uint64_t mapAt = mapOffset + CodedHeader::kPagesAt;
  const CodedMapFacts pageFacts{header_[CodedHeader::kPageMapSize], header_[CodedHeader::kPageMapPackedSize],
                                header_[CodedHeader::kPageMapRepeats], header_[CodedHeader::kPageMapCrc],
                                header_[CodedHeader::kPageMapPackedCrc]};
  const auto pageMap =
      readCodedMap(file(), mapAt, pageFacts, header_.seed(CodedHeader::kPageMapSeed), L"page map");
  if (!pageMap) return pageMap.failure();
  auto pages = readCodedPageMap(pageMap.value(), mapAt);
  if (!pages) return pages.failure();
  pages_ = std::move(pages.value());
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (pages_[i].number > 0) byNumber_[static_cast<std::uint64_t>(pages_[i].number)] = i;
  }
  const CodedPage* const own = page(header_[CodedHeader::kPageMapId]);
  const CodedPage* const sections = page(header_[CodedHeader::kSectionMapId]);
  if (own == nullptr || sections == nullptr || own == sections || own->at != mapAt) {
    return refusal(mapAt, L"The page map is damaged");
  }
  const CodedMapFacts sectionFacts{
      header_[CodedHeader::kSectionMapSize], header_[CodedHeader::kSectionMapPackedSize],
      header_[CodedHeader::kSectionMapRepeats], header_[CodedHeader::kSectionMapCrc],
      header_[CodedHeader::kSectionMapPackedCrc]};
  const auto sectionMap = readCodedMap(file(), sections->at, sectionFacts,
                                       header_.seed(CodedHeader::kSectionMapSeed), L"section map");
  if (!sectionMap) return sectionMap.failure();
  auto map = readCodedSectionMap(sectionMap.value(), sections->at);
  if (!map) return map.failure();
  map_ = std::move(map.value());
  return {};
}

// All pages are in the file, and none is in two sections.
base::Status CodedFile::checkPages() {
  for (const CodedPage& page : pages_) {
    if (!isWithin(page.at, page.size, file().size())) {
      return refusal(file().size(),
                     L"The file is cut off: page " + std::to_wstring(page.number) + L" lies outside of it");
    }
  }
  std::vector<bool> isUsed(pages_.size());
  for (const auto map : {CodedHeader::kPageMapId, CodedHeader::kSecondPageMapId, CodedHeader::kSectionMapId,
                         CodedHeader::kSecondSectionMapId}) {
    const auto found = byNumber_.find(header_[map]);
    if (found != byNumber_.end()) isUsed[found->second] = true;
  }
  const std::uint64_t place = page(header_[CodedHeader::kSectionMapId])->at;
  for (const CodedSection& section : map_) {
    for (const CodedSectionPage& page : section.pages) {
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
bool CodedFile::lacksSecondHeader() const {
  const std::uint64_t offset = header_[CodedHeader::kSecondHeaderAt];
  if (offset > file().size()) return true;
  const std::uint64_t at = offset + CodedHeader::kPagesAt;
  return !isWithin(at, CodedHeader::kLength, file().size()) ||
         part(file(), at, CodedHeader::kLength) != part(file(), CodedHeader::kAt, CodedHeader::kLength);
}

const CodedSection* CodedFile::section(std::string_view name) const {
  const auto found =
      std::find_if(map_.begin(), map_.end(), [&](const CodedSection& s) { return s.name == name; });
  return found == map_.end() ? nullptr : &*found;
}

std::uint64_t CodedFile::placeOf(const CodedSection& section) const {
  return section.pages.empty() ? 0 : page(section.pages.front().number)->at;
}

base::Result<std::string> CodedFile::unpacked(const char* name, bool isNeeded) {
  const std::wstring wideName(name, name + std::char_traits<char>::length(name));
  const CodedSection* const section = this->section(name);
  if (section == nullptr) {
    if (!isNeeded) return std::string();
    return refusal(page(header_[CodedHeader::kSectionMapId])->at, wideName + L" is missing");
  }
  const std::uint64_t place = placeOf(*section);
  if (section->encryption == 1) return refusal(place, L"The drawing is encrypted with a password");
  const auto tooLarge = [&] { return refusal(place, wideName + L" is larger than the file can hold"); };
  // Pages that are left out are zeros.
  unpackedSize_ += std::min(section->size, largestUnpacked());
  if (section->size >= largestUnpacked() || unpackedSize_ > largestUnpacked()) return tooLarge();
  std::string content(static_cast<std::size_t>(section->size), '\0');
  std::map<std::uint64_t, std::uint64_t> ends;  // of the pages, by their starts
  for (const CodedSectionPage& inSection : section->pages) {
    const CodedPage& inFile = *page(inSection.number);
    if (!isWithin(inSection.start, inSection.size, section->size) ||
        !takesFree(ends, inSection.start, inSection.start + inSection.size)) {
      return refusal(inFile.at, wideName + L" is damaged");
    }
    const auto bytes = readCodedPage(file(), inFile, *section, inSection, header_[CodedHeader::kCrcSeed]);
    if (!bytes) return bytes.failure();
    std::copy(bytes.value().begin(), bytes.value().end(),
              content.begin() + static_cast<std::ptrdiff_t>(inSection.start));
  }
  return content;
}

base::Status CodedFile::readSections() {
  const auto unpack = [&](const char* name, bool isNeeded) { return unpacked(name, isNeeded); };
  if (auto read = readUnpacked(sections_, unpack); !read) return read;
  return readContent(sections_, placeOf(*section(kHeaderName)), placeOf(*section(kClassesName)),
                     placeOf(*section(kHandlesName)));
}

base::Status CodedFile::writeTo(const FileChanges& changes, Sink& sink) const {
  auto changed = changedSections(*this, sections_, changes);
  if (!changed) return changed.failure();
  if (changed.value().empty()) return sink.write(file()), base::Status();
  CodedWriter writer(file(), header_, pages_, map_);
  for (const auto& [name, content] : changed.value()) writer.change(name, sections_.named(name), content);
  const std::string written = writer.written();
  if (auto fits = withinLimits(written.size()); !fits) return fits;
  sink.write(written);
  return {};
}

}  // namespace cad::dwg
