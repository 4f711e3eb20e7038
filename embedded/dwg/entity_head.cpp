#include "embedded/dwg/entity_head.h"

#include <algorithm>

namespace cad::dwg {
namespace {

constexpr std::int64_t kNamedByHandle = 3;  // of the flags for linetype, plot style, material

std::uint32_t position(const BitReader& reader) { return static_cast<std::uint32_t>(reader.position()); }

template <class Read>
auto at(BitSpan& span, const BitReader& reader, const Read& read) {
  span.begin = position(reader);
  const auto value = read();
  span.end = position(reader);
  return value;
}

Handle ownStyle(const ObjectFrame& frame) { return readFields(frame).handle("style").value_or(0); }

// Reads straight off the bits what describeEntity() describes.
class HeadReader {
 public:
  HeadReader(const ObjectFrame& frame, EntityHead& head)
      : frame_(frame),
        head_(head),
        data_(frame.data, frame.extendedEnd, frame.dataEnd),
        handles_(frame.data, frame.handleBegin, frame.handleEnd) {}

  // False: the entity does not hold together.
  bool read() {
    skipGraphics();
    readSize();
    const unsigned mode = data_.bb();
    head_.mode = static_cast<EntityMode>(std::min(mode, 2U));
    const std::int32_t reactors = data_.bl();
    if (reactors < 0 || static_cast<std::uint64_t>(reactors) > handles_.left() / 8) return false;
    const bool byLayer = !since(Version::kR2000) && data_.b();
    const bool hasDictionary = !since(Version::kR2004) || !data_.b();
    const bool hasLinks = !since(Version::kR2004) && !data_.b();
    if (since(Version::kR2013)) data_.b();
    const bool hasColorReference = readColor();
    head_.linetypeScale = at(head_.scaleAt, data_, [this] { return data_.bd(); });
    readFlags(byLayer);

    if (mode == 0) head_.owner = reference();
    for (std::int32_t i = 0; i < reactors; ++i) handles_.h();
    if (hasDictionary) handles_.h();
    if (!since(Version::kR2000)) readLayer();
    head_.next = !since(Version::kR2004) ? frame_.handle + 1 : 0;
    if (hasLinks) reference(), head_.next = reference();
    if (hasColorReference) handles_.h();
    if (since(Version::kR2000)) readLayer();
    for (unsigned i = 0; i < otherReferences_; ++i) handles_.h();
    head_.dataEnd = position(data_), head_.handlesEnd = position(handles_);
    if (hasTextStyle(frame_.type.kind)) readStyle();
    return head_.intact = !data_.failed() && !handles_.failed();
  }

 private:
  bool since(Version version) const { return frame_.version >= version; }
  Handle reference() { return handles_.h().absolute(frame_.handle); }

  void skipGraphics() {
    if (!data_.b()) return;
    const std::uint64_t size = since(Version::kR2010) ? data_.bll() : data_.rl();
    data_.skip(std::min(size, std::uint64_t{frame_.data.size()} + 1) * 8);
  }

  void readSize() {
    constexpr std::uint32_t kBits = 32;
    if (since(Version::kR2010)) return;
    const std::uint32_t begin = since(Version::kR2000) ? frame_.typeEnd : position(data_);
    head_.sizeAt = {begin, begin + kBits};
    if (!since(Version::kR2000)) data_.skip(kBits);
  }

  bool readColor() {
    const std::int16_t raw = at(head_.colorAt, data_, [this] { return data_.bs(); });
    const unsigned marks = since(Version::kR2004) ? static_cast<std::uint16_t>(raw) & ~kColorNumber : 0;
    head_.plainColor = marks == 0;
    head_.color = raw;
    if ((marks & ColorMark::kRgb) != 0 && (marks & ColorMark::kReference) == 0) data_.bl();
    if ((marks & ColorMark::kTransparency) != 0) data_.bl();
    return (marks & ColorMark::kReference) != 0;
  }

