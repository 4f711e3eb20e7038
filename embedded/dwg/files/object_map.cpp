#include "embedded/dwg/files/object_map.h"

#include <algorithm>

#include "embedded/drawing/handle_text.h"
#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/bits/modular_codes.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

// A page is closed when it has as many bytes, those of its size among them; no page has more than the most,
// which readers hold to.
constexpr std::size_t kFullPage = 2032, kMostOfPage = 2034;

std::uint16_t bigEndian(std::string_view bytes, std::uint64_t at) {
  const auto value = rawAt<std::uint16_t>(bytes, at);
  return static_cast<std::uint16_t>(value << 8 | value >> 8);
}

void appendBigEndian(std::string& bytes, std::uint16_t value) {
  bytes += static_cast<char>(value >> 8);
  bytes += static_cast<char>(value);
}

// False: the pairs are not what they should be.
bool readPairs(std::string_view page, std::vector<ObjectPlace>& places) {
  BitReader reader(page);
  ObjectPlace at;
  while (reader.left() > 0) {
    at.handle += reader.umc();
    at.offset += static_cast<std::uint64_t>(reader.mc());
    if (reader.failed()) return false;
    places.push_back(at);
  }
  return true;
}

}  // namespace

base::Result<ObjectMap> readObjectMap(std::string_view section, std::uint64_t place) {
  // Mostly a pair has three bytes, and not much else follows.
  constexpr std::size_t kPair = 3, kMost = std::size_t{1} << 24;
  ObjectMap map;
  map.places.reserve(std::min(section.size(), kMost) / kPair);
  while (true) {
    const auto cut = [&] { return refusal(place + map.length, L"AcDb:Handles is cut off"); };
    if (!isWithin(map.length, 4, section.size())) return cut();
    const std::uint16_t size = bigEndian(section, map.length);
    if (size < 2 || !isWithin(map.length, size + 2U, section.size())) return cut();
    const std::string_view page = part(section, map.length, size);
    if (crc16(kCrcStart, page) != bigEndian(section, map.length + size)) {
      return refusal(place + map.length, L"The checksum of AcDb:Handles is wrong");
    }
    if (!readPairs(page.substr(2), map.places)) {
      return refusal(place + map.length, L"AcDb:Handles is damaged");
    }
    map.length += size + 2U;
    if (size == 2) break;
  }
  const auto before = [](const ObjectPlace& a, const ObjectPlace& b) { return a.handle < b.handle; };
  if (!std::is_sorted(map.places.begin(), map.places.end(), before)) {
    std::stable_sort(map.places.begin(), map.places.end(), before);
  }
  const auto same = [](const ObjectPlace& a, const ObjectPlace& b) { return a.handle == b.handle; };
  if (map.places.empty()) return refusal(place, L"AcDb:Handles names no object");
  if (map.places.front().handle == 0) return refusal(place, L"AcDb:Handles names an object of the handle 0");
  const auto twice = std::adjacent_find(map.places.begin(), map.places.end(), same);
  if (twice != map.places.end())
    return refusal(place, L"AcDb:Handles names the object " + handleText(twice->handle) + L" twice");
  return map;
}

void ObjectMapWriter::add(const ObjectPlace& place) {
  const std::size_t before = page_.size();
  appendBehindLast(place);
  if (2 + page_.size() > kMostOfPage) {
    page_.resize(before);
    close();
    appendBehindLast(place);
  }
  last_ = place;
  if (2 + page_.size() >= kFullPage) close();
}

void ObjectMapWriter::appendBehindLast(const ObjectPlace& place) {
  appendUmc(page_, place.handle - last_.handle);
  appendMc(page_, static_cast<std::int64_t>(place.offset - last_.offset));
}

void ObjectMapWriter::close() {
  std::string page;
  appendBigEndian(page, static_cast<std::uint16_t>(page_.size() + 2));
  page += page_;
  appendBigEndian(page, crc16(kCrcStart, page));
  map_ += page;
  page_.clear(), last_ = {};
}

std::string ObjectMapWriter::take() {
  if (!page_.empty()) close();
  close();
  return std::move(map_);
}

std::string writeObjectMap(std::span<const ObjectPlace> places) {
  ObjectMapWriter writer;
  for (const ObjectPlace& place : places) writer.add(place);
  return writer.take();
}

}  // namespace cad::dwg
