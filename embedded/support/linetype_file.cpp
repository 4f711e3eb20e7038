#include "embedded/support/linetype_file.h"

#include <numbers>

#include "base/fold.h"
#include "base/numbers.h"
#include "base/text_files.h"

namespace cad::support {
namespace {

constexpr std::size_t kMaxDashes = 12;

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
  definition.refusal = L"It has no pattern line";
  return definition;
}

std::wstring citation(std::wstring_view text) { return L"\"" + std::wstring(text) + L"\""; }

bool parseNumber(std::wstring_view text, double& value) {
  value = base::leadingReal(text);
  return base::isReal(text) && value > -1e15 && value < 1e15;
}

// The pieces between the commas that stand outside quotes and brackets, up to a comment. False when a quote
// or a bracket is not closed.
bool split(std::wstring_view text, std::vector<std::wstring_view>& pieces) {
  bool inQuotes = false, inBrackets = false;
  std::size_t begin = 0, at = 0;
  for (; at < text.size(); ++at) {
    const wchar_t c = text[at];
    if (c == L'"') inQuotes = !inQuotes;
    if (inQuotes) continue;
    if (c == L';') break;
    if (c == L'[' || c == L']') inBrackets = c == L'[';
    if (c != L',' || inBrackets) continue;
    pieces.push_back(base::trim(text.substr(begin, at - begin)));
    begin = at + 1;
  }
  pieces.push_back(base::trim(text.substr(begin, at - begin)));
  return !inQuotes && !inBrackets;
}

bool parseAngle(std::wstring_view text, double& degrees) {
  constexpr double kDegreesPerGrad = 0.9;
  double unit = 1;
  const wchar_t last = text.empty() ? L'0' : base::upper(text.back());
  if (last == L'R') unit = 180 / std::numbers::pi;
  if (last == L'G') unit = kDegreesPerGrad;
  if (last == L'R' || last == L'G' || last == L'D') text.remove_suffix(1);
  if (!parseNumber(text, degrees)) return false;
  degrees *= unit;
  return true;
}

// "S=.1", "X=-2" and the like.
bool parseTransform(std::wstring_view piece, DashSymbol& symbol) {
  const std::size_t equal = piece.find(L'=');
  const std::wstring_view key = base::trim(piece.substr(0, equal));
  if (equal == std::wstring_view::npos || key.size() != 1) return false;
  const std::wstring_view value = base::trim(piece.substr(equal + 1));
  using Turn = DashSymbol::Turn;
  switch (base::upper(key.front())) {
    case L'S':
      return parseNumber(value, symbol.scale);
    case L'X':
      return parseNumber(value, symbol.x);
    case L'Y':
      return parseNumber(value, symbol.y);
    case L'R':
      symbol.turn = Turn::kWithLine;
      return parseAngle(value, symbol.degrees);
    case L'A':
      symbol.turn = Turn::kAbsolute;
      return parseAngle(value, symbol.degrees);
    case L'U':
      symbol.turn = Turn::kUpright;
      return parseAngle(value, symbol.degrees);
    default:
      return false;
  }
}

// What stands between the brackets. Returns why it cannot be used.
std::wstring parseSymbol(std::wstring_view inside, DashDefinition& dash) {
  std::vector<std::wstring_view> pieces;
  if (!split(inside, pieces)) return L"A quote is not closed";
  DashSymbol& symbol = dash.dash.symbol.emplace();
  const std::wstring_view content = pieces.front();
  const bool isText = content.size() >= 2 && content.front() == L'"' && content.back() == L'"';
  if (isText)
    symbol.text = content.substr(1, content.size() - 2);
  else
    dash.shape = content;
  if (symbol.text.empty() && dash.shape.empty()) return L"A pair of brackets holds neither text nor shape";
  std::size_t next = 1;
  if (pieces.size() > next && pieces[next].find(L'=') == std::wstring_view::npos)
    dash.source = pieces[next++];
  if (!isText && dash.source.empty()) return L"The shape " + citation(dash.shape) + L" names no shape file";
  for (; next < pieces.size(); ++next)
    if (!parseTransform(pieces[next], symbol))
      return citation(pieces[next]) + L" is none of S=, R=, A=, U=, X= and Y= with a number";
  return {};
}

std::wstring parsePattern(std::wstring_view line, std::vector<DashDefinition>& dashes) {
  std::vector<std::wstring_view> pieces;
  if (!split(line, pieces)) return L"A quote or a bracket is not closed";
  if (!base::equalFolded(pieces.front(), L"A")) return L"Its alignment is not A";
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    const std::wstring_view piece = pieces[i];
    if (!piece.empty() && piece.front() == L'[') {
      if (dashes.empty() || dashes.back().dash.symbol)
        return L"A text or shape does not follow a number of its own";
      if (piece.back() != L']') return citation(piece) + L" does not end with its bracket";
      std::wstring refusal = parseSymbol(piece.substr(1, piece.size() - 2), dashes.back());
      if (!refusal.empty()) return refusal;
      continue;
    }
    double length = 0;
    if (!parseNumber(piece, length)) return citation(piece) + L" is not a number";
    dashes.push_back({Dash{length}, {}, {}});
  }
  if (dashes.size() < 2) return L"Its pattern has fewer than two numbers";
  if (dashes.size() > kMaxDashes) return L"Its pattern has more than 12 numbers";
  if (dashes.front().dash.length < 0) return L"Its pattern begins with a gap";
  return {};
}

}  // namespace

std::vector<LinetypeDefinition> parseLinetypes(std::string_view bytes) {
  const std::wstring text = base::decodeText(bytes);
  std::wstring_view rest = text;
  std::vector<LinetypeDefinition> definitions;
  bool patternAwaited = false;
  for (int number = 1; !rest.empty(); ++number) {
    const std::wstring_view line = takeLine(rest);
    if (line.empty() || line.front() == L';') continue;
    if (line.front() == L'*') {
      definitions.push_back(parseHeader(line));
      definitions.back().line = number;
      patternAwaited = true;
    } else if (patternAwaited) {
      LinetypeDefinition& definition = definitions.back();
      definition.line = number;
      definition.refusal = parsePattern(line, definition.dashes);
      patternAwaited = false;
    }
  }
  return definitions;
}

}  // namespace cad::support
