#include "embedded/dxf/group_writer.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace cad::dxf {
namespace {

void appendLittleEndian(std::string& out, std::uint64_t value, int count) {
  for (int i = 0; i < count; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

int binaryWidth(ValueType type) {
  switch (type) {
    case ValueType::kBool:
      return 1;
    case ValueType::kInt16:
      return 2;
    case ValueType::kInt32:
      return 4;
    default:
      return 8;
  }
}

std::string padded(std::string text, std::size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), ' ');
  return text;
}

std::size_t usualWidth(const Dialect& dialect, int code) {
  switch (valueType(code)) {
    case ValueType::kBool:
    case ValueType::kInt16:
      return dialect.int16Width;
    case ValueType::kInt32:
      return dialect.int32Width;
    default:
      return 0;
  }
}

}  // namespace

void appendReal(std::string& out, double value) {
  char buffer[64];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
  const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
  out += text;
  if (text.find_first_of(".e") == text.npos) out += ".0";
}

std::string realText(double value) {
  std::string text;
  appendReal(text, value);
  return text;
}

std::string realBytes(const Dialect& dialect, double value) {
  if (!dialect.binary) return realText(value);
  std::string out;
  appendLittleEndian(out, std::bit_cast<std::uint64_t>(value), 8);
  return out;
}

std::string integerBytes(const Dialect& dialect, int code, std::int64_t value, std::string_view old) {
  const ValueType type = valueType(code);
  if (type == ValueType::kReal) return realBytes(dialect, static_cast<double>(value));
  if (dialect.binary && type != ValueType::kText && type != ValueType::kHandle) {
    std::string out;
    appendLittleEndian(out, static_cast<std::uint64_t>(value), binaryWidth(type));
    return out;
  }
  std::size_t width = usualWidth(dialect, code);
  if (!old.empty()) width = old.front() == ' ' ? old.size() : 0;
  return padded(std::to_string(value), width);
}

void GroupWriter::raw(std::uint64_t value, int count) { appendLittleEndian(bytes_, value, count); }

void GroupWriter::code(int code) {
  if (!dialect_.binary) {
    char digits[16];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, code);
    const auto size = static_cast<std::size_t>(end - digits);
    if (size < dialect_.codeWidth) bytes_.append(dialect_.codeWidth - size, ' ');
    line({digits, size});
  } else if (dialect_.wideCodes) {
    raw(static_cast<std::uint64_t>(code), 2);
  } else if (code < 255) {
    raw(static_cast<std::uint64_t>(code), 1);
  } else {
    raw(255, 1);
    raw(static_cast<std::uint64_t>(code), 2);
  }
}

void GroupWriter::line(std::string_view value) {
  bytes_ += value;
  bytes_ += lineEndBytes(dialect_.lineEnd);
}

void GroupWriter::text(int groupCode, std::string_view stored) {
  code(groupCode);
  if (!dialect_.binary) return line(stored);
  bytes_ += stored;
  bytes_ += '\0';
}

void GroupWriter::integer(int groupCode, std::int64_t value) {
  const ValueType type = valueType(groupCode);
  const std::string bytes = integerBytes(dialect_, groupCode, value, {});
  if (type == ValueType::kText || type == ValueType::kHandle) return text(groupCode, bytes);
  code(groupCode);
  if (dialect_.binary) {
    bytes_ += bytes;
  } else {
    line(bytes);
  }
}

void GroupWriter::real(int groupCode, double value) {
  code(groupCode);
  if (dialect_.binary) {
    bytes_ += realBytes(dialect_, value);
  } else {
    appendReal(bytes_, value);
    bytes_ += lineEndBytes(dialect_.lineEnd);
  }
}

void GroupWriter::chunk(int groupCode, std::string_view data) {
  code(groupCode);
  bytes_ += static_cast<char>(data.size());
  bytes_ += data;
}

void GroupWriter::handle(int groupCode, Handle value) {
  char buffer[20];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, 16);
  std::string digits(buffer, end);
  for (char& c : digits) {
    if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
  }
  text(groupCode, digits);
}

void GroupWriter::point(int groupCode, double x, double y, double z) {
  real(groupCode, x);
  real(groupCode + 10, y);
  real(groupCode + 20, z);
}

}  // namespace cad::dxf
