#include "embedded/dxf/code_page_names.h"

#include <charconv>
#include <string>
#include <utility>

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

}  // namespace

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

}  // namespace cad::dxf
