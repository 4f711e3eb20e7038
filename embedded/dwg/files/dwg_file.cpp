#include "embedded/dwg/files/dwg_file.h"

#include <algorithm>

#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/file_mark.h"
#include "embedded/dwg/files/code_pages.h"
#include "embedded/dwg/files/coded_file.h"
#include "embedded/dwg/files/located_file.h"
#include "embedded/dwg/files/object_map.h"
#include "embedded/dwg/files/paged_file.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/section_changes.h"

namespace cad::dwg {
namespace {

constexpr std::size_t kCodePageAt = 0x13;

DrawingFacts factsOf(std::string_view file) {
  DrawingFacts facts;
  facts.versionCode = dwgVersionCode(file);
  facts.version = base::versionByCode(facts.versionCode);
  const std::uint16_t number = rawAt<std::uint16_t>(file, kCodePageAt);
  facts.codePageName = codePageName(number);
  const auto page = codePageOf(number);
  facts.codePageKnown = page.has_value();
  facts.codePage = facts.version >= Version::kR2007 ? base::kUtf8 : page.value_or(1252);
  return facts;
}

// False: it is not within the objects.
bool readObject(std::string_view objects, Version version, std::uint64_t offset, ObjectBytes& object) {
  if (offset > objects.size()) return false;
  const std::string_view rest = objects.substr(static_cast<std::size_t>(offset));
  BitReader reader(rest);
  const std::uint64_t size = reader.ms();
  object.handleBits = version >= Version::kR2010 ? reader.umc() : 0;
  const std::uint64_t begin = reader.position() / 8;
  if (reader.failed() || size == 0 || object.handleBits > size * 8) return false;
  if (!isWithin(begin, size + 2, rest.size())) return false;
  object.data = part(rest, begin, size);
  object.whole = part(rest, 0, begin + size + 2);
  return true;
}

base::Failure noObject(std::uint64_t offset) { return refusal(offset, L"There is no whole object here"); }

}  // namespace

bool ObjectBytes::crcHolds() const {
  const std::size_t length = whole.size() - 2;
  return crc16(kCrcStart, whole.substr(0, length)) == rawAt<std::uint16_t>(whole, length);
}

std::uint16_t DwgFile::codePageNumber() const { return rawAt<std::uint16_t>(file(), kCodePageAt); }

const ObjectPlace* DwgFile::find(Handle handle) const {
  const auto place = std::lower_bound(places_.begin(), places_.end(), handle,
                                      [](const ObjectPlace& p, Handle wanted) { return p.handle < wanted; });
  return place != places_.end() && place->handle == handle ? &*place : nullptr;
}

ObjectBytes DwgFile::objectOf(const ObjectPlace& place) const {
  const char* const whole = objects_.data() + place.offset;
  const char* at = whole;
  const auto next = [&at] { return std::uint32_t{static_cast<std::uint8_t>(*at++)}; };
  std::uint64_t size = next();
  size |= next() << 8;
  if ((size & 0x8000) != 0) {
    const std::uint64_t low = next(), high = next();
    size = (size & 0x7FFF) | (low | high << 8) << 15;
  }
  ObjectBytes object;
  if (version() >= Version::kR2010) {
    std::uint64_t byte = 0x80;
    for (unsigned shift = 0; (byte & 0x80) != 0; shift += 7) {
      byte = next();
      object.handleBits |= (byte & 0x7F) << shift;
    }
  }
  object.data = {at, static_cast<std::size_t>(size)};
  object.whole = {whole, static_cast<std::size_t>(at - whole) + object.data.size() + sizeof(std::uint16_t)};
  return object;
}

base::Result<ObjectBytes> DwgFile::objectAt(std::uint64_t offset) const {
  ObjectBytes object;
  if (!readObject(objects_, version(), offset, object)) return noObject(offset);
  return object;
}

base::Result<std::string> DwgFile::write(const FileChanges& changes) const {
  class Text final : public Sink {
   public:
    void write(std::string_view piece) override { whole += piece; }
    void overwrite(std::uint64_t at, std::string_view bytes) override {
      whole.replace(static_cast<std::size_t>(at), bytes.size(), bytes);
    }
    std::string whole;
  };
  Text text;
  const base::Status written = writeTo(changes, text);
  return written ? base::Result<std::string>(std::move(text.whole)) : written.failure();
}

base::Status DwgFile::checkPlaces(std::span<const Range> others) const {
  ObjectBytes object;
  for (const ObjectPlace& place : places_) {
    if (!readObject(objects_, version(), place.offset, object)) return noObject(place.offset);
    const std::uint64_t end = place.offset + object.whole.size();
    for (const Range& other : others) {
      if (place.offset < other.end && end > other.begin) return noObject(place.offset);
    }
  }
  return {};
}

std::uint64_t DwgFile::largestUnpacked() const {
  constexpr std::uint64_t kLeast = std::uint64_t{16} << 20, kRatio = 64;
  return kLeast + kRatio * file().size();
}

base::Status DwgFile::withinLimits(std::uint64_t size) {
  return size <= 0xFFFFFFFFU ? base::Status() : refusal(0, L"The file would be larger than 4 gigabytes");
}

base::Status DwgFile::readContent(UnpackedSections& sections, std::uint64_t headerPlace,
                                  std::uint64_t classesPlace, std::uint64_t handlesPlace) {
  auto frame = readFramed(Framed::kHeader, sections.header, 0, headerPlace);
  if (!frame) return frame.failure();
  sections.headerFrame = frame.value();
  frame = readFramed(Framed::kClasses, sections.classes, 0, classesPlace);
  if (!frame) return frame.failure();
  sections.classesFrame = frame.value();
  auto map = readObjectMap(sections.handles, handlesPlace);
  if (!map) return map.failure();
  places_ = std::move(map.value().places);
  sections.mapLength = map.value().length;
  header_ = sections.headerFrame.content(sections.header);
  classes_ = sections.classesFrame.content(sections.classes);
  objects_ = sections.objects;
  template_ = sections.templateSection;
  return {};
}

// Behind the template's description. Older files have nothing else there; they are told to write it in
// either half.
std::optional<std::int64_t> DwgFile::measurement() const {
  constexpr std::uint64_t kLength = 2;
  if (template_.size() < 2 * kLength) return std::nullopt;
  if (version() < Version::kR2004) {
    const auto whole = rawAt<std::uint32_t>(template_, 0);
    if (whole == 0) return 0;
    return whole == 0x100 || whole == 0x10000 ? std::optional<std::int64_t>(1) : std::nullopt;
  }
  const std::uint64_t width = version() >= Version::kR2007 ? 2 : 1;
  const std::uint64_t at = kLength + rawAt<std::uint16_t>(template_, 0) * width;
  if (!isWithin(at, kLength, template_.size())) return std::nullopt;
  const auto value = rawAt<std::uint16_t>(template_, at);
  return value <= 1 ? std::optional<std::int64_t>(value) : std::nullopt;
}

base::Result<std::unique_ptr<DwgFile>> readDwgFile(std::shared_ptr<const SourceBytes> source) {
  const std::string_view file = source->view();
  if (!isDwg(file)) return refusal(0, L"This is not a DWG drawing");
  if (base::versionByCode(dwgVersionCode(file)) == Version::kR12) {
    return refusal(0, L"This is a DWG drawing of a version before R13; please save it in a newer one");
  }
  if (file.size() < kCodePageAt + 2) return refusal(file.size(), L"The file is cut off");
  const DrawingFacts facts = factsOf(file);
  switch (facts.version) {
    case Version::kR13:
    case Version::kR14:
    case Version::kR2000:
      return LocatedFile::read(std::move(source), facts);
    case Version::kR2004:
    case Version::kR2010:
    case Version::kR2013:
    case Version::kR2018:
      return PagedFile::read(std::move(source), facts);
    case Version::kR2007:
      return CodedFile::read(std::move(source), facts);
    default:
      return refusal(
          0, L"This is a DWG drawing of a newer version than is known here; please save it in an older one");
  }
}

}  // namespace cad::dwg
