#include "embedded/drawing/plain_text.h"

#include <optional>

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

struct NamedCharacter {
  wchar_t character = 0;
  std::size_t length = 0;  // of the code, behind its %%; 0: it names no character
};

NamedCharacter characterOf(std::wstring_view code) {
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

class Reader {
 public:
  explicit Reader(std::wstring_view contents) : rest_(contents) {}

  std::wstring read() {
    while (!rest_.empty()) step();
    return std::move(text_);
  }

 private:
  void step() {
    const wchar_t c = take();
    if (c == L'\\' && !rest_.empty()) {
      escape();
    } else if (c == L'^' && !rest_.empty()) {
      caret(text_);
    } else if (c == L'%' && rest_.size() > 1 && rest_[0] == L'%') {
      percent();
    } else if (c != L'{' && c != L'}') {
      text_ += c;
    }
  }

  void escape() {
    const wchar_t code = take();
    switch (code) {
      case L'P':
      case L'N':
      case L'X':
        text_ += L'\n';
        return;
      case L'~':
        text_ += L' ';
        return;
      case L'\\':
      case L'{':
      case L'}':
        text_ += code;
        return;
      case L'L':
      case L'l':
      case L'O':
      case L'o':
      case L'K':
      case L'k':
        return;
      case L'S':
        stack();
        return;
      case L'U':
        unicode();
        return;
      default:
        parameter(code);
    }
  }

  // Codes that take a value, ended by a semicolon. Without the semicolon only the code itself goes.
  void parameter(wchar_t code) {
    if (std::wstring_view(L"AaCcFfHhpQqTtWw").find(code) == std::wstring_view::npos) {
      text_ += L'\\';
      text_ += code;
      return;
    }
    const std::size_t end = rest_.find(L';');
    if (end != std::wstring_view::npos) rest_.remove_prefix(end + 1);
  }

  void stack() {
    bool divided = false;
    while (!rest_.empty()) {
      const wchar_t c = take();
      if (c == L';') return;
      if (c == L'\\' && !rest_.empty()) {
        text_ += take();
      } else if (!divided && (c == L'/' || c == L'#' || c == L'^')) {
        divided = true;
        text_ += L'/';
        // A blank after the caret only keeps it from being read as a control character.
        if (c == L'^' && !rest_.empty() && rest_[0] == L' ') take();
      } else {
        text_ += c;
      }
    }
  }

  void unicode() {
    int value = 0;
    bool valid = rest_.size() >= 5 && rest_[0] == L'+';
    for (std::size_t i = 1; valid && i < 5; ++i) {
      const std::optional<int> digit = digitValue(rest_[i], 16);
      valid = digit.has_value();
      value = value * 16 + digit.value_or(0);
    }
    if (!valid) {
      text_ += L"\\U";
      return;
    }
    rest_.remove_prefix(5);
    text_ += static_cast<wchar_t>(value);
  }

  void caret(std::wstring& to) {
    const wchar_t code = take();
    if (code == L'I') {
      to += L'\t';
    } else if (code == L'J') {
      to += L'\n';
    } else if (code == L' ') {
      to += L'^';
    } else if (code < L'@' || code > L'_') {
      to += L'^';
      to += code;
    }
  }

  void percent() {
    const NamedCharacter named = characterOf(rest_.substr(1));
    rest_.remove_prefix(named.length == 0 ? 0 : named.length + 1);
    text_ += named.length == 0 ? L'%' : named.character;
  }

  wchar_t take() {
    const wchar_t c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  std::wstring_view rest_;
  std::wstring text_;
};

}  // namespace

std::wstring plainLine(std::wstring_view contents) {
  constexpr std::wstring_view kLineCodes = L"uUoOkK";
  std::wstring plain;
  while (!contents.empty()) {
    std::size_t taken = 1;
    if (contents.size() > 2 && contents.starts_with(L"%%")) {
      const NamedCharacter named = characterOf(contents.substr(2));
      if (named.length > 0) {
        plain += named.character;
        taken = named.length + 2;
      } else if (kLineCodes.find(contents[2]) != std::wstring_view::npos) {
        taken = 3;
      } else {
        plain.append(contents.substr(0, taken = 3));
      }
    } else {
      plain += contents[0];
    }
    contents.remove_prefix(taken);
  }
  return plain;
}

std::wstring plainText(std::wstring_view contents) { return Reader(contents).read(); }

}  // namespace cad
