#include "embedded/dwg/fields/field.h"

#include <bit>

#include "embedded/drawing/color_codes.h"
#include "embedded/drawing/color_numbers.h"
#include "embedded/dwg/fields/extended_data.h"

namespace cad::dwg {
namespace {

bool sameNumber(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

template <class T>
const T* valueOf(const Field* field) {
  return field != nullptr ? std::get_if<T>(&field->value) : nullptr;
}

void takeRgb(std::int64_t stored, Color& color) {
  switch (colorCodeOf(stored)) {
    case ColorCode::kByLayer:
      color.number = 256;
      break;
    case ColorCode::kByBlock:
      color.number = 0;
      break;
    case ColorCode::kTrue:
      color.rgb = static_cast<std::int32_t>(stored & 0xFFFFFF);
      // Entities say the number, too; elsewhere it follows from the colour.
      if (color.number == 0) color.number = nearestColorNumber(static_cast<Rgb>(*color.rgb));
      break;
    case ColorCode::kNumber:
      color.number = static_cast<std::int16_t>(stored & 0xFF);
      break;
    case ColorCode::kNone:
      color.number = 257;
      break;
    default:
      break;
  }
}

}  // namespace

bool same(const Value& a, const Value& b) {
  if (a.index() != b.index()) return false;
  if (const auto* real = std::get_if<double>(&a)) return sameNumber(*real, std::get<double>(b));
  if (const auto* p = std::get_if<Point>(&a)) {
    const Point& q = std::get<Point>(b);
    return sameNumber(p->x, q.x) && sameNumber(p->y, q.y) && sameNumber(p->z, q.z);
  }
  return std::visit(
      [&b](const auto& held) {
        using T = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<T, Point>) {
          return false;
        } else {
          return held == std::get<T>(b);
        }
      },
      a);
}

bool Color::operator==(const Color& other) const {
  return number == other.number && rgb == other.rgb && reference == other.reference &&
         same(name, other.name) && same(book, other.book);
}

const Field* Fields::find(std::string_view name, std::uint32_t index, Part part) const {
  for (const Field& field : fields_)
    if (field.index == index && field.part == part && field.name == name) return &field;
  return nullptr;
}

std::uint32_t Fields::count(std::string_view name) const {
  std::uint32_t count = 0;
  for (const Field& field : fields_)
    if (field.name == name && field.index >= count && field.index < kWithin) count = field.index + 1;
  return count;
}

std::int64_t Fields::integer(std::string_view name, std::int64_t fallback, std::uint32_t index) const {
  const auto* value = valueOf<std::int64_t>(find(name, index));
  return value != nullptr ? *value : fallback;
}

double Fields::real(std::string_view name, double fallback, std::uint32_t index) const {
  const auto* value = valueOf<double>(find(name, index));
  return value != nullptr ? *value : fallback;
}

Point Fields::point(std::string_view name, const Point& fallback, std::uint32_t index) const {
  Point point = fallback;
  for (const Field& field : fields_) {
    if (field.index != index || field.name != name) continue;
    if (const auto* whole = std::get_if<Point>(&field.value)) return *whole;
    const auto* value = std::get_if<double>(&field.value);
    if (value == nullptr) continue;
    if (field.part == Part::kX) point.x = *value;
    if (field.part == Part::kY) point.y = *value;
    if (field.part == Part::kZ) point.z = *value;
  }
  return point;
}

std::optional<Handle> Fields::handle(std::string_view name, std::uint32_t index) const {
  const auto* value = valueOf<HandleReference>(find(name, index));
  if (value == nullptr) return std::nullopt;
  return value->absolute(own_);
}

std::string_view Fields::narrow(std::string_view name, std::uint32_t index) const {
  const auto* value = valueOf<std::string>(find(name, index));
  return value != nullptr ? std::string_view(*value) : std::string_view();
}

std::u16string_view Fields::wide(std::string_view name, std::uint32_t index) const {
  const auto* value = valueOf<std::u16string>(find(name, index));
  return value != nullptr ? std::u16string_view(*value) : std::u16string_view();
}

std::string Fields::bytes(const Field& field) const {
  BitReader reader(data_, field.begin, field.end);
  std::string bytes;
  bytes.reserve((field.end - field.begin + 7) / 8);
  for (; reader.left() >= 8;) bytes += static_cast<char>(reader.rc());
  if (const auto rest = static_cast<unsigned>(reader.left()); rest > 0)
    bytes += static_cast<char>(reader.bits(rest) << (8 - rest));
  return bytes;
}

Color Fields::color(std::string_view name, std::uint32_t index) const {
  Color color;
  for (const Field& field : fields_) {
    if (field.index != index || field.name != name) continue;
    const auto* number = std::get_if<std::int64_t>(&field.value);
    if (field.part == Part::kWhole && number != nullptr) {
      color.number = static_cast<std::int16_t>(version_ >= Version::kR2004 ? *number & 0x1FF : *number);
    } else if (field.part == Part::kRgb && number != nullptr) {
      takeRgb(*number, color);
    } else if (field.part == Part::kReference) {
      color.reference = std::get<HandleReference>(field.value).absolute(own_);
    } else if (field.part == Part::kColorName) {
      color.name = field.value;
    } else if (field.part == Part::kBookName) {
      color.book = field.value;
    }
  }
  return color;
}

void FieldChanges::set(std::string_view name, Value value, std::uint32_t index, Part part) {
  values_.insert_or_assign({name, index, part}, std::move(value));
}

void FieldChanges::setHandle(std::string_view name, Handle value, std::uint32_t index) {
  set(name, Value(HandleReference{kAnyCode, 0, value}), index);
}

void FieldChanges::setColor(std::string_view name, const Color& color, std::uint32_t index) {
  colors_.insert_or_assign({name, index, Part::kWhole}, color);
}

void FieldChanges::setExtendedData(std::vector<ExtendedData> data) {
  extended_ = std::make_shared<const std::vector<ExtendedData>>(std::move(data));
}

const Value* FieldChanges::find(std::string_view name, std::uint32_t index, Part part) const {
  const auto found = values_.find({name, index, part});
  return found != values_.end() ? &found->second : nullptr;
}

const Color* FieldChanges::findColor(std::string_view name, std::uint32_t index) const {
  const auto found = colors_.find({name, index, Part::kWhole});
  return found != colors_.end() ? &found->second : nullptr;
}

const std::vector<ExtendedData>* FieldChanges::extendedData() const { return extended_.get(); }

}  // namespace cad::dwg
