#include "embedded/dwg/entity_changes.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

constexpr std::uint8_t kPointing = 5, kLastAbsolute = 5;

class EntitySplicer {
 public:
  EntitySplicer(const ObjectFrame& frame, const EntityHead& head, const EntityValues& values)
      : frame_(frame), head_(head), values_(values) {
    if (values_.color && *values_.color != head_.color) bits_.bs(*values_.color), put(head_.colorAt);
    if (values_.linetypeScale && *values_.linetypeScale != head_.linetypeScale)
      bits_.bd(*values_.linetypeScale), put(head_.scaleAt);
    if (values_.linetypeKind) takeLinetype(*values_.linetypeKind);
    if (values_.invisible && *values_.invisible != head_.invisible)
      bits_.bs(*values_.invisible), put(head_.invisibleAt);
    if (values_.lineWeight && *values_.lineWeight != head_.lineWeight)
      bits_.rc(*values_.lineWeight), put(head_.lineWeightAt);
    if (values_.layer) takeReference(head_.layerAt, head_.layerReference, *values_.layer);
    if (values_.height) takeHeight(*values_.height);
  }

  WrittenObject written(std::string room) {
    const auto handleBegin = static_cast<std::uint64_t>(frame_.handleBegin + dataGrows_);
    if (head_.sizeAt.end != 0) edits_[count_++] = {head_.sizeAt};
    std::ranges::sort(std::span(edits_).first(count_), {}, [](const Edit& edit) { return edit.at.begin; });
    BitWriter whole(std::move(room));
    whole.reserve(frame_.data.size() + kMostAdded);
    std::uint32_t at = 0;
    for (std::size_t i = 0; i < count_; ++i) {
      whole.copy(frame_.data, at, edits_[i].at.begin);
      if (edits_[i].at == head_.sizeAt)
        whole.rl(static_cast<std::uint32_t>(handleBegin));
      else
        whole.copy(bits_, edits_[i].begin, edits_[i].end);
      at = edits_[i].at.end;
    }
    whole.copy(frame_.data, at, frame_.handleEnd);
    fillLastByte(whole);
    const std::uint64_t handleBits = since(Version::kR2010) ? whole.size() - handleBegin : 0;
    return {whole.take(), handleBits};
  }

 private:
  struct Edit {
    BitSpan at;
    std::uint64_t begin = 0, end = 0;  // of what comes there, among bits_
  };
  static constexpr std::size_t kMostEdits = EntityValues::kCount + 1;  // and the size
  static constexpr std::size_t kMostAdded = 64;

  bool since(Version version) const { return frame_.version >= version; }

  // What bits_ have since the last time comes there.
  void put(const BitSpan& at, bool isReference = false) {
    Edit& edit = edits_[count_++];
    edit = {at, used_, bits_.size()};
    used_ = bits_.size();
    if (!isReference) dataGrows_ += static_cast<std::int64_t>(edit.end - edit.begin) - (at.end - at.begin);
  }

  void takeHeight(const TextHeight& height) {
    BitReader present(frame_.data, height.at.begin, height.at.end);
    if ((height.isRaw ? present.rd() : present.bd()) == height.value) return;
    if (height.isRaw)
      bits_.rd(height.value);
    else
      bits_.bd(height.value);
    put(height.at);
  }

  void takeReference(const BitSpan& at, const HandleReference& present, Handle value) {
    const bool isThere = at.begin != at.end;
    if (isThere && present.absolute(frame_.handle) == value) return;
    const bool isAbsolute = isThere && present.code <= kLastAbsolute;
    bits_.h(isAbsolute ? present.code : kPointing, value);
    put(at, true);
  }

  // The reference to a linetype is there only when the flags say so.
  void takeLinetype(LinetypeKind kind) {
    if (kind != head_.linetypeKind) bits_.bb(static_cast<unsigned>(kind)), put(head_.linetypeFlagsAt);
    if (kind == LinetypeKind::kNamed) {
      takeReference(head_.linetypeAt, head_.linetypeReference, values_.linetype.value_or(0));
    } else if (head_.linetypeAt.begin != head_.linetypeAt.end) {
      put(head_.linetypeAt, true);
    }
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
  const EntityValues& values_;
  BitWriter bits_;  // all that is put in
  std::uint64_t used_ = 0;
  std::array<Edit, kMostEdits> edits_;
  std::size_t count_ = 0;
  std::int64_t dataGrows_ = 0;  // bits
};

}  // namespace

FieldChanges asFields(const EntityValues& values, Version version) {
  FieldChanges changes;
  if (values.layer) changes.setHandle("layer", *values.layer);
  if (values.linetypeKind && version >= Version::kR2000)
    changes.set("linetype flags", static_cast<int>(*values.linetypeKind));
  if (values.linetypeKind && version < Version::kR2000)
    changes.set("linetype by layer", values.linetypeKind == LinetypeKind::kByLayer);
  if (values.linetype) changes.setHandle("linetype", *values.linetype);
  if (values.color) changes.setColor("color", colorOf(*values.color));
  if (values.invisible) changes.set("invisible", *values.invisible);
  if (values.lineWeight) changes.set("lineweight", *values.lineWeight);
  if (values.linetypeScale) changes.set("linetype scale", *values.linetypeScale);
  if (values.height) changes.set("height", values.height->value);
  return changes;
}

bool fit(const EntityValues& values, Version version) {
  return version >= Version::kR2000 || (!values.linetypeKind && !values.lineWeight);
}

bool fit(const EntityValues& values, Version version, const EntityHead& head) {
  if (!head.intact || !fit(values, version)) return false;
  return !values.color || head.plainColor;
}

WrittenObject changeEntity(const ObjectFrame& frame, const EntityHead& head, const EntityValues& values,
                           std::string room) {
  return EntitySplicer(frame, head, values).written(std::move(room));
}

}  // namespace cad::dwg
