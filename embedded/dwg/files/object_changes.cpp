#include "embedded/dwg/files/object_changes.h"

#include <algorithm>

#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

constexpr std::size_t kLargestObject = (std::size_t{1} << 30) - 1;

struct Extent {
  std::uint64_t begin = 0, end = 0;
  Handle handle = 0;
  bool isShared = false;  // its bytes, or some of them, are another's as well
};

std::vector<Extent> extents(const DwgFile& file) {
  std::vector<Extent> all;
  all.reserve(file.places().size());
  for (const ObjectPlace& place : file.places()) {
    const auto object = file.objectAt(place.offset);
    if (object) all.push_back({place.offset, place.offset + object.value().whole.size(), place.handle});
  }
  std::sort(all.begin(), all.end(), [](const Extent& a, const Extent& b) { return a.begin < b.begin; });
  Extent* furthest = nullptr;
  for (Extent& extent : all) {
    if (furthest != nullptr && extent.begin < furthest->end) extent.isShared = furthest->isShared = true;
    if (furthest == nullptr || extent.end > furthest->end) furthest = &extent;
  }
  return all;
}

std::wstring hexText(Handle handle) {
  std::wstring text;
  do {
    text.insert(text.begin(), L"0123456789ABCDEF"[handle & 15]);
  } while ((handle >>= 4) != 0);
  return text;
}

base::Failure refused(const ChangedObject& change, const wchar_t* reason) {
  return {L"handle " + hexText(change.handle), reason};
}

base::Status check(const DwgFile& file, const std::vector<const ChangedObject*>& changes) {
  Handle last = 0;
  for (const ChangedObject* change : changes) {
    const bool isKnown = file.find(change->handle) != nullptr;
    if (change->handle == last) return refused(*change, L"This handle cannot be written");
    if (change->erased && !isKnown) return refused(*change, L"The drawing has no such object");
    if (!change->erased && (change->data.empty() || change->data.size() > kLargestObject ||
                            change->handleBits > change->data.size() * 8)) {
      return refused(*change, L"The object is too large or empty");
    }
    last = change->handle;
  }
  return {};
}

}  // namespace

std::string wholeObject(const ChangedObject& object, Version version) {
  BitWriter writer;
  writer.ms(static_cast<std::uint32_t>(object.data.size()));
  if (version >= Version::kR2010) writer.umc(object.handleBits);
  std::string whole = writer.take() + object.data;
  appendRaw(whole, crc16(kCrcStart, whole));
  return whole;
}

base::Result<ObjectChanges> ObjectChanges::plan(const DwgFile& file, std::span<const ChangedObject> changes,
                                                Splices& splices) {
  ObjectChanges plan;
  if (changes.empty()) return plan;
  std::vector<const ChangedObject*> byHandle;
  for (const ChangedObject& change : changes) byHandle.push_back(&change);
  std::sort(byHandle.begin(), byHandle.end(),
            [](const ChangedObject* a, const ChangedObject* b) { return a->handle < b->handle; });
  if (auto checked = check(file, byHandle); !checked) return checked.failure();

  std::vector<Extent> all = extents(file);
  for (const Extent& extent : all) plan.end_ = std::max(plan.end_, extent.end);
  std::sort(all.begin(), all.end(), [](const Extent& a, const Extent& b) { return a.handle < b.handle; });
  std::string appended;
  for (const ChangedObject* change : byHandle) {
    const auto extent = std::lower_bound(all.begin(), all.end(), change->handle,
                                         [](const Extent& e, Handle handle) { return e.handle < handle; });
    const bool isKnown = extent != all.end() && extent->handle == change->handle;
    const bool inPlace = isKnown && !extent->isShared;
    if (!isKnown) plan.largestAdded_ = change->handle;
    if (isKnown && (change->erased || !inPlace)) plan.gone_.push_back(change->handle);
    if (inPlace) {
      splices.add(extent->begin, extent->end - extent->begin,
                  change->erased ? std::string() : wholeObject(*change, file.version()));
    } else if (!change->erased) {
      plan.appended_.push_back({change->handle, appended.size()});
      appended += wholeObject(*change, file.version());
    }
  }
  if (!appended.empty()) splices.add(plan.end_, 0, std::move(appended));
  return plan;
}

std::vector<ObjectPlace> ObjectChanges::places(std::span<const ObjectPlace> old,
                                               const Splices& splices) const {
  std::vector<ObjectPlace> places;
  places.reserve(old.size() + appended_.size());
  auto gone = gone_.begin();
  for (const ObjectPlace& place : old) {
    if (gone != gone_.end() && *gone == place.handle) {
      ++gone;
    } else {
      places.push_back({place.handle, splices.moved(place.offset)});
    }
  }
  if (appended_.empty()) return places;
  const auto kept = static_cast<std::ptrdiff_t>(places.size());
  const std::uint64_t begin = splices.inserted(end_);
  for (const Appended& object : appended_) places.push_back({object.handle, begin + object.offset});
  std::inplace_merge(places.begin(), places.begin() + kept, places.end(),
                     [](const ObjectPlace& a, const ObjectPlace& b) { return a.handle < b.handle; });
  return places;
}

}  // namespace cad::dwg
