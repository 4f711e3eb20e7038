#include "embedded/dwg/fields/field_visitor.h"

#include <algorithm>

#include "embedded/drawing/color_codes.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kHasName = 1, kHasBook = 2;

std::int64_t rgbOf(const Color& color) {
  if (color.rgb) return packedColor(ColorCode::kTrue, *color.rgb);
  switch (color.number) {
    case 256:
      return packedColor(ColorCode::kByLayer);
    case 0:
      return packedColor(ColorCode::kByBlock);
    case 257:
      return packedColor(ColorCode::kNone);
    default:
      return packedColor(ColorCode::kNumber, color.number & 0xFF);
  }
}

template <class T>
T get(const Value& value) {
  const T* held = std::get_if<T>(&value);
  return held != nullptr ? *held : T{};
}

bool isEmpty(const Value& text) {
  if (const auto* narrow = std::get_if<std::string>(&text)) return narrow->empty();
  if (const auto* wide = std::get_if<std::u16string>(&text)) return wide->empty();
  return true;
}

}  // namespace

std::int64_t FieldVisitor::integer(BitType type, std::string_view name, std::int64_t fallback,
                                   std::uint32_t index) {
  return get<std::int64_t>(visit({.name = name, .type = type, .index = index, .fallback = fallback}));
}

std::int64_t FieldVisitor::derived(BitType type, std::string_view name, std::int64_t value,
                                   std::uint32_t index, Part part) {
  return get<std::int64_t>(
      visit({.name = name, .type = type, .part = part, .index = index, .fallback = value, .derived = true}));
}

double FieldVisitor::real(BitType type, std::string_view name, double fallback, std::uint32_t index,
                          Part part, double base) {
  return get<double>(visit({.name = name,
                            .type = type,
                            .part = part,
                            .index = index,
                            .fallback = fallback,
                            .base = {base, 0, 0}}));
}

Point FieldVisitor::point(BitType type, std::string_view name, const Point& fallback, std::uint32_t index,
                          const Point& base) {
  return get<Point>(visit({.name = name, .type = type, .index = index, .fallback = fallback, .base = base}));
}

void FieldVisitor::text(std::string_view name, std::uint32_t index) {
  Value none = std::string();
  if (hasWideTexts(version_)) none = std::u16string();
  visit({.name = name, .type = BitType::kText, .index = index, .fallback = std::move(none)});
}

void FieldVisitor::handle(std::string_view name, std::uint8_t code, std::uint32_t index) {
  visit({.name = name,
         .type = BitType::kHandle,
         .index = index,
         .fallback = HandleReference{code, 0, 0},
         .code = code});
}

void FieldVisitor::bytes(std::string_view name, std::uint64_t size, std::uint32_t index) {
  visit({.name = name, .type = BitType::kBytes, .index = index, .fallback = std::string(), .size = size});
}

void FieldVisitor::date(std::string_view name) {
  visit({.name = name, .type = BitType::kDate, .fallback = Date{}});
}

void FieldVisitor::color(std::string_view name, std::uint32_t index) {
  const Color* wish = wantedColor(name, index);
  if (before(Version::kR2004)) {
    const std::int64_t number = get<std::int64_t>(wanted(name, std::int64_t{256}, index));
    derived(BitType::kBS, name, wish != nullptr ? wish->number : number, index);
    return;
  }
  const auto part = [&](Part which, std::int64_t fallback) {
    return get<std::int64_t>(wanted(name, fallback, index, which));
  };
  std::int64_t marks = part(Part::kMarks, 0);
  if (wish != nullptr) {
    marks = (isEmpty(wish->name) ? 0 : kHasName) | (isEmpty(wish->book) ? 0 : kHasBook);
  }
  derived(BitType::kBS, name, wish != nullptr ? 0 : part(Part::kWhole, 0), index);
  derived(BitType::kBL, name, wish != nullptr ? rgbOf(*wish) : part(Part::kRgb, rgbOf({})), index,
          Part::kRgb);
  marks = derived(BitType::kRC, name, marks, index, Part::kMarks);
  const auto named = [&](std::int64_t mark, Part which, const Value* wishText) {
    if ((marks & mark) == 0) return;
    FieldSpec spec{.name = name, .type = BitType::kText, .part = which, .index = index};
    if (wishText != nullptr) spec.fallback = *wishText, spec.derived = true;
    visit(spec);
  };
  named(kHasName, Part::kColorName, wish != nullptr ? &wish->name : nullptr);
  named(kHasBook, Part::kBookName, wish != nullptr ? &wish->book : nullptr);
}

bool FieldVisitor::entityColor() {
  constexpr std::string_view name = "color";
  const Color* wish = wantedColor(name, 0);
  std::int64_t raw = get<std::int64_t>(wanted(name, std::int64_t{256}));
  if (before(Version::kR2004)) {
    derived(BitType::kBS, name, wish != nullptr ? wish->number : raw);
    return false;
  }
  raw &= 0xFFFF;
  if (wish != nullptr) {
    raw = (raw & ColorMark::kTransparency) | (wish->number & 0x1FF);
    if (wish->reference) raw |= ColorMark::kReference;
    if (wish->rgb) raw |= ColorMark::kRgb;
  }
  const auto transparency = get<std::int64_t>(wanted(name, std::int64_t{0}, 0, Part::kTransparency));
  if (changesPart(name, Part::kTransparency))
    raw = transparency != 0 ? raw | ColorMark::kTransparency : raw & ~ColorMark::kTransparency;
  raw = derived(BitType::kBS, name, static_cast<std::int16_t>(raw));
  if ((raw & ColorMark::kRgb) != 0 && (raw & ColorMark::kReference) == 0) {
    const std::int64_t rgb = get<std::int64_t>(wanted(name, std::int64_t{0}, 0, Part::kRgb));
    derived(BitType::kBL, name, wish != nullptr ? rgbOf(*wish) : rgb, 0, Part::kRgb);
  }
  if ((raw & ColorMark::kTransparency) != 0)
    derived(BitType::kBL, name, transparency, 0, Part::kTransparency);
  return (raw & ColorMark::kReference) != 0;
}

void FieldVisitor::again(BitType type, std::string_view name, std::string_view first, Value value) {
  visit({.name = name, .type = type, .fallback = std::move(value), .derived = follows(name, first)});
}

std::uint32_t FieldVisitor::count(BitType type, std::string_view name, std::uint64_t bitsOfEach,
                                  Stream stream, std::uint32_t index) {
  const std::int64_t number = integer(type, name, 0, index);
  if (number >= 0 && static_cast<std::uint64_t>(number) <= left(stream) / bitsOfEach)
    return static_cast<std::uint32_t>(number);
  fail();
  return 0;
}

std::int64_t FieldVisitor::flags(BitType type, std::string_view name, std::int64_t fallback, bool whenSet,
                                 std::initializer_list<OptionalField> fields) {
  std::int64_t value = get<std::int64_t>(wanted(name, fallback));
  for (const OptionalField& field : fields) {
    if (!changes(field.name)) continue;
    const bool there = !same(wanted(field.name, field.absent), field.absent);
    value = there == whenSet ? value | field.flag : value & ~field.flag;
  }
  return derived(type, name, value);
}

}  // namespace cad::dwg
