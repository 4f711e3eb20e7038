#include "embedded/dwg/entity_changes.h"

#include <algorithm>
#include <array>
#include <span>

#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/fields/field_codec.h"
#include "embedded/dwg/fields/field_finder.h"

namespace cad::dwg {
namespace {

constexpr std::uint8_t kPointing = 5, kLastAbsolute = 5;

class EntitySplicer {
 public:
  EntitySplicer(const ObjectFrame& frame, const EntityHead& head, const FieldChanges& changes)
      : frame_(frame), head_(head), changes_(changes) {}

  bool take() {
    if (changes_.extendedData() != nullptr) return false;
    for (const auto& [key, value] : changes_.values())
      if (!takeValue(key, value)) return false;
    for (const auto& [key, color] : changes_.colors())
      if (!takeColor(key, color)) return false;
    return takeLinetype();
  }

  WrittenObject written() {
    if (head_.sizeAt.end != 0) addSize();
    std::ranges::sort(std::span(edits_).first(count_), {}, [](const Edit& edit) { return edit.at.begin; });
    BitWriter whole;
    whole.reserve(frame_.data.size() + kMostAdded);
    std::uint32_t at = 0;
    for (std::size_t i = 0; i < count_; ++i) {
      whole.copy(frame_.data, at, edits_[i].at.begin);
      whole.copy(bits_.bytes(), edits_[i].begin, edits_[i].end);
      at = edits_[i].at.end;
    }
    whole.copy(frame_.data, at, frame_.handleEnd);
    fillLastByte(whole);
    WrittenObject object;
    if (since(Version::kR2010))
      object.handleBits = whole.size() - static_cast<std::uint64_t>(frame_.handleBegin + dataGrows_);
    object.data = whole.take();
    return object;
  }

 private:
  struct Edit {
    BitSpan at;
    std::uint64_t begin = 0, end = 0;  // of what comes there, among bits_
  };
  static constexpr std::size_t kMostEdits = 9, kMostAdded = 64;

  bool since(Version version) const { return frame_.version >= version; }

  bool put(const BitSpan& at, BitType type, const Value& value) {
    if (count_ + 1 == kMostEdits) return false;  // one is kept for the size
    Edit& edit = edits_[count_++];
    edit = {at, bits_.size(), 0};
    if (!encodeField(bits_, {.name = {}, .type = type}, value, frame_.version)) return false;
    edit.end = bits_.size();
    if (type != BitType::kHandle)
      dataGrows_ += static_cast<std::int64_t>(edit.end - edit.begin) - (at.end - at.begin);
    return true;
  }

  bool takeValue(const FieldChanges::Key& key, const Value& value) {
    const auto& [name, index, part] = key;
    if (index != 0 || part != Part::kWhole) return false;
    if (name == "layer") return putReference(head_.layerAt, head_.layerReference, value);
    if (name == "linetype") return linetype_ = &value, true;
    if (name == "linetype flags" && since(Version::kR2000)) {
      const auto* flags = std::get_if<std::int64_t>(&value);
      if (flags == nullptr) return false;
      linetypeKind_ = static_cast<LinetypeKind>(*flags & 3);
      return put(head_.linetypeFlagsAt, BitType::kBB, value);
    }
    if (name == "linetype scale") return put(head_.scaleAt, BitType::kBD, value);
    if (name == "invisible") return put(head_.invisibleAt, BitType::kBS, value);
    if (name == "lineweight" && since(Version::kR2000)) return put(head_.lineWeightAt, BitType::kRC, value);
    return name == "height" && hasTextStyle(frame_.type.kind) && putHeight(value);
  }

  bool putHeight(const Value& value) {
    const auto field = findOwnField(frame_, head_.dataEnd, head_.handlesEnd, "height");
    if (!field || (field->type != BitType::kRD && field->type != BitType::kBD)) return false;
    return put({field->begin, field->end}, field->type, value);
  }

  bool takeColor(const FieldChanges::Key& key, const Color& color) {
    if (std::get<0>(key) != "color" || std::get<1>(key) != 0) return false;
    if (!head_.plainColor || color.rgb || color.reference) return false;
    const auto number = static_cast<std::int64_t>(color.number);
    return put(head_.colorAt, BitType::kBS, Value(since(Version::kR2004) ? number & kColorNumber : number));
  }

  bool putReference(const BitSpan& at, const HandleReference& present, const Value& value) {
    const auto* reference = std::get_if<HandleReference>(&value);
    if (reference == nullptr || reference->code != kAnyCode) return false;
    HandleReference changed{kPointing, 0, reference->value};
    if (at.begin != at.end) {
      if (present.absolute(frame_.handle) == reference->value) return true;
      if (present.code <= kLastAbsolute) changed.code = present.code;
    }
    return put(at, BitType::kHandle, Value(changed));
  }

  // The reference to a linetype is there only when the flags say so.
  bool takeLinetype() {
    const LinetypeKind kind = linetypeKind_.value_or(head_.linetypeKind);
    const bool isThere = head_.linetypeAt.begin != head_.linetypeAt.end;
    if (kind == LinetypeKind::kNamed) {
      if (linetype_ == nullptr) return isThere;
      return putReference(head_.linetypeAt, head_.linetypeReference, *linetype_);
    }
    if (linetype_ != nullptr) return false;
    if (!isThere) return true;
    edits_[count_++] = {head_.linetypeAt, 0, 0};
    return true;
  }

  void addSize() {
    edits_[count_++] = {head_.sizeAt, bits_.size(), bits_.size() + 32};
    bits_.rl(static_cast<std::uint32_t>(frame_.handleBegin + dataGrows_));
  }

  // As rewrite() does: as it was, or with ones.
  void fillLastByte(BitWriter& whole) const {
    const std::uint64_t missing = (8 - whole.size() % 8) % 8, end = frame_.data.size() * 8;
    if (end - frame_.handleEnd == missing) {
      whole.copy(frame_.data, frame_.handleEnd, end);
    } else {
      whole.bits(0xFF, static_cast<unsigned>(missing));
    }
  }

  const ObjectFrame& frame_;
  const EntityHead& head_;
  const FieldChanges& changes_;
  BitWriter bits_;
  std::array<Edit, kMostEdits> edits_;
  std::size_t count_ = 0;
  const Value* linetype_ = nullptr;
  std::optional<LinetypeKind> linetypeKind_;
  std::int64_t dataGrows_ = 0;  // bits
};

}  // namespace

std::optional<WrittenObject> changeEntity(const ObjectFrame& frame, const EntityHead& head,
                                          const FieldChanges& changes) {
  EntitySplicer splicer(frame, head, changes);
  if (!splicer.take()) return std::nullopt;
  return splicer.written();
}

}  // namespace cad::dwg
