#include "embedded/dwg/state_store.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace cad::dwg {
namespace {

constexpr std::uint64_t kDeepest = 8;
constexpr std::size_t kLongestNumber = 10;
// A state's number is that of its chunk and the place in it; what is longer than a chunk has one of its own.
constexpr unsigned kPlaceBits = 16;
constexpr std::size_t kChunk = std::size_t{1} << kPlaceBits, kMostChunks = kChunk;
static_assert(kNoEdit == 0 && sizeof(EditId) == 4);
static_assert(EntityValues::kCount <= 8, "each has a bit of one byte");

// Seven bits in a byte, the lowest first.
void put(char*& at, std::uint64_t value) {
  for (; value > 0x7F; value >>= 7) *at++ = static_cast<char>((value & 0x7F) | 0x80);
  *at++ = static_cast<char>(value);
}

std::uint64_t take(const char*& at) {
  std::uint64_t value = 0;
  for (unsigned shift = 0;; shift += 7) {
    const auto byte = static_cast<std::uint8_t>(*at++);
    value |= std::uint64_t{byte & 0x7FU} << shift;
    if (byte <= 0x7F) return value;
  }
}

}  // namespace

bool StateStore::isLast(EditId state) const {
  return state != kNoEdit && difference(state).depth == kDeepest;
}

EditId StateStore::add(EditId from, std::string_view present, std::string_view data,
                       std::uint64_t handleBits) {
  const std::uint64_t depth = from == kNoEdit ? 1 : difference(from).depth + 1;
  const std::size_t most = std::min(present.size(), data.size());
  const auto begin = static_cast<std::size_t>(
      std::mismatch(present.begin(), present.begin() + static_cast<std::ptrdiff_t>(most), data.begin())
          .first -
      present.begin());
  std::size_t same = 0;  // at the end
  while (same < most - begin && present[present.size() - 1 - same] == data[data.size() - 1 - same]) ++same;
  const std::string_view bytes = data.substr(begin, data.size() - same - begin);

  char head[6 * kLongestNumber];
  char* end = head;
  for (const std::uint64_t number :
       {std::uint64_t{from}, depth, handleBits, std::uint64_t{begin},
        std::uint64_t{present.size() - same - begin}, std::uint64_t{bytes.size()}})
    put(end, number);
  const auto length = static_cast<std::size_t>(end - head);
  const EditId state = room(length + bytes.size());
  char* const place = at(state);
  std::memcpy(place, head, length);
  if (!bytes.empty()) std::memcpy(place + length, bytes.data(), bytes.size());
  return state;
}

EditId StateStore::add(const ValueState& state) {
  char bytes[2 * kLongestNumber + 1 + sizeof(EntityValues)];
  char* end = bytes;
  put(end, state.base), put(end, 0);
  char& marks = *end++;
  unsigned known = 0, mark = 1;
  const auto putEach = [&](const auto& value) {
    if (value) {
      known |= mark;
      std::memcpy(end, &*value, sizeof *value), end += sizeof *value;
    }
    mark <<= 1;
  };
  std::apply([&](const auto&... values) { (putEach(values), ...); }, EntityValues::all(state.values));
  marks = static_cast<char>(known);
  const auto length = static_cast<std::size_t>(end - bytes);
  const EditId number = room(length);
  std::memcpy(at(number), bytes, length);
  return number;
}

ValueState StateStore::values(EditId state) const {
  ValueState found;
  found.base = state;
  if (state == kNoEdit) return found;
  const char* at = this->at(state);
  const auto base = static_cast<EditId>(take(at));
  if (take(at) != 0) return found;
  found.base = base;
  unsigned known = static_cast<std::uint8_t>(*at++);
  const auto takeEach = [&](auto& value) {
    if ((known & 1) != 0) {
      value.emplace();
      std::memcpy(&*value, at, sizeof *value), at += sizeof *value;
    }
    known >>= 1;
  };
  std::apply([&](auto&... values) { (takeEach(values), ...); }, EntityValues::all(found.values));
  return found;
}

EditId StateStore::base(EditId state) const {
  if (state == kNoEdit) return kNoEdit;
  const char* at = this->at(state);
  const auto base = static_cast<EditId>(take(at));
  return take(at) == 0 ? base : state;
}

char* StateStore::at(EditId state) const { return chunks_[state >> kPlaceBits].get() + state % kChunk; }

EditId StateStore::room(std::size_t bytes) {
  if (chunks_.empty() || size_ - used_ < bytes) {
    if (chunks_.size() == kMostChunks) throw std::bad_alloc();
    used_ = chunks_.empty() ? 1 : 0;  // no state has the number kNoEdit
    size_ = std::max(kChunk, used_ + bytes);
    chunks_.push_back(std::make_unique_for_overwrite<char[]>(size_));
  }
  const auto state = static_cast<EditId>((chunks_.size() - 1) << kPlaceBits | used_);
  used_ += bytes;
  return state;
}

StateStore::Difference StateStore::difference(EditId state) const {
  const char* at = this->at(state);
  Difference difference;
  difference.from = static_cast<EditId>(take(at));
  difference.depth = take(at);
  difference.handleBits = take(at);
  difference.begin = take(at), difference.removed = take(at);
  const std::uint64_t size = take(at);
  difference.bytes = {at, static_cast<std::size_t>(size)};
  return difference;
}

ObjectBytes StateStore::object(EditId state, std::string_view original, std::string& buffer) const {
  std::array<Difference, kDeepest> chain;
  std::size_t count = 0;
  for (; state != kNoEdit; state = chain[count - 1].from) chain[count++] = difference(state);
  buffer.assign(original);
  for (std::size_t i = count; i-- > 0;)
    buffer.replace(static_cast<std::size_t>(chain[i].begin), static_cast<std::size_t>(chain[i].removed),
                   chain[i].bytes);
  ObjectBytes object;
  object.data = buffer;
  object.handleBits = chain[0].handleBits;
  return object;
}

}  // namespace cad::dwg
