#include "embedded/objects/mtext_plain_text.h"

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
    const wchar_t code = rest_[1];
    wchar_t character = 0;
    std::size_t length = 2;
    if (code == L'd' || code == L'D') character = kDegree;
    if (code == L'p' || code == L'P') character = kPlusMinus;
    if (code == L'c' || code == L'C') character = kDiameter;
    if (code == L'%') character = L'%';
    if (const int number = decimalCode(); number > 0) {
      character = static_cast<wchar_t>(number);
      length = 4;
    }
    if (character == 0) {
      text_ += L'%';
      return;
    }
    rest_.remove_prefix(length);
    text_ += character;
  }

  int decimalCode() const {  // of %%nnn; 0: it is none
    if (rest_.size() < 4) return 0;
    int number = 0;
    for (std::size_t i = 1; i < 4; ++i) {
      const std::optional<int> digit = digitValue(rest_[i], 10);
      if (!digit) return 0;
      number = number * 10 + *digit;
    }
    return number < 256 ? number : 0;
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

std::wstring plainText(std::wstring_view contents) { return Reader(contents).read(); }

}  // namespace cad
