#include "embedded/dxf/record_builder.h"

#include <charconv>

#include "embedded/dxf/group_writer.h"

namespace cad::dxf {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

std::optional<std::string> fromHex(std::string_view text) {
  text = trimmed(text);
  if (text.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    unsigned value = 0;
    const char* end = text.data() + i + 2;
    const auto result = std::from_chars(text.data() + i, end, value, 16);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    bytes += static_cast<char>(value);
  }
  return bytes;
}

}  // namespace

RecordBuilder& RecordBuilder::stored(int code, std::string_view bytes) {
  writer_.text(code, bytes);
  return *this;
}

RecordBuilder& RecordBuilder::text(int code, std::wstring_view value) {
  return stored(code, target_.encode(value));
}

RecordBuilder& RecordBuilder::integer(int code, std::int64_t value) {
  writer_.integer(code, value);
  return *this;
}

RecordBuilder& RecordBuilder::real(int code, double value) {
  writer_.real(code, value);
  return *this;
}

RecordBuilder& RecordBuilder::handle(int code, Handle value) {
  writer_.handle(code, value);
  return *this;
}

RecordBuilder& RecordBuilder::point(int code, const Point& point) {
  return real(code, point.x).real(code + 10, point.y).real(code + 20, point.z);
}

RecordBuilder& RecordBuilder::chunk(int code, std::string_view data) {
  if (target_.dialect().binary) {
    writer_.chunk(code, data);
    return *this;
  }
  std::string hex;
  for (const char c : data) {
    hex += kHexDigits[static_cast<unsigned char>(c) >> 4];
    hex += kHexDigits[static_cast<unsigned char>(c) & 15];
  }
  return stored(code, hex);
}

RecordBuilder& RecordBuilder::subclass(std::string_view name) {
  return since(Version::kR13) ? stored(100, name) : *this;
}

RecordBuilder& RecordBuilder::raw(std::string_view groups) {
  writer_.append(groups);
  return *this;
}

bool RecordBuilder::copyChunk(const Group& group, const DxfStorage& source) {
  if (source.dialect().binary) {
    chunk(group.code, group.value);
    return true;
  }
  const std::optional<std::string> data = fromHex(group.value);
  if (!data || data->size() > 127) return false;
  chunk(group.code, *data);
  return true;
}

bool RecordBuilder::copy(const Group& group, const DxfStorage& source) {
  switch (valueType(group.code)) {
    case ValueType::kReal: {
      const std::optional<double> value = realValue(group, source.dialect());
      if (value) real(group.code, *value);
      return value.has_value();
    }
    case ValueType::kInt16:
    case ValueType::kInt32:
    case ValueType::kInt64:
    case ValueType::kBool: {
      const std::optional<std::int64_t> value = integerValue(group, source.dialect());
      if (value) integer(group.code, *value);
      return value.has_value();
    }
    case ValueType::kChunk:
      return copyChunk(group, source);
    case ValueType::kText:
      if (source.facts().codePage != target_.facts().codePage) {
        text(group.code, source.decode(group.value));
        return true;
      }
      [[fallthrough]];
    default:
      stored(group.code, group.value);
      return true;
  }
}

}  // namespace cad::dxf
