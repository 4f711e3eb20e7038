#include "embedded/dwg/fields/extended_data.h"

#include "embedded/dwg/bits/bit_writer.h"

namespace cad::dwg {
namespace {

constexpr int kFirstCode = 1000;

// The kinds of values by their codes.
enum class Kind { kText, kBrace, kHandle, kBytes, kPoint, kReal, kShort, kLong, kUnknown };

Kind kindOf(int code) {
  switch (code - kFirstCode) {
    case 0:
      return Kind::kText;
    case 2:
      return Kind::kBrace;
    case 3:
    case 5:
      return Kind::kHandle;
    case 4:
      return Kind::kBytes;
    case 10:
    case 11:
    case 12:
    case 13:
      return Kind::kPoint;
    case 40:
    case 41:
    case 42:
      return Kind::kReal;
    case 70:
      return Kind::kShort;
    case 71:
      return Kind::kLong;
    default:
      return Kind::kUnknown;
  }
}

// Raw bytes; the highest of a number stands last, but of handles and code pages first.
std::uint64_t highFirst(BitReader& reader, unsigned bytes) { return reader.bits(bytes * 8); }

void readText(BitReader& reader, Version version, ExtendedValue& value) {
  if (hasWideTexts(version)) {
    const std::uint16_t length = reader.rs();
    if (length > reader.left() / 16) return reader.fail();
    std::u16string text(length, u'\0');
    for (char16_t& c : text) c = static_cast<char16_t>(reader.rs());
    value.value = std::move(text);
    return;
  }
  const std::uint8_t length = reader.rc();
  value.codePage = static_cast<std::uint16_t>(highFirst(reader, 2));
  if (length > reader.left() / 8) return reader.fail();
  std::string text(length, '\0');
  for (char& c : text) c = static_cast<char>(reader.rc());
  value.value = std::move(text);
}

void readBytes(BitReader& reader, ExtendedValue& value) {
  const std::uint8_t length = reader.rc();
  if (length > reader.left() / 8) return reader.fail();
  std::string bytes(length, '\0');
  for (char& c : bytes) c = static_cast<char>(reader.rc());
  value.value = std::move(bytes);
}

void readValue(BitReader& reader, Version version, ExtendedValue& value) {
  switch (kindOf(value.code)) {
    case Kind::kText:
      return readText(reader, version, value);
    case Kind::kBrace:
      value.value = std::int64_t{reader.rc()};
      return;
    case Kind::kHandle:
      value.value = HandleReference{0, 8, highFirst(reader, 8)};
      return;
    case Kind::kBytes:
      return readBytes(reader, value);
    case Kind::kPoint: {
      Point point;
      point.x = reader.rd(), point.y = reader.rd(), point.z = reader.rd();
      value.value = point;
      return;
    }
    case Kind::kReal:
      value.value = reader.rd();
      return;
    case Kind::kShort:
      value.value = std::int64_t{static_cast<std::int16_t>(reader.rs())};
      return;
    case Kind::kLong:
      value.value = std::int64_t{static_cast<std::int32_t>(reader.rl())};
      return;
    case Kind::kUnknown:
      return reader.fail();
  }
}

void writeBytes(BitWriter& writer, std::string_view bytes) {
  writer.copy(bytes, 0, std::uint64_t{bytes.size()} * 8);
}

void writeValue(BitWriter& writer, const ExtendedValue& value) {
  if (const auto* wide = std::get_if<std::u16string>(&value.value)) {
    writer.rs(static_cast<std::uint16_t>(wide->size()));
    for (const char16_t c : *wide) writer.rs(c);
  } else if (const auto* text = std::get_if<std::string>(&value.value)) {
    writer.rc(static_cast<std::uint8_t>(text->size()));
    if (kindOf(value.code) == Kind::kText) writer.bits(value.codePage, 16);
    writeBytes(writer, *text);
  } else if (const auto* reference = std::get_if<HandleReference>(&value.value)) {
    writer.bits(reference->value, 64);
  } else if (const auto* point = std::get_if<Point>(&value.value)) {
    writer.rd(point->x), writer.rd(point->y), writer.rd(point->z);
  } else if (const auto* real = std::get_if<double>(&value.value)) {
    writer.rd(*real);
  } else if (const auto* integer = std::get_if<std::int64_t>(&value.value)) {
    const Kind kind = kindOf(value.code);
    if (kind == Kind::kBrace) writer.rc(static_cast<std::uint8_t>(*integer));
    if (kind == Kind::kShort) writer.rs(static_cast<std::uint16_t>(*integer));
    if (kind == Kind::kLong) writer.rl(static_cast<std::uint32_t>(*integer));
  }
}

// Whether the value is of the type that its code has, and no longer than its size can tell.
bool fits(const ExtendedValue& value) {
  constexpr std::size_t kMostBytes = 0xFF, kMostWide = 0xFFFF;
  const auto* bytes = std::get_if<std::string>(&value.value);
  switch (kindOf(value.code)) {
    case Kind::kText:
      if (const auto* wide = std::get_if<std::u16string>(&value.value)) return wide->size() <= kMostWide;
      return bytes != nullptr && bytes->size() <= kMostBytes;
    case Kind::kBytes:
      return bytes != nullptr && bytes->size() <= kMostBytes;
    case Kind::kHandle:
      return std::holds_alternative<HandleReference>(value.value);
    case Kind::kPoint:
      return std::holds_alternative<Point>(value.value);
    case Kind::kReal:
      return std::holds_alternative<double>(value.value);
    case Kind::kBrace:
    case Kind::kShort:
    case Kind::kLong:
      return std::holds_alternative<std::int64_t>(value.value);
    case Kind::kUnknown:
      return false;
  }
  return false;
}

}  // namespace

base::Result<std::vector<ExtendedData>> readExtendedData(const ObjectFrame& frame) {
  BitReader reader(frame.data, frame.extendedBegin, frame.extendedEnd);
  std::vector<ExtendedData> list;
  while (const auto size = static_cast<std::uint16_t>(reader.bs())) {
    ExtendedData& data = list.emplace_back();
    data.application = reader.h();
    if (size > reader.left() / 8) return base::Failure{{}, L"The extended data of an object is cut off"};
    data.bytes.reserve(size);
    for (unsigned i = 0; i < size; ++i) data.bytes += static_cast<char>(reader.rc());
  }
  return list;
}

base::Result<std::vector<ExtendedValue>> decodeExtended(std::string_view bytes, Version version) {
  BitReader reader(bytes);
  std::vector<ExtendedValue> values;
  while (reader.left() > 0) {
    ExtendedValue& value = values.emplace_back();
    value.code = kFirstCode + reader.rc();
    readValue(reader, version, value);
    if (!reader.failed()) continue;
    return base::Failure{{},
                         L"The extended data of an object is damaged at value " +
                             std::to_wstring(values.size()) + L" (code " + std::to_wstring(value.code) +
                             L")"};
  }
  return values;
}

base::Result<std::string> encodeExtended(const std::vector<ExtendedValue>& values) {
  BitWriter writer;
  for (const ExtendedValue& value : values) {
    if (!fits(value))
      return base::Failure{{}, L"Extended data cannot hold the value of code " + std::to_wstring(value.code)};
    writer.rc(static_cast<std::uint8_t>(value.code - kFirstCode));
    writeValue(writer, value);
  }
  return writer.take();
}

}  // namespace cad::dwg
