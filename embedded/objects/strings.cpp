#include <cstdarg>
#include <cwchar>
#include <vector>

#include "AcString.h"
#include "base/fold.h"

namespace {

int sign(int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

std::wstring_view viewOf(const ACHAR* text) { return text ? std::wstring_view(text) : std::wstring_view(); }

int positionOf(std::size_t found) { return found == std::wstring::npos ? -1 : static_cast<int>(found); }

}  // namespace

int AcString::compare(const ACHAR* other) const { return sign(text_.compare(viewOf(other))); }

int AcString::compareNoCase(const ACHAR* other) const {
  return sign(base::upper(text_).compare(base::upper(viewOf(other))));
}

int AcString::find(const ACHAR* other) const { return positionOf(text_.find(viewOf(other))); }
int AcString::find(ACHAR character) const { return positionOf(text_.find(character)); }
int AcString::findRev(ACHAR character) const { return positionOf(text_.rfind(character)); }

AcString AcString::right(int count) const {
  const int size = static_cast<int>(text_.size());
  return count >= size ? *this : mid(count > 0 ? size - count : size);
}

AcString AcString::mid(int start, int count) const {
  AcString piece;
  const std::size_t from = start > 0 ? static_cast<std::size_t>(start) : 0;
  if (from >= text_.size() || count == 0) return piece;
  piece.text_ = text_.substr(from, count < 0 ? std::wstring::npos : static_cast<std::size_t>(count));
  return piece;
}

AcString& AcString::makeUpper() {
  text_ = base::upper(text_);
  return *this;
}

AcString& AcString::makeLower() {
  for (wchar_t& c : text_) {
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  }
  return *this;
}

AcString& AcString::trim() {
  text_ = std::wstring(base::trim(text_));
  return *this;
}

AcString& AcString::format(const ACHAR* pattern, ...) {
  constexpr std::size_t kLongest = 1 << 20;
  std::vector<wchar_t> buffer(256);
  for (;;) {
    va_list arguments;
    va_start(arguments, pattern);
    const int length = std::vswprintf(buffer.data(), buffer.size(), pattern, arguments);
    va_end(arguments);
    if (length >= 0) {
      text_.assign(buffer.data(), static_cast<std::size_t>(length));
      return *this;
    }
    if (buffer.size() >= kLongest) return setEmpty();
    buffer.resize(buffer.size() * 2);
  }
}
