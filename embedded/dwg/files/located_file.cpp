#include "embedded/dwg/files/located_file.h"

#include <algorithm>
#include <array>
#include <span>

#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/object_changes.h"
#include "embedded/dwg/files/object_map.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/sentinels.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kThumbnailAt = 0x0D, kCountAt = 0x15, kLocatorsAt = 0x19, kLocatorSize = 9;
enum SectionNumber : unsigned { kHeader, kClasses, kHandles, kFreeSpace, kTemplate, kAuxHeader };
// By the number of sections, from three on: what the CRC of the locators is combined with.
constexpr std::array<std::uint16_t, 4> kLocatorMasks = {0xA598, 0x8101, 0x3CC4, 0x8461};
constexpr unsigned kFewestSections = 3;
constexpr std::uint64_t kSentinel = kSentinelLength;

void patch(Sink& sink, std::uint64_t at, std::uint64_t value) {
  std::string bytes;
  appendRaw(bytes, static_cast<std::uint32_t>(value));
  sink.overwrite(at, bytes);
}

}  // namespace

base::Result<std::unique_ptr<DwgFile>> LocatedFile::read(std::shared_ptr<const SourceBytes> source,
                                                         const DrawingFacts& facts) {
  std::unique_ptr<LocatedFile> file(new LocatedFile(std::move(source)));
  file->facts_ = facts;
  file->objects_ = file->file();
  if (auto read = file->readLocators(); !read) return read.failure();
  if (auto read = file->readSections(); !read) return read.failure();
  file->readSecondHeader();
  file->facts_.lacksEnd = !file->second_;
  std::vector<Range> others = {{0, file->locatorsEnd()}};
  for (const Section& section : file->sections_) others.push_back({section.at, section.at + section.size});
  others.push_back({file->section(kHandles)->at, file->section(kHandles)->at + file->mapLength_});
  if (file->second_) others.push_back({file->secondAt_, file->secondAt_ + file->second_->length()});
  if (auto checked = file->checkPlaces(others); !checked) return checked.failure();
  return std::unique_ptr<DwgFile>(std::move(file));
}

base::Status LocatedFile::readLocators() {
  const std::string_view bytes = file();
  if (!isWithin(0, kLocatorsAt, bytes.size())) return refusal(bytes.size(), L"The file is cut off");
  const auto count = rawAt<std::uint32_t>(bytes, kCountAt);
  if (count < kFewestSections || count - kFewestSections >= kLocatorMasks.size()) {
    return refusal(kCountAt, L"The number of sections is wrong");
  }
  const std::uint64_t end = kLocatorsAt + count * kLocatorSize;
  if (!isWithin(end, 2 + kSentinel, bytes.size())) return refusal(bytes.size(), L"The file is cut off");
  if ((crc16(0, part(bytes, 0, end)) ^ kLocatorMasks[count - kFewestSections]) !=
      rawAt<std::uint16_t>(bytes, end)) {
    return refusal(end, L"The checksum of the file's beginning is wrong");
  }
  if (part(bytes, end + 2, kSentinel) != kLocatorsEnd) {
    return refusal(end + 2, L"The end mark of the file's beginning is missing");
  }
  for (std::uint64_t at = kLocatorsAt; at < end; at += kLocatorSize) {
    const Section read{rawAt<std::uint8_t>(bytes, at), rawAt<std::uint32_t>(bytes, at + 1),
                       rawAt<std::uint32_t>(bytes, at + 5), at};
    if (!isWithin(read.at, read.size, bytes.size())) {
      return refusal(at, L"Section " + std::to_wstring(read.number) + L" lies outside of the file");
    }
    sections_.push_back(read);
  }
  std::vector<Range> ranges = {{0, locatorsEnd()}};
  for (const Section& section : sections_) {
    if (section.size > 0) ranges.push_back({section.at, section.at + section.size});
  }
  std::sort(ranges.begin(), ranges.end(), [](const Range& a, const Range& b) { return a.begin < b.begin; });
  for (std::size_t i = 1; i < ranges.size(); ++i) {
    if (ranges[i].begin < ranges[i - 1].end) {
      return refusal(ranges[i].begin, L"The sections and objects of the file overlap");
    }
  }
  return {};
}

std::uint64_t LocatedFile::locatorsEnd() const {
  return kLocatorsAt + sections_.size() * kLocatorSize + 2 + kSentinel;
}

