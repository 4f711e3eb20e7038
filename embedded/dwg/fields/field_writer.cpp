#include "embedded/dwg/fields/field_writer.h"

#include "embedded/dwg/fields/field_codec.h"

namespace cad::dwg {
namespace {

constexpr std::uint8_t kSoftPointer = 4, kNext = 6, kBefore = 8, kPlus = 10, kMinus = 12;
constexpr std::uint8_t kLastAbsolute = 5;

// The coordinate of a point that a part stands for.
Value coordinate(const Value& value, Part part) {
  const auto* point = std::get_if<Point>(&value);
  if (point == nullptr) return value;
  if (part == Part::kX) return point->x;
  if (part == Part::kY) return point->y;
  return part == Part::kZ ? Value(point->z) : value;
}

bool isCoordinate(Part part) { return part == Part::kX || part == Part::kY || part == Part::kZ; }

bool isEmptyText(const Value& value) {
  const auto* text = std::get_if<std::u16string>(&value);
  return text != nullptr && text->empty();
}

}  // namespace

const Field* FieldWriter::sourceOf(std::string_view name, std::uint32_t index, Part part) const {
  if (source_ == nullptr) return nullptr;
  const std::vector<Field>& fields = source_->all();
  for (std::size_t step = 0; step < fields.size(); ++step) {
    const std::size_t at = (near_ + step) % fields.size();
    const Field& field = fields[at];
    if (field.index != index || field.part != part || field.name != name) continue;
    near_ = at + 1;
    return &field;
  }
  return nullptr;
}

bool FieldWriter::changes(std::string_view name, std::uint32_t own) const {
  const std::uint32_t index = indexOf(own);
  bool found = false;
  const auto& values = changes_.values();
  for (auto at = values.lower_bound({name, index, Part::kWhole}); at != values.end(); ++at) {
    if (std::get<0>(at->first) != name || std::get<1>(at->first) != index) break;
    used_.insert(at->first);
    found = true;
  }
  return found || changes_.findColor(name, index) != nullptr;
}

bool FieldWriter::changesPart(std::string_view name, Part part) const {
  return changes_.find(name, indexOf(0), part) != nullptr;
}

Value FieldWriter::wanted(std::string_view name, Value fallback, std::uint32_t own, Part part) const {
  const std::uint32_t index = indexOf(own);
  if (const Value* changed = changes_.find(name, index, part)) return use(name, index, part), *changed;
  if (isCoordinate(part)) {
    if (const Value* whole = changes_.find(name, index, Part::kWhole))
      return use(name, index, Part::kWhole), coordinate(*whole, part);
  }
  if (const Field* from = sourceOf(name, index, part)) return from->value;
  if (part != Part::kWhole || !std::holds_alternative<Point>(fallback)) return fallback;
  Point point = std::get<Point>(fallback);
  if (source_ != nullptr) point = source_->point(name, point, index);
  const auto take = [&](Part coordinatePart, double& coordinateValue) {
    const Value* changed = changes_.find(name, index, coordinatePart);
    if (changed != nullptr) coordinateValue = std::get<double>(*changed);
  };
  take(Part::kX, point.x), take(Part::kY, point.y), take(Part::kZ, point.z);
  return point;
}

bool FieldWriter::follows(std::string_view name, std::string_view first) const {
  if (!changes(first) || changes(name)) return false;
  const Field* was = sourceOf(first, indexOf(0), Part::kWhole);
  const Field* copy = sourceOf(name, indexOf(0), Part::kWhole);
  return was != nullptr && copy != nullptr && same(was->value, copy->value);
}

const Color* FieldWriter::wantedColor(std::string_view name, std::uint32_t own) const {
  const std::uint32_t index = indexOf(own);
  const Color* color = changes_.findColor(name, index);
  if (color != nullptr) use(name, index, Part::kWhole);
  return color;
}

void FieldWriter::sizeField() {
  if (before(Version::kR2000)) std::swap(beforeSize_, written(Stream::kData));
}

HandleReference FieldWriter::referenceTo(const FieldSpec& spec, const Field* from, Handle handle) const {
  std::uint8_t code = spec.code;
  if (from != nullptr) {
    const auto& old = std::get<HandleReference>(from->value);
    if (old.absolute(own_) == handle) return old;
    if (old.code <= kLastAbsolute && (spec.code != kNearCode || old.code != kSoftPointer)) code = old.code;
  }
  if (code != kNearCode) return {code, 0, handle};
  const Handle distance = handle > own_ ? handle - own_ : own_ - handle;
  if (handle == 0 || distance >= handle || distance == 0) return {kSoftPointer, 0, handle};
  if (distance == 1) return {handle > own_ ? kNext : kBefore, 0, 0};
  return {handle > own_ ? kPlus : kMinus, 0, distance};
}

Value FieldWriter::valueOf(const FieldSpec& spec, const Field* from) const {
  if (spec.derived) return spec.fallback;
  const Value* changed = changes_.find(spec.name, spec.index, spec.part);
  if (changed != nullptr) {
    use(spec.name, spec.index, spec.part);
    const auto* reference = std::get_if<HandleReference>(changed);
    if (reference == nullptr || reference->code != kAnyCode) return *changed;
    return referenceTo(spec, from, reference->value);
  }
  if (isCoordinate(spec.part)) {
    changed = changes_.find(spec.name, spec.index, Part::kWhole);
    if (changed != nullptr) return use(spec.name, spec.index, Part::kWhole), coordinate(*changed, spec.part);
  }
  if (from != nullptr) return from->value;
  if (spec.type == BitType::kBytes) return std::string(static_cast<std::size_t>(spec.size), '\0');
  if (spec.type != BitType::kHandle) return spec.fallback;
  return referenceTo(spec, nullptr, 0);
}

// Whether the source's bits mean what is wanted here.
bool FieldWriter::standsAsItIs(const FieldSpec& spec, const Field* from) const {
  if (from == nullptr || from->type != spec.type || from->begin == from->end) return false;
  if (spec.type == BitType::kBytes)
    return std::holds_alternative<std::monostate>(current_) && spec.size * 8 == from->end - from->begin;
  if (!same(from->value, current_)) return false;
  // Of a DD the bits hang from the value before it.
  return !moved_ || (spec.type != BitType::kDD && spec.type != BitType::k2DD && spec.type != BitType::k3DD);
}

BitWriter& FieldWriter::written(Stream stream) {
  const auto which = static_cast<std::size_t>(stream);
  Span& span = toCopy_[which];
  if (span.begin != span.end) writers_[which].copy(source_->data(), span.begin, span.end);
  span = {};
  return writers_[which];
}

void FieldWriter::copyLater(Stream stream, const Field& from) {
  Span& span = toCopy_[static_cast<std::size_t>(stream)];
  if (span.begin == span.end || span.end != from.begin) {
    written(stream);
    span.begin = from.begin;
  }
  span.end = from.end;
}

const Value& FieldWriter::visit(const FieldSpec& given) {
  FieldSpec spec = given;
  visited_ = spec.name;
  spec.index = indexOf(given.index);
  const Field* from = sourceOf(spec.name, spec.index, spec.part);
  current_ = valueOf(spec, from);
  const bool isMeasure = std::holds_alternative<double>(current_) || std::holds_alternative<Point>(current_);
  if (isMeasure && (from == nullptr || !same(from->value, current_))) moved_ = true;
  Stream stream = streamOf(spec.type, version());
  if (stream == Stream::kHandles && handlesInData_) stream = Stream::kData;
  if (stream == Stream::kText && !isEmptyText(current_)) hasTexts_ = true;
  if (standsAsItIs(spec, from)) {
    copyLater(stream, *from);
  } else if (spec.size != 0 || spec.type != BitType::kBytes) {
    if (!encodeField(written(stream), spec, current_, version())) unwritable_ = spec.name;
  }
  return current_;
}

std::string_view FieldWriter::misfit() const {
  if (!unwritable_.empty()) return unwritable_;
  if (changes_.leavesUnknown()) return {};
  for (const auto& [key, value] : changes_.values())
    if (!used_.contains(key)) return std::get<0>(key);
  for (const auto& [key, color] : changes_.colors())
    if (!used_.contains(key)) return std::get<0>(key);
  return {};
}

}  // namespace cad::dwg
