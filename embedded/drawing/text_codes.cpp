#include "embedded/drawing/text_codes.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace cad {
namespace {

constexpr wchar_t kDegree = 0x00B0, kPlusMinus = 0x00B1, kDiameter = 0x2205;

std::optional<int> digitValue(wchar_t c, int base) {
  int value = -1;
  if (c >= L'0' && c <= L'9') value = c - L'0';
  if (c >= L'A' && c <= L'F') value = c - L'A' + 10;
  if (c >= L'a' && c <= L'f') value = c - L'a' + 10;
  return value >= 0 && value < base ? std::optional<int>(value) : std::nullopt;
}

// Behind a \U: +XXXX, which goes with its character.
std::optional<wchar_t> takeUnicode(std::wstring_view& rest) {
  constexpr std::size_t kDigits = 4;
  if (rest.size() <= kDigits || rest[0] != L'+') return std::nullopt;
  int value = 0;
  for (const wchar_t c : rest.substr(1, kDigits)) {
    const std::optional<int> digit = digitValue(c, 16);
    if (!digit) return std::nullopt;
    value = value * 16 + *digit;
  }
  rest.remove_prefix(kDigits + 1);
  return static_cast<wchar_t>(value);
}

// Behind a %: a second one with the name of a character.
std::optional<wchar_t> takePercent(std::wstring_view& rest) {
  if (rest.size() < 2 || rest[0] != L'%') return std::nullopt;
  const NamedCharacter named = namedCharacter(rest.substr(1));
  if (named.length == 0) return std::nullopt;
  rest.remove_prefix(named.length + 1);
  return named.character;
}

bool takesValue(wchar_t code) {
  return std::wstring_view(L"AaCcFfHhpQqTtWw").find(code) != std::wstring_view::npos;
}

}  // namespace

NamedCharacter namedCharacter(std::wstring_view code) {
  if (code.empty()) return {};
  switch (code[0]) {
    case L'd':
    case L'D':
      return {kDegree, 1};
    case L'p':
    case L'P':
      return {kPlusMinus, 1};
    case L'c':
    case L'C':
      return {kDiameter, 1};
    case L'%':
      return {L'%', 1};
    default:
      break;
  }
  constexpr std::size_t kDigits = 3;
  if (code.size() < kDigits) return {};
  int number = 0;
  for (const wchar_t c : code.substr(0, kDigits)) {
    const std::optional<int> digit = digitValue(c, 10);
    if (!digit) return {};
    number = number * 10 + *digit;
  }
  if (number < 32 || number > 255) return {};
  return {static_cast<wchar_t>(number), kDigits};
}

bool TextCodeReader::next(TextCode& code) {
  if (pending_ != 0) {
    code = {TextCode::Kind::kCharacter, std::exchange(pending_, L'\0'), {}};
    return true;
  }
  while (!rest_.empty()) {
    const wchar_t c = take();
    code = {TextCode::Kind::kCharacter, c, {}};
    if (c == L'^' && !rest_.empty()) {
      if (!caret(code)) continue;
    } else if (c == L'\\' && !rest_.empty()) {
      escape(code);
    } else if (c == L'%') {
      code.code = takePercent(rest_).value_or(c);
    } else if (c == L'\n') {
      code.kind = TextCode::Kind::kNewLine;
    } else if (c == L'{' || c == L'}') {
      code.kind = c == L'{' ? TextCode::Kind::kOpen : TextCode::Kind::kClose;
    }
    return true;
  }
  return false;
}

void TextCodeReader::escape(TextCode& code) {
  using Kind = TextCode::Kind;
  const wchar_t letter = take();
  switch (letter) {
    case L'P':
    case L'N':
    case L'X':
      code = {Kind::kNewLine, letter, {}};
      return;
    case L'~':
      code.code = L' ';
      return;
    case L'\\':
    case L'{':
    case L'}':
      code.code = letter;
      return;
    case L'L':
    case L'l':
    case L'O':
    case L'o':
    case L'K':
    case L'k':
      code = {Kind::kSwitch, letter, {}};
      return;
    case L'S':
      stack(code);
      return;
    case L'U':
      if (const std::optional<wchar_t> named = takeUnicode(rest_)) {
        code.code = *named;
        return;
      }
      break;
    default:
      if (takesValue(letter)) return parameter(letter, code);
  }
  pending_ = letter;
}

// Without the semicolon only the code itself goes.
void TextCodeReader::parameter(wchar_t letter, TextCode& code) {
  code = {TextCode::Kind::kValue, letter, {}};
  const std::size_t end = rest_.find(L';');
  if (end == std::wstring_view::npos) return;
  code.value = rest_.substr(0, end);
  rest_.remove_prefix(end + 1);
}

void TextCodeReader::stack(TextCode& code) {
  std::size_t end = 0;
  while (end < rest_.size() && rest_[end] != L';') end += rest_[end] == L'\\' ? 2 : 1;
  end = std::min(end, rest_.size());
  code = {TextCode::Kind::kStack, L'S', rest_.substr(0, end)};
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
}

// False for a control character that draws nothing.
bool TextCodeReader::caret(TextCode& code) {
  const wchar_t letter = take();
  if (letter == L'I') {
    code.code = L'\t';
  } else if (letter == L'J') {
    code.kind = TextCode::Kind::kNewLine;
  } else if (letter != L' ' && letter >= L'@' && letter <= L'_') {
    return false;
  } else if (letter != L' ') {
    pending_ = letter;
  }
  return true;
}

wchar_t TextCodeReader::take() {
  const wchar_t c = rest_.front();
  rest_.remove_prefix(1);
  return c;
}

TextStack stackOf(std::wstring_view value) {
  TextStack stack;
  std::wstring* part = &stack.upper;
  while (!value.empty()) {
    wchar_t c = value.front();
    value.remove_prefix(1);
    if (c == L'\\' && !value.empty()) {
      c = value.front();
      value.remove_prefix(1);
      if (c == L'U') c = takeUnicode(value).value_or(c);
    } else if (c == L'%') {
      c = takePercent(value).value_or(c);
    } else if (stack.bar == 0 && (c == L'/' || c == L'#' || c == L'^')) {
      stack.bar = c;
      part = &stack.lower;
      // A blank after the caret only keeps it from being read as a control character.
      if (c == L'^' && value.starts_with(L' ')) value.remove_prefix(1);
      continue;
    }
    *part += c;
  }
  return stack;
}

}  // namespace cad