const LocatedFile::Section* LocatedFile::section(unsigned number) const {
  const auto found = std::find_if(sections_.begin(), sections_.end(),
                                  [&](const Section& s) { return s.number == number && s.at != 0; });
  return found == sections_.end() ? nullptr : &*found;
}

base::Status LocatedFile::readSections() {
  const Section* const header = section(kHeader);
  const Section* const classes = section(kClasses);
  const Section* const handles = section(kHandles);
  if (header == nullptr || classes == nullptr || handles == nullptr) {
    return refusal(kLocatorsAt, L"The header, the classes or the object map is missing");
  }
  auto frame = readFramed(Framed::kHeader, file(), header->at, header->at);
  if (!frame) return frame.failure();
  headerFrame_ = frame.value();
  frame = readFramed(Framed::kClasses, file(), classes->at, classes->at);
  if (!frame) return frame.failure();
  classesFrame_ = frame.value();
  header_ = headerFrame_.content(file());
  classes_ = classesFrame_.content(file());
  if (const Section* const found = section(kTemplate)) template_ = part(file(), found->at, found->size);
  auto map = readObjectMap(file().substr(static_cast<std::size_t>(handles->at)), handles->at);
  if (!map) return map.failure();
  places_ = std::move(map.value().places);
  mapLength_ = map.value().length;
  return {};
}

void LocatedFile::readSecondHeader() {
  const std::string_view bytes = file(), mark = SecondHeader::kBegin;
  const auto readAt = [&](std::size_t at) {
    secondAt_ = at;
    second_ = SecondHeader::read(bytes.substr(at + mark.size()));
    return second_.has_value();
  };
  const auto behindMap = static_cast<std::size_t>(section(kHandles)->at + mapLength_);
  if (bytes.substr(behindMap).starts_with(mark) && readAt(behindMap)) return;
  std::size_t at = bytes.rfind(mark);
  while (at != bytes.npos && !readAt(at)) at = at == 0 ? bytes.npos : bytes.rfind(mark, at - 1);
}

base::Status LocatedFile::writeTo(const FileChanges& changes, Sink& sink) const {
  Splices splices;
  const ObjectContents contents(changes, *this);
  const auto plan = ObjectChanges::plan(*this, contents, splices);
  if (!plan) return plan.failure();
  headerFrame_.change(file(), changes.header, splices);
  classesFrame_.change(file(), changes.classes, splices);
  if (splices.empty()) return sink.write(file()), base::Status();

  const std::uint64_t mapAt = section(kHandles)->at, secondAt = secondAt_ + SecondHeader::kBegin.size();
  splices.add(mapAt, mapLength_, std::string(part(file(), mapAt, mapLength_)));
  if (second_)
    splices.add(secondAt, second_->length(), std::string(part(file(), secondAt, second_->length())));
  if (!splices.arrange()) return overlap();
  const auto bytesOf = [&](std::uint32_t number) { return contents.whole(number); };
  const auto write = [&](std::string_view piece) { sink.write(piece); };
  // What these two tell hangs from their own lengths only where objects stand behind them.
  const std::uint64_t first = second_ ? std::min(mapAt, secondAt) : mapAt;
  const bool isLast =
      std::ranges::all_of(places_, [&](const ObjectPlace& place) { return place.offset < first; });
  if (!isLast) splices.measure(bytesOf);
  splices.apply(file(), 0, isLast ? first : 0, bytesOf, write);
  if (auto settled = settle(plan.value(), isLast, splices); !settled) return settled;
  splices.apply(file(), isLast ? first : 0, file().size(), bytesOf, write);
  if (!contents.status()) return contents.status();
  if (auto fits = withinLimits(file().size() + splices.growth()); !fits) return fits;
  patchLocators(splices, sink);
  patchThumbnail(splices, sink);
  patchFreeSpace(splices, plan.value().count(places_), sink);
  patchNextHandle(splices, plan.value().largestAdded(), sink);
  return {};
}

base::Failure LocatedFile::overlap() const {
  return refusal(section(kHandles)->at, L"The sections and objects of the file overlap");
}