  void readFlags(bool byLayer) {
    head_.linetypeFlagsAt.begin = position(data_);
    const unsigned linetype = since(Version::kR2000) ? data_.bb() : byLayer ? 0 : kNamedByHandle;
    head_.linetypeFlagsAt.end = position(data_);
    head_.linetypeKind = static_cast<LinetypeKind>(linetype);
    const unsigned plotStyle = since(Version::kR2000) ? data_.bb() : 0;
    const unsigned material = since(Version::kR2007) ? data_.bb() : 0;
    otherReferences_ = (plotStyle == kNamedByHandle) + (material == kNamedByHandle);
    if (since(Version::kR2007)) data_.rc();
    for (int i = 0; since(Version::kR2010) && i < 3; ++i) otherReferences_ += data_.b();  // visual styles
    head_.invisible = at(head_.invisibleAt, data_, [this] { return data_.bs(); });
    if (since(Version::kR2000))
      head_.lineWeight = at(head_.lineWeightAt, data_, [this] { return data_.rc(); });
  }

  void readLayer() {
    head_.layerReference = at(head_.layerAt, handles_, [this] { return handles_.h(); });
    head_.layer = head_.layerReference.absolute(frame_.handle);
    const auto linetype = [this] {
      return head_.linetypeKind == LinetypeKind::kNamed ? handles_.h() : HandleReference();
    };
    head_.linetypeReference = at(head_.linetypeAt, handles_, linetype);
    if (head_.linetypeKind == LinetypeKind::kNamed)
      head_.linetype = head_.linetypeReference.absolute(frame_.handle);
  }

  // One that is missing fails nothing: it is the class's own. Attributes may have a text of several lines
  // since R2018, whose references come first.
  void readStyle() {
    const bool isAttribute =
        frame_.type.kind == ObjectKind::kAttrib || frame_.type.kind == ObjectKind::kAttdef;
    if (isAttribute && since(Version::kR2018)) {
      head_.style = ownStyle(frame_);
      return;
    }
    BitReader own = handles_;
    const HandleReference style = own.h();
    head_.style = own.failed() ? 0 : style.absolute(frame_.handle);
  }

  const ObjectFrame& frame_;
  EntityHead& head_;
  BitReader data_, handles_;
  unsigned otherReferences_ = 0;
};

// Of a damaged entity: what there is before it ends.
EntityHead headOf(const ObjectFrame& frame, const Fields& fields) {
  EntityHead head;
  head.mode = static_cast<EntityMode>(std::min<std::int64_t>(fields.integer("entity mode"), 2));
  head.linetypeKind = linetypeKindOf(fields);
  head.owner = fields.handle("owner").value_or(0);
  head.next = fields.integer("no links") != 0 ? frame.handle + 1 : fields.handle("next").value_or(0);
  head.layer = fields.handle("layer").value_or(0);
  head.linetype = fields.handle("linetype").value_or(0);
  if (hasTextStyle(frame.type.kind)) head.style = ownStyle(frame);
  return head;
}

}  // namespace

LinetypeKind linetypeKindOf(const Fields& entity) {
  if (entity.find("linetype flags") != nullptr)
    return static_cast<LinetypeKind>(entity.integer("linetype flags") & 3);
  return entity.integer("linetype by layer", 1) != 0 ? LinetypeKind::kByLayer : LinetypeKind::kNamed;
}

std::string_view linetypeName(LinetypeKind kind) {
  constexpr std::string_view kNames[] = {"ByLayer", "ByBlock", "Continuous", "ByLayer"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool hasTextStyle(ObjectKind kind) {
  return kind == ObjectKind::kText || kind == ObjectKind::kMtext || kind == ObjectKind::kAttdef ||
         kind == ObjectKind::kAttrib;
}

std::optional<HandleReference> ownReference(const ObjectFrame& frame, const EntityHead& head,
                                            std::string_view field) {
  const ObjectKind kind = frame.type.kind;
  const bool isDimension = kind >= ObjectKind::kDimensionOrdinate && kind <= ObjectKind::kDimensionDiameter;
  const bool isInsert = kind == ObjectKind::kInsert || kind == ObjectKind::kMinsert;
  const bool isStyle = isDimension && field == "dimension style";
  if (!isStyle && !((isInsert || isDimension) && field == "block")) return std::nullopt;
  BitReader references(frame.data, head.handlesEnd, frame.handleEnd);
  if (isDimension && !isStyle) references.h();
  const HandleReference reference = references.h();
  return references.failed() ? std::nullopt : std::optional(reference);
}

EntityHead readEntityHead(const ObjectFrame& frame) {
  EntityHead head;
  const bool isRead = HeadReader(frame, head).read();
  if (isRead && head.plainColor) return head;
  const Fields fields = readCommonFields(frame);
  if (!isRead) head = headOf(frame, fields);
  head.color = fields.color("color").number;
  return head;
}

}  // namespace cad::dwg
