#include "embedded/dxf/file_facts.h"

#include <string>

#include "embedded/dxf/code_page_names.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {
namespace {

constexpr int kSampledGroups = 4000;

std::uint8_t paddedWidth(std::string_view value) {
  return value.size() > 1 && value.front() == ' ' && value.size() < 32
             ? static_cast<std::uint8_t>(value.size())
             : 0;
}

LineEnd firstLineEnd(std::string_view bytes) {
  const std::size_t first = bytes.find_first_of("\r\n");
  if (first == std::string_view::npos || bytes[first] == '\n') return LineEnd::kLf;
  const std::size_t next = bytes.find_first_not_of('\r', first);
  if (next == std::string_view::npos || bytes[next] != '\n') return LineEnd::kCr;
  return next == first + 1 ? LineEnd::kCrLf : LineEnd::kCrCrLf;
}

}  // namespace

DrawingFacts readFacts(std::string_view header, const Dialect& dialect, bool byteOrderMark) {
  DrawingFacts facts;
  facts.form = dialect.binary ? L"binary" : L"text";
  std::string_view variable;
  GroupCursor cursor(header, dialect);
  while (cursor.next()) {
    const Group& group = cursor.group();
    if (group.code == 9) variable = trimmed(group.value);
    if (group.code == 1 && variable == "$ACADVER") facts.versionCode = trimmed(group.value);
    if (group.code == 3 && variable == "$DWGCODEPAGE") facts.codePageName = trimmed(group.value);
  }
  facts.version = base::versionByCode(facts.versionCode);
  if (facts.version >= Version::kR2007 || byteOrderMark) {
    facts.codePage = base::kUtf8;
  } else if (!facts.codePageName.empty()) {
    const auto page = codePageByName(facts.codePageName);
    facts.codePageKnown = page.has_value();
    facts.codePage = page.value_or(1252);
  }
  return facts;
}

Dialect textDialect(std::string_view bytes) {
  Dialect dialect;
  dialect.lineEnd = firstLineEnd(bytes);
  bool haveCode = false, have16 = false, have32 = false;
  Group group;
  std::size_t at = 0;
  for (int i = 0; i < kSampledGroups && readTextGroup(bytes, at, dialect.lineEnd, group); ++i) {
    at = group.end;
    const ValueType type = valueType(group.code);
    if (group.code == 0 && !haveCode) {
      const std::string_view line = bytes.substr(group.begin, group.valueBegin - group.begin);
      dialect.codeWidth = paddedWidth(line.substr(0, line.find_last_not_of("\r\n") + 1));
      haveCode = true;
    } else if (type == ValueType::kInt16 && !have16) {
      dialect.int16Width = paddedWidth(group.value);
      have16 = true;
    } else if (type == ValueType::kInt32 && !have32) {
      dialect.int32Width = paddedWidth(group.value);
      have32 = true;
    }
    if (haveCode && have16 && have32) break;
  }
  if (!have16) dialect.int16Width = dialect.codeWidth == 3 ? 6 : 0;
  if (!have32) dialect.int32Width = dialect.int16Width == 6 ? 9 : 0;
  return dialect;
}

Dialect binaryDialect(std::string_view bytes) {
  Dialect dialect;
  dialect.binary = true;
  // The first group is 0 SECTION or 999: its code's second byte is 0 or 3, or there is none.
  const auto byte = [&](std::size_t i) {
    return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
  };
  dialect.wideCodes = (byte(0) == 0 && byte(1) == 0) || (byte(0) == 0xE7 && byte(1) == 3);
  return dialect;
}

std::size_t prefixLength(std::string_view file) {
  for (const std::string_view prefix : {kBinarySentinel, kByteOrderMark})
    if (file.starts_with(prefix)) return prefix.size();
  return 0;
}

Dialect fileDialect(std::string_view file) {
  const std::string_view groups = file.substr(prefixLength(file));
  return file.starts_with(kBinarySentinel) ? binaryDialect(groups) : textDialect(groups);
}

}  // namespace cad::dxf
