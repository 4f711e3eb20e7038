#include "platform/headless/resource_lexer.h"

#include <cstdint>
#include <limits>

namespace kiv::headless {
namespace {

using Kind = ResourceToken::Kind;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool isWordStart(wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_'; }
bool isWordPart(wchar_t c) { return isWordStart(c) || isDigit(c); }
bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\f' || c == L'\uFEFF'; }

int digitValue(wchar_t c) {
  if (isDigit(c)) return c - L'0';
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  return 16;
}

class Lexer {
 public:
  explicit Lexer(std::wstring_view script) : script_(script) {}

  base::Result<ResourceTokens> read() {
    while (failure_.reason.empty() && skipBlanks()) readOne();
    if (!failure_.reason.empty()) return failure_;
    add(Kind::kEnd, {});
    return std::move(result_);
  }

 private:
  wchar_t at(std::size_t ahead = 0) const {
    return next_ + ahead < script_.size() ? script_[next_ + ahead] : L'\0';
  }

  void fail(std::wstring reason) {
    if (failure_.reason.empty()) failure_ = {resourceLine(line_), std::move(reason)};
  }

  void add(Kind kind, std::wstring text, int number = 0) {
    result_.tokens.push_back({kind, std::move(text), number, line_});
  }

  // To the next word; false at the end or after a failure.
  bool skipBlanks() {
    while (next_ < script_.size()) {
      const wchar_t c = at();
      if (c == L'\n') {
        ++line_;
        ++next_;
        lineHasWords_ = false;
      } else if (isBlank(c)) {
        ++next_;
      } else if (c == L'/' && at(1) == L'/') {
        skipLine();
      } else if (c == L'/' && at(1) == L'*') {
        if (!skipBlockComment()) return false;
      } else {
        return true;
      }
    }
    return false;
  }

  void skipLine() {
    while (next_ < script_.size() && at() != L'\n') ++next_;
  }

  bool skipBlockComment() {
    const std::size_t end = script_.find(L"*/", next_ + 2);
    if (end == std::wstring_view::npos) {
      fail(L"the comment does not end");
      return false;
    }
    for (; next_ < end + 2; ++next_) line_ += at() == L'\n';
    return true;
  }

  void readOne() {
    const wchar_t c = at();
    const bool begins = !lineHasWords_;
    lineHasWords_ = true;
    if (c == L'#' && begins) {
      readDirective();
    } else if (c == L'"' || (c == L'L' && at(1) == L'"')) {
      next_ += c == L'L' ? 2 : 1;
      readText();
    } else if (isWordStart(c)) {
      add(Kind::kWord, std::wstring(takeWord()));
    } else if (isDigit(c) || (c == L'-' && isDigit(at(1)))) {
      readNumber();
    } else if (std::wstring_view(L",|(){}").find(c) != std::wstring_view::npos) {
      add(Kind::kMark, std::wstring(1, c));
      ++next_;
    } else {
      fail(std::wstring(L"no word begins with ") + c);
    }
  }

  std::wstring_view takeWord() {
    const std::size_t begin = next_;
    while (isWordPart(at())) ++next_;
    return script_.substr(begin, next_ - begin);
  }

  void readNumber() {
    const std::size_t begin = next_++;
    while (isWordPart(at())) ++next_;
    int number = 0;
    const std::wstring text(script_.substr(begin, next_ - begin));
    if (readResourceNumber(text, number)) {
      add(Kind::kNumber, text, number);
    } else {
      fail(text + L" is no number");
    }
  }

  void readText() {
    std::wstring text;
    while (true) {
      const wchar_t c = at();
      if (next_ >= script_.size() || c == L'\n') return fail(L"the text does not end on its line");
      if (c == L'"' && at(1) != L'"') break;
      if (c == L'\\') {
        ++next_;
        if (!readEscape(text)) return;
      } else {
        if (c == L'"') ++next_;
        text += c;
        ++next_;
      }
    }
    ++next_;
    add(Kind::kText, std::move(text));
  }

  bool readEscape(std::wstring& text) {
    switch (const wchar_t c = at()) {
      case L'n':
        text += L'\n';
        break;
      case L't':
        text += L'\t';
        break;
      case L'"':
      case L'\\':
        text += c;
        break;
      default:
        fail(std::wstring(L"unknown escape \\") + c);
        return false;
    }
    ++next_;
    return true;
  }

  void readDirective() {
    ++next_;
    while (isBlank(at())) ++next_;
    const bool defines = takeWord() == L"define";
    while (isBlank(at())) ++next_;
    const std::size_t nameBegin = next_;
    const std::wstring name(takeWord());
    const bool named = defines && next_ > nameBegin;
    const std::size_t begin = next_;
    skipLine();
    if (!named) return;
    std::wstring_view value = script_.substr(begin, next_ - begin);
    value = value.substr(0, std::min(value.find(L"//"), value.find(L"/*")));
    while (!value.empty() && isBlank(value.front())) value.remove_prefix(1);
    while (!value.empty() && isBlank(value.back())) value.remove_suffix(1);
    result_.definitions.push_back({name, std::wstring(value), line_});
  }

  std::wstring_view script_;
  std::size_t next_ = 0;
  int line_ = 1;
  bool lineHasWords_ = false;
  ResourceTokens result_;
  base::Failure failure_;
};

}  // namespace

base::Result<ResourceTokens> readResourceTokens(std::wstring_view script) { return Lexer(script).read(); }

std::wstring resourceLine(int line) { return L"line " + std::to_wstring(line); }

bool readResourceNumber(std::wstring_view text, int& number) {
  const bool negative = !text.empty() && text.front() == L'-';
  if (negative) text.remove_prefix(1);
  const bool hexadecimal = text.size() > 2 && text[0] == L'0' && (text[1] == L'x' || text[1] == L'X');
  if (hexadecimal) text.remove_prefix(2);
  if (text.empty() || text.size() > 10 || (negative && hexadecimal)) return false;
  const std::uint64_t base = hexadecimal ? 16 : 10;
  std::uint64_t value = 0;
  for (const wchar_t c : text) {
    const auto digit = static_cast<std::uint64_t>(digitValue(c));
    if (digit >= base) return false;
    value = value * base + digit;
  }
  const std::uint64_t limit = hexadecimal ? std::numeric_limits<std::uint32_t>::max()
                                          : std::uint64_t{std::numeric_limits<std::int32_t>::max()};
  if (value > limit) return false;
  number = static_cast<int>(static_cast<std::uint32_t>(value));
  if (negative) number = -number;
  return true;
}

}  // namespace kiv::headless