base::Status LocatedFile::settle(const ObjectChanges& objects, bool isLast, Splices& splices) const {
  const std::uint64_t mapAt = section(kHandles)->at, secondAt = secondAt_ + SecondHeader::kBegin.size();
  bool isSettled = false;
  for (int round = 0; round < 8 && !isSettled; ++round) {
    const auto lengths = [&] {
      return splices.replacement(mapAt).size() + (second_ ? splices.replacement(secondAt).size() : 0);
    };
    const std::size_t oldLengths = lengths();
    if (round == 0 || !isLast) splices.replace(mapAt, objects.map(places_, splices));
    if (second_) replaceSecondHeader(objects, splices);
    isSettled = round > 0 && lengths() == oldLengths;
  }
  return isSettled ? base::Status() : overlap();
}

void LocatedFile::replaceSecondHeader(const ObjectChanges& objects, Splices& splices) const {
  const auto section = [&](unsigned number) {
    const auto* found = this->section(number);
    if (found == nullptr) return std::pair<std::uint32_t, std::uint32_t>();
    return std::pair(static_cast<std::uint32_t>(splices.moved(found->at)),
                     static_cast<std::uint32_t>(splices.movedLength(found->at, found->size)));
  };
  splices.replace(secondAt_ + SecondHeader::kBegin.size(),
                  second_->moved({splices.moved(secondAt_), section, objects.largestAdded()}));
}

void LocatedFile::patchLocators(const Splices& splices, Sink& sink) const {
  const std::uint64_t end = kLocatorsAt + sections_.size() * kLocatorSize;
  std::string begin(part(file(), 0, end + 2));
  for (const Section& section : sections_) {
    if (section.at == 0) continue;
    putRaw(begin, section.locator + 1, static_cast<std::uint32_t>(splices.moved(section.at)));
    putRaw(begin, section.locator + 5,
           static_cast<std::uint32_t>(splices.movedLength(section.at, section.size)));
  }
  const auto thumbnail = rawAt<std::uint32_t>(begin, kThumbnailAt);
  if (thumbnail < file().size())
    putRaw(begin, kThumbnailAt, static_cast<std::uint32_t>(splices.moved(thumbnail)));
  const auto crc = static_cast<std::uint16_t>(crc16(0, part(begin, 0, end)) ^
                                              kLocatorMasks[sections_.size() - kFewestSections]);
  putRaw(begin, end, crc);
  sink.overwrite(0, begin);
}

// The thumbnail tells where in the file each of its pictures is.
void LocatedFile::patchThumbnail(const Splices& splices, Sink& sink) const {
  const std::string_view old = file();
  const std::uint64_t at = rawAt<std::uint32_t>(old, kThumbnailAt);
  if (splices.moved(at) == at || !isWithin(at, kSentinel + 5, old.size()) ||
      part(old, at, kSentinel) != kThumbnailBegin) {
    return;
  }
  const std::uint64_t entries = at + kSentinel + 5;
  const auto count = rawAt<std::uint8_t>(old, entries - 1);
  if (!isWithin(entries, count * kLocatorSize, old.size())) return;
  for (unsigned i = 0; i < count; ++i) {
    const std::uint64_t entry = entries + i * kLocatorSize + 1;
    const auto picture = rawAt<std::uint32_t>(old, entry);
    if (picture == 0 || picture >= old.size()) continue;
    patch(sink, splices.moved(entry), splices.moved(picture));
  }
}

// The number of objects, and where they begin.
void LocatedFile::patchFreeSpace(const Splices& splices, std::size_t objects, Sink& sink) const {
  constexpr std::uint64_t kNumberAt = 4, kAddressAt = 16;
  const Section* const section = this->section(kFreeSpace);
  if (section == nullptr || section->size < kAddressAt + 4) return;
  const std::uint64_t number = section->at + kNumberAt, address = section->at + kAddressAt;
  if (rawAt<std::uint32_t>(file(), number) == places_.size()) patch(sink, splices.moved(number), objects);
  const auto begin = rawAt<std::uint32_t>(file(), address);
  if (begin < file().size()) patch(sink, splices.moved(address), splices.moved(begin));
}

void LocatedFile::patchNextHandle(const Splices& splices, Handle largest, Sink& sink) const {
  constexpr std::uint64_t kNextHandleAt = 79;
  const Section* const section = this->section(kAuxHeader);
  if (largest == 0 || section == nullptr || section->size < kNextHandleAt + 4) return;
  if (largest >= 0xFFFFFFFF) return;
  const std::uint64_t at = section->at + kNextHandleAt;
  if (rawAt<std::uint32_t>(file(), at) <= largest) patch(sink, splices.moved(at), largest + 1);
}

}  // namespace cad::dwg
