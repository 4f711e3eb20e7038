#include "embedded/dxf/group_cursor.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

namespace cad::dxf {
namespace {

std::uint64_t littleEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

// Length of a binary value that begins at `from`, and how much of it frames the payload.
bool binaryExtent(std::string_view bytes, std::size_t from, ValueType type, std::size_t& skip,
                  std::size_t& length, std::size_t& tail) {
  skip = tail = 0;
  switch (type) {
    case ValueType::kText:
    case ValueType::kHandle: {
      const std::size_t end = bytes.find('\0', from);
      if (end == std::string_view::npos) return false;
      length = end - from;
      tail = 1;
      return true;
    }
    case ValueType::kReal:
    case ValueType::kInt64:
      length = 8;
      break;
    case ValueType::kInt32:
      length = 4;
      break;
    case ValueType::kInt16:
      length = 2;
      break;
    case ValueType::kBool:
      length = 1;
      break;
    case ValueType::kChunk:
      if (from >= bytes.size()) return false;
      skip = 1;
      length = static_cast<unsigned char>(bytes[from]);
      break;
    case ValueType::kUnknown:
      return false;
  }
  return bytes.size() - from >= skip + length;
}

std::int64_t signedValue(std::string_view bytes) {
  const std::uint64_t value = littleEndian(bytes);
  switch (bytes.size()) {
    case 1:
      return static_cast<std::int64_t>(value);
    case 2:
      return static_cast<std::int16_t>(value);
    case 4:
      return static_cast<std::int32_t>(value);
    default:
      return static_cast<std::int64_t>(value);
  }
}

std::optional<double> parseReal(std::string_view text) {
  text = trimmed(text);
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

constexpr std::array<std::uint8_t, 256> kHexDigits = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(0xFF);
  for (std::uint8_t i = 0; i < 16; ++i) digits[static_cast<unsigned char>("0123456789ABCDEF"[i])] = i;
  return digits;
}();

// Digits as nearly all files have them: few, upper-case, without blanks.
std::optional<Handle> plainHex(std::string_view digits) {
  if (digits.empty() || digits.size() > 15) return std::nullopt;
  Handle value = 0;
  std::uint8_t unfit = 0;
  for (const char c : digits) {
    const std::uint8_t digit = kHexDigits[static_cast<unsigned char>(c)];
    unfit |= digit;
    value = value << 4 | digit;
  }
  if (unfit > 0xF) return std::nullopt;
  return value;
}

}  // namespace

bool readTextGroup(std::string_view bytes, std::size_t position, LineEnd lineEnd, Group& group) {
  return lineEnd == LineEnd::kCr ? readLines<'\r'>(bytes, position, group)
                                 : readLines<'\n'>(bytes, position, group);
}

bool readBinaryGroup(std::string_view bytes, std::size_t position, bool wideCodes, Group& group) {
  std::size_t at = position;
  const auto left = [&] { return bytes.size() - at; };
  if (position > bytes.size() || left() < 1) return false;
  int code = static_cast<unsigned char>(bytes[at]);
  if (wideCodes || code == 255) {
    if (!wideCodes) ++at;
    if (left() < 2) return false;
    code = static_cast<std::int16_t>(littleEndian(bytes.substr(at, 2)));
    at += 2;
  } else {
    ++at;
  }
  std::size_t skip = 0, length = 0, tail = 0;
  if (!binaryExtent(bytes, at, valueType(code), skip, length, tail)) return false;
  group.code = code;
  group.begin = static_cast<std::uint32_t>(position);
  group.valueBegin = static_cast<std::uint32_t>(at + skip);
  group.value = bytes.substr(at + skip, length);
  group.end = static_cast<std::uint32_t>(at + skip + length + tail);
  return true;
}

bool readGroup(std::string_view bytes, std::size_t position, const Dialect& dialect, Group& group) {
  return dialect.binary ? readBinaryGroup(bytes, position, dialect.wideCodes, group)
                        : readTextGroup(bytes, position, dialect.lineEnd, group);
}

std::string commentsIn(std::string_view bytes, const Dialect& dialect) {
  std::string comments;
  Group group;
  while (readGroup(bytes, group.end, dialect, group))
    if (group.code == kComment) comments += bytes.substr(group.begin, group.end - group.begin);
  return comments;
}

std::optional<std::int64_t> integerValue(const Group& group, const Dialect& dialect) {
  const ValueType type = valueType(group.code);
  const bool text = type == ValueType::kText || type == ValueType::kHandle;
  if (dialect.binary && !text) {
    if (type == ValueType::kChunk || type == ValueType::kUnknown) return std::nullopt;
    if (type != ValueType::kReal) return signedValue(group.value);
  } else {
    const std::string_view value = trimmed(group.value);
    const std::size_t sign = !value.empty() && value[0] == '+' ? 1 : 0;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(value.data() + sign, value.data() + value.size(), number);
    if (error == std::errc() && end == value.data() + value.size()) return number;
  }
  const auto real = realValue(group, dialect);
  if (!real || std::fabs(*real) > 9.0e18) return std::nullopt;
  return static_cast<std::int64_t>(*real);
}

std::optional<double> realValue(const Group& group, const Dialect& dialect) {
  const ValueType type = valueType(group.code);
  if (!dialect.binary || type == ValueType::kText || type == ValueType::kHandle)
    return parseReal(group.value);
  if (type == ValueType::kReal) {
    const auto value = std::bit_cast<double>(littleEndian(group.value));
    if (!std::isfinite(value)) return std::nullopt;
    return value;
  }
  if (type == ValueType::kChunk || type == ValueType::kUnknown) return std::nullopt;
  return static_cast<double>(signedValue(group.value));
}

std::optional<Handle> handleValue(const Group& group) {
  if (const auto plain = plainHex(group.value)) return plain;
  const std::string_view value = trimmed(group.value);
  Handle handle = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), handle, 16);
  if (error != std::errc() || end != value.data() + value.size()) return std::nullopt;
  return handle;
}

}  // namespace cad::dxf
