#include "embedded/editor/tokens.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "base/fold.h"
#include "embedded/editor/result_buffer.h"

namespace cad {
namespace {

std::wstring numberText(double value) {
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.17g", value);
  return buffer;
}

std::optional<double> wholeNumber(const std::wstring& text) {
  if (text.empty()) return std::nullopt;
  wchar_t* end = nullptr;
  const double value = std::wcstod(text.c_str(), &end);
  return *end == 0 && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<double> Token::number() const { return wholeNumber(text); }

std::optional<Point> Token::point() const {
  double values[3] = {0, 0, 0};
  std::size_t begin = 0;
  int count = 0;
  while (true) {
    const std::size_t comma = text.find(L',', begin);
    const std::size_t length = comma == std::wstring::npos ? comma : comma - begin;
    const std::optional<double> value = wholeNumber(text.substr(begin, length));
    if (!value || count == 3) return std::nullopt;
    values[count++] = *value;
    if (comma == std::wstring::npos) break;
    begin = comma + 1;
  }
  if (count < 2) return std::nullopt;
  return Point{values[0], values[1], values[2]};
}

bool Token::is(std::wstring_view keyword) const {
  std::wstring_view own = text;
  if (!own.empty() && own.front() == L'_') own.remove_prefix(1);
  return base::equalFolded(own, keyword);
}

std::optional<Token> TokenReader::peek() {
  const std::size_t here = position();
  std::optional<Token> token = next();
  rewind(here);
  return token;
}

bool TokenReader::takeIf(std::wstring_view shortKeyword, std::wstring_view keyword) {
  const std::size_t here = position();
  const std::optional<Token> token = next();
  if (token && (token->is(shortKeyword) || token->is(keyword))) return true;
  rewind(here);
  return false;
}

std::optional<Token> ListReader::next() {
  if (at_ >= tokens_.size()) return std::nullopt;
  return tokens_[at_++];
}

void TextReader::endLine() {
  if (!atEnd() && text_[at_] == L'\r') ++at_;
  if (!atEnd() && text_[at_] == L'\n') ++at_;
}

std::wstring TextReader::quoted() {
  std::wstring out;
  for (++at_; !atEnd() && text_[at_] != L'"' && text_[at_] != L'\n' && text_[at_] != L'\r'; ++at_)
    out += text_[at_];
  if (!atEnd() && text_[at_] == L'"') ++at_;
  return out;
}

std::optional<Token> TextReader::next() {
  if (atEnd()) return std::nullopt;
  Token token;
  if (text_[at_] == L'"') token.text = quoted();
  while (!atEnd() && std::wstring_view(L" \t\r\n").find(text_[at_]) == std::wstring_view::npos)
    token.text += text_[at_++];
  if (!atEnd() && (text_[at_] == L' ' || text_[at_] == L'\t'))
    ++at_;
  else
    endLine();
  return token;
}

std::optional<Token> TextReader::nextPath() {
  if (atEnd()) return std::nullopt;
  if (text_[at_] == L'"') return next();
  Token token;
  while (!atEnd() && text_[at_] != L'\r' && text_[at_] != L'\n') token.text += text_[at_++];
  endLine();
  token.text = base::trim(token.text);
  return token;
}

void TextReader::skipRemarks() {
  while (!atEnd() && isLineStart() && text_[at_] == L';') {
    at_ = std::min(text_.find_first_of(L"\r\n", at_), text_.size());
    endLine();
  }
}

// The lines of a script may be typed as well.
std::optional<Token> TextReader::nextName() {
  skipRemarks();
  return next();
}

int TextReader::line() const {
  const std::wstring_view read = std::wstring_view(text_).substr(0, at_ == 0 ? 0 : at_ - 1);
  return static_cast<int>(std::ranges::count(read, L'\n')) + 1;
}

std::optional<Token> ScriptReader::next() {
  skipRemarks();
  return TextReader::next();
}

std::wstring ScriptReader::typedFrom(std::size_t position) {
  std::wstring out;
  rewind(position);
  while (const std::optional<Token> token = next()) out += L'"' + token->text + L"\"\n";
  return out;
}

bool tokensOf(const resbuf* chain, std::vector<Token>& tokens) {
  for (; chain != nullptr; chain = chain->rbnext) {
    if (chain->restype < RTNONE || chain->restype == RTDXF0) return false;  // a drawing's group
    const ads_u_val& value = chain->resval;
    switch (valueKindOf(chain->restype)) {
      case ValueKind::kText:
        tokens.push_back({value.rstring == nullptr ? L"" : value.rstring});
        break;
      case ValueKind::kReal:
        tokens.push_back({numberText(value.rreal)});
        break;
      case ValueKind::kShort:
        tokens.push_back({std::to_wstring(value.rint)});
        break;
      case ValueKind::kLong:
        tokens.push_back({std::to_wstring(value.rlong)});
        break;
      case ValueKind::kPoint:
        tokens.push_back({numberText(value.rpoint[0]) + L"," + numberText(value.rpoint[1]) + L"," +
                          numberText(value.rpoint[2])});
        break;
      case ValueKind::kNothing:
        break;  // list marks group values and are not typed
      default:
        return false;
    }
  }
  return true;
}

}  // namespace cad
