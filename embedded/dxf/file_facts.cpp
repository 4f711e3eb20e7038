#include "embedded/dxf/file_facts.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {
namespace {

constexpr std::pair<std::string_view, base::CodePage> kNamed[] = {
    {"ascii", 20127},   {"us-ascii", 20127}, {"mac-roman", 10000}, {"big5", 950},    {"gb2312", 936},
    {"gbk", 936},       {"ksc5601", 949},    {"johab", 1361},      {"utf-8", 65001}, {"utf8", 65001},
    {"shift_jis", 932}, {"sjis", 932},       {"latin1", 28591},
};
// Prefixes before a number, and what is added to it.
constexpr std::pair<std::string_view, base::CodePage> kNumbered[] = {
    {"ansi_", 0}, {"ansi", 0}, {"dos", 0}, {"cp", 0}, {"iso8859-", 28590}, {"iso-8859-", 28590}};

// "ANSI_932", "dos850", "iso8859-1", "mac-roman", "big5", ...; ignores case. Absent: not a name we know.
std::optional<base::CodePage> codePageByName(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  for (const auto& [known, page] : kNamed) {
    if (lower == known) return page;
  }
  for (const auto& [prefix, offset] : kNumbered) {
    if (!lower.starts_with(prefix)) continue;
    int number = 0;
    const char* begin = lower.data() + prefix.size();
    const char* end = lower.data() + lower.size();
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || stop != end || number < 1 || number > 65535) continue;
    if (base::isKnownCodePage(number + offset)) return number + offset;
  }
  return std::nullopt;
}

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
