#include "embedded/dwg/files/object_changes.h"

#include <algorithm>
#include <numeric>

#include "embedded/drawing/handle_text.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/bits/modular_codes.h"
#include "embedded/dwg/files/object_map.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

constexpr std::size_t kLargestObject = (std::size_t{1} << 30) - 1;

using Number = std::uint32_t;

struct Change {
  Handle handle = 0;
  Number number = 0;
};

std::vector<Change> byHandle(const ObjectContents& contents) {
  std::vector<Change> changes;
  changes.reserve(contents.count());
  for (Number number = 0; number < contents.count(); ++number)
    changes.push_back({contents.handle(number), number});
  if (!std::ranges::is_sorted(changes, {}, &Change::handle)) std::ranges::sort(changes, {}, &Change::handle);
  return changes;
}

std::uint64_t endOf(const DwgFile& file, const ObjectPlace& place) {
  return place.offset + file.objectOf(place).whole.size();
}

// Which objects have bytes that are another's as well; `end`: where the last one ends.
std::vector<bool> shared(const DwgFile& file, std::uint64_t& end) {
  const std::span<const ObjectPlace> places = file.places();
  std::vector<Number> order(places.size());
  std::iota(order.begin(), order.end(), 0U);
  const auto offset = [&](Number place) { return places[place].offset; };
  if (!std::ranges::is_sorted(order, {}, offset)) std::ranges::sort(order, {}, offset);
  std::vector<bool> isShared(places.size());
  Number furthest = 0;
  end = 0;
  for (const Number place : order) {
    if (places[place].offset < end) isShared[place] = isShared[furthest] = true;
    if (const std::uint64_t own = endOf(file, places[place]); own > end) end = own, furthest = place;
  }
  return isShared;
}

base::Failure refused(Handle handle, const wchar_t* reason) {
  return {L"handle " + handleText(handle), reason};
}

// Null: the change can be made.
const wchar_t* misfit(bool isErased, bool isRepeated, bool isKnown) {
  if (isRepeated) return L"This handle cannot be written";
  return isErased && !isKnown ? L"The drawing has no such object" : nullptr;
}

bool fits(const ObjectBytes& object) {
  return !object.data.empty() && object.data.size() <= kLargestObject &&
         object.handleBits <= object.data.size() * 8;
}

}  // namespace

Handle ObjectContents::handle(std::uint32_t number) const {
  const std::size_t own = changes_.objects.size();
  return number < own ? changes_.objects[number].handle : changes_.handleOf(changes_.held[number - own]);
}

bool ObjectContents::isErased(std::uint32_t number) const {
  return number < changes_.objects.size() && changes_.objects[number].erased;
}

ObjectBytes ObjectContents::bytes(std::uint32_t number) const {
  const std::size_t own = changes_.objects.size();
  if (number >= own) return changes_.bytesOf(changes_.held[number - own], buffer_);
  const ChangedObject& object = changes_.objects[number];
  ObjectBytes bytes;
  bytes.data = object.data, bytes.handleBits = object.handleBits;
  return bytes;
}

// The bits in which the CRC in the file is another than that of its bytes. A damaged object is to be known as
// one although its links to others change; nothing else of it does, and those that are held are whole.
std::uint16_t ObjectContents::crcError(std::uint32_t number) const {
  if (number >= changes_.objects.size()) return 0;
  const ObjectPlace* const place = file_.find(handle(number));
  if (place == nullptr) return 0;
  const std::string_view whole = file_.objectOf(*place).whole;
  const std::size_t length = whole.size() - sizeof(std::uint16_t);
  return static_cast<std::uint16_t>(crc16(kCrcStart, whole.substr(0, length)) ^
                                    rawAt<std::uint16_t>(whole, length));
}

std::string_view ObjectContents::whole(std::uint32_t number) const {
  if (isErased(number)) return {};
  const ObjectBytes object = bytes(number);
  if (!fits(object)) {
    status_ = refused(handle(number), L"The object is too large or empty");
    return {};
  }
  whole_.clear();
  appendMs(whole_, static_cast<std::uint32_t>(object.data.size()));
  if (file_.version() >= Version::kR2010) appendUmc(whole_, object.handleBits);
  whole_ += object.data;
  appendRaw(whole_, static_cast<std::uint16_t>(crc16(kCrcStart, whole_) ^ crcError(number)));
  return whole_;
}

base::Result<ObjectChanges> ObjectChanges::plan(const DwgFile& file, const ObjectContents& contents,
                                                Splices& splices) {
  ObjectChanges plan;
  if (contents.count() == 0) return plan;
  const std::vector<bool> isShared = shared(file, plan.end_);
  const std::span<const ObjectPlace> places = file.places();
  splices.reserve(contents.count());
  std::string appended;
  std::size_t at = 0;
  Handle last = 0;
  for (const auto& [handle, number] : byHandle(contents)) {
    while (at < places.size() && places[at].handle < handle) ++at;
    const bool isKnown = at < places.size() && places[at].handle == handle;
    const bool isErased = contents.isErased(number), inPlace = isKnown && !isShared[at];
    if (const wchar_t* wrong = misfit(isErased, handle == last, isKnown)) return refused(handle, wrong);
    last = handle;
    if (!isKnown) plan.largestAdded_ = handle;
    if (isKnown && (isErased || !inPlace)) plan.gone_.push_back(handle);
    if (inPlace) {
      const std::uint64_t begin = places[at].offset;
      splices.add(begin, endOf(file, places[at]) - begin, number);
    } else if (!isErased) {
      plan.appended_.push_back({handle, appended.size()});
      appended += contents.whole(number);
    }
  }
  if (!contents.status()) return contents.status().failure();
  if (!appended.empty()) splices.add(plan.end_, 0, std::move(appended));
  return plan;
}

std::string ObjectChanges::map(std::span<const ObjectPlace> old, const Splices& splices) const {
  ObjectMapWriter writer;
  const std::uint64_t begin = appended_.empty() ? 0 : splices.inserted(end_);
  auto gone = gone_.begin();
  auto added = appended_.begin();
  const auto addUpTo = [&](Handle handle) {
    for (; added != appended_.end() && added->handle < handle; ++added)
      writer.add({added->handle, begin + added->offset});
  };
  std::size_t near = 0;
  for (const ObjectPlace& place : old) {
    addUpTo(place.handle);
    if (gone != gone_.end() && *gone == place.handle) {
      ++gone;
    } else {
      writer.add({place.handle, splices.moved(place.offset, near)});
    }
    addUpTo(place.handle + 1);
  }
  addUpTo(~Handle{0});
  return writer.take();
}

}  // namespace cad::dwg
