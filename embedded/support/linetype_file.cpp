#include "embedded/support/linetype_file.h"

#include <charconv>

#include "base/codepage.h"
#include "base/fold.h"

namespace cad::support {
namespace {

constexpr std::size_t kMaxDashes = 12;

std::wstring decodeFile(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (bytes.substr(0, kMark.size()) == kMark)
    return base::decode(bytes.substr(kMark.size()), base::kUtf8).text;
  return base::decode(bytes, base::kJapanese).text;
}

std::wstring_view takeLine(std::wstring_view& rest) {
  const std::size_t end = rest.find(L'\n');
  const std::wstring_view line = rest.substr(0, end);
  rest = end == std::wstring_view::npos ? std::wstring_view() : rest.substr(end + 1);
  return base::trim(line);
}

LinetypeDefinition parseHeader(std::wstring_view line) {
  const std::size_t comma = line.find(L',');
  LinetypeDefinition definition;
  definition.name = base::trim(line.substr(1, comma == std::wstring_view::npos ? comma : comma - 1));
  if (comma != std::wstring_view::npos) definition.description = base::trim(line.substr(comma + 1));
  definition.refusal = L"it has no pattern line";
  return definition;
}

bool parseNumber(std::wstring_view text, double& value) {
  text = base::trim(text);
  if (!text.empty() && text.front() == L'+') text.remove_prefix(1);
  std::string narrow;
  for (wchar_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
  const char* end = narrow.data() + narrow.size();
  const auto result = std::from_chars(narrow.data(), end, value);
  return !narrow.empty() && result.ec == std::errc() && result.ptr == end && value > -1e15 && value < 1e15;
}

// A bracket holds a text or a shape drawn along the line; both need a file that a plain pattern does not.
std::wstring parsePattern(std::wstring_view line, std::vector<double>& dashes) {
  const std::wstring_view alignment = base::trim(line.substr(0, line.find(L',')));
  if (alignment != L"A" && alignment != L"a") return L"its alignment is not A";
  if (line.find(L'[') != std::wstring_view::npos) return L"it draws texts or shapes, which need a shape file";
  while (line.find(L',') != std::wstring_view::npos) {
    line = line.substr(line.find(L',') + 1);
    const std::wstring_view piece = line.substr(0, line.find(L','));
    double value = 0;
    if (!parseNumber(piece, value)) return L"\"" + std::wstring(base::trim(piece)) + L"\" is not a number";
    dashes.push_back(value);
  }
  if (dashes.size() < 2) return L"its pattern has fewer than two numbers";
  if (dashes.size() > kMaxDashes) return L"its pattern has more than 12 numbers";
  if (dashes.front() < 0) return L"its pattern begins with a gap";
  return {};
}

}  // namespace

std::vector<LinetypeDefinition> parseLinetypes(std::string_view bytes) {
  const std::wstring text = decodeFile(bytes);
  std::wstring_view rest = text;
  std::vector<LinetypeDefinition> definitions;
  bool patternAwaited = false;
  while (!rest.empty()) {
    const std::wstring_view line = takeLine(rest);
    if (line.empty() || line.front() == L';') continue;
    if (line.front() == L'*') {
      definitions.push_back(parseHeader(line));
      patternAwaited = true;
    } else if (patternAwaited) {
      LinetypeDefinition& definition = definitions.back();
      definition.refusal = parsePattern(line, definition.dashes);
      patternAwaited = false;
    }
  }
  return definitions;
}

}  // namespace cad::support
