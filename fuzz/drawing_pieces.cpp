#include "fuzz/drawing_pieces.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "embedded/dxf/file_facts.h"
#include "embedded/dxf/group_cursor.h"

namespace fuzz {
namespace {

using cad::dxf::ValueType;

struct Line {
  std::string_view text, end;
};

// Takes the first line off; LF, CR LF and CR end it.
Line takeLine(std::string_view& bytes) {
  const std::size_t length = std::min(bytes.find_first_of("\r\n"), bytes.size());
  const std::size_t end = bytes.substr(length).starts_with("\r\n") ? 2 : length < bytes.size() ? 1 : 0;
  const Line line{bytes.substr(0, length), bytes.substr(length, end)};
  bytes.remove_prefix(length + end);
  return line;
}

bool readCode(std::string_view line, int& code) {
  const std::string_view digits = cad::dxf::trimmed(line);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code);
  return error == std::errc() && end == digits.data() + digits.size();
}

std::string littleEndian(std::uint64_t value, std::size_t size) {
  std::string bytes;
  for (; size > 0; --size, value >>= 8) bytes.push_back(static_cast<char>(value & 0xFF));
  return bytes;
}

std::string binaryValue(int code, std::string_view text) {
  const std::string copy(text);
  const auto integer = [&] { return static_cast<std::uint64_t>(std::strtoll(copy.c_str(), nullptr, 10)); };
  switch (cad::dxf::valueType(code)) {
    case ValueType::kReal: {
      const double number = std::strtod(copy.c_str(), nullptr);
      std::uint64_t bits = 0;
      std::memcpy(&bits, &number, sizeof bits);
      return littleEndian(bits, 8);
    }
    case ValueType::kInt16:
      return littleEndian(integer(), 2);
    case ValueType::kInt32:
      return littleEndian(integer(), 4);
    case ValueType::kInt64:
      return littleEndian(integer(), 8);
    case ValueType::kBool:
      return littleEndian(integer(), 1);
    case ValueType::kChunk:
      return copy.substr(0, 255);
    default:
      return copy.substr(0, copy.find('\0'));
  }
}

std::string upper(std::string_view text) {
  std::string result(cad::dxf::trimmed(text));
  for (char& c : result) c = cad::dxf::asciiUpper(c);
  return result;
}

bool isFrame(const std::string& type) {
  constexpr std::string_view kFrames[] = {"SECTION", "ENDSEC", "TABLE", "ENDTAB", "BLOCK", "ENDBLK", "EOF"};
  return std::find(std::begin(kFrames), std::end(kFrames), type) != std::end(kFrames);
}

}  // namespace

DrawingPieces::DrawingPieces(std::string_view bytes) {
  if (bytes.starts_with(cad::dxf::kBinarySentinel)) {
    prefix_ = cad::dxf::kBinarySentinel;
    bytes.remove_prefix(prefix_.size());
    dialect_ = cad::dxf::binaryDialect(bytes);
    readBinary(bytes);
  } else {
    if (bytes.starts_with(cad::dxf::kByteOrderMark)) prefix_ = cad::dxf::kByteOrderMark;
    readText(bytes.substr(prefix_.size()));
  }
}

void DrawingPieces::readText(std::string_view bytes) {
  while (!bytes.empty()) {
    std::string_view left = bytes;
    const Line code = takeLine(left), value = takeLine(left);
    Piece piece{0, std::string(code.text), std::string(value.text), std::string(code.end),
                std::string(value.end)};
    if (code.end.empty() || !readCode(code.text, piece.code)) break;
    pieces.push_back(std::move(piece));
    bytes = left;
  }
  rest = bytes;
}

void DrawingPieces::readBinary(std::string_view bytes) {
  cad::dxf::Group group;
  while (cad::dxf::readBinaryGroup(bytes, group.end, dialect_.wideCodes, group)) {
    pieces.push_back({group.code, {}, std::string(group.value), {}, {}});
  }
  rest = bytes.substr(std::min<std::size_t>(group.end, bytes.size()));
}

std::string DrawingPieces::bytes() const {
  std::string result = prefix_;
  for (const Piece& piece : pieces) {
    if (!binary()) {
      result += piece.codeLine + piece.codeEnd + piece.value + piece.valueEnd;
      continue;
    }
    const bool escaped = !dialect_.wideCodes && (piece.code < 0 || piece.code > 254);
    if (escaped) result.push_back('\xFF');
    result += littleEndian(static_cast<std::uint64_t>(piece.code), dialect_.wideCodes || escaped ? 2 : 1);
    const ValueType type = cad::dxf::valueType(piece.code);
    if (type == ValueType::kChunk) result.push_back(static_cast<char>(piece.value.size()));
    result += piece.value;
    if (type == ValueType::kText || type == ValueType::kHandle) result.push_back('\0');
  }
  return result + rest;
}

Piece DrawingPieces::make(int code, std::string_view text) const {
  Piece piece;
  piece.code = code;
  setValue(piece, text);
  if (binary()) return piece;
  const std::string digits = std::to_string(code);
  piece.codeLine = std::string(digits.size() < 3 ? 3 - digits.size() : 0, ' ') + digits;
  piece.codeEnd = piece.valueEnd = pieces.empty() ? "\r\n" : pieces.front().codeEnd;
  return piece;
}

void DrawingPieces::setValue(Piece& piece, std::string_view text) const {
  piece.value = binary() ? binaryValue(piece.code, text) : std::string(text);
}

std::vector<Span> DrawingPieces::records() const {
  std::vector<Span> result;
  std::string section;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (pieces[i].code != 0) continue;
    const std::string type = upper(pieces[i].value);
    if (!result.empty()) result.back().end = i;
    if (type == "SECTION" && i + 1 < pieces.size()) section = upper(pieces[i + 1].value);
    result.push_back({i, pieces.size(), section, isFrame(type)});
  }
  return result;
}

}  // namespace fuzz
