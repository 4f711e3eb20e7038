// The host's wildcard match against a second one written for plainness, not speed. The input's first byte
// chooses the case rule; a line end separates the pattern from the text.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/fold.h"
#include "embedded/drawing/wildcard.h"

namespace {

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
// Of the characters that an input is made of (see below): ASCII and kana.
bool isLetter(wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c >= 0x3080; }

class Reference {
 public:
  explicit Reference(bool ignoreCase) : ignoreCase_(ignoreCase) {}

  // A comma outside brackets and not escaped separates alternatives.
  bool matches(std::wstring_view pattern, std::wstring_view text) const {
    for (const std::wstring_view one : alternatives(pattern)) {
      const bool negated = !one.empty() && one.front() == L'~';
      if (here(negated ? one.substr(1) : one, text) != negated) return true;
    }
    return false;
  }

 private:
  static std::vector<std::wstring_view> alternatives(std::wstring_view pattern) {
    std::vector<std::wstring_view> result;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      if (pattern[i] == L'`' && i + 1 < pattern.size())
        ++i;
      else if (const std::size_t end = setEnd(pattern, i))
        i = end;
      else if (pattern[i] == L',') {
        result.push_back(pattern.substr(begin, i - begin));
        begin = i + 1;
      }
    }
    result.push_back(pattern.substr(begin));
    return result;
  }

  // Where the set that opens at `at` closes; 0 when none opens there. The set may begin with "]".
  static std::size_t setEnd(std::wstring_view pattern, std::size_t at) {
    if (pattern[at] != L'[') return 0;
    std::size_t i = at + 1;
    if (i < pattern.size() && pattern[i] == L'~') ++i;
    for (bool first = true; i < pattern.size(); ++i, first = false) {
      if (pattern[i] == L'`' && i + 1 < pattern.size())
        ++i;
      else if (pattern[i] == L']' && !first)
        return i;
    }
    return 0;
  }

  bool here(std::wstring_view pattern, std::wstring_view text) const {
    if (pattern.empty()) return text.empty();
    const wchar_t c = pattern.front();
    if (c == L'*') {
      for (std::size_t i = 0; i <= text.size(); ++i) {
        if (here(pattern.substr(1), text.substr(i))) return true;
      }
      return false;
    }
    if (text.empty()) return false;
    if (const std::size_t end = setEnd(pattern, 0)) {
      return inSet(pattern.substr(1, end - 1), text.front()) && here(pattern.substr(end + 1), text.substr(1));
    }
    const bool escaped = c == L'`' && pattern.size() > 1;
    const bool one = escaped ? same(pattern[1], text.front()) : accepts(c, text.front());
    return one && here(pattern.substr(escaped ? 2 : 1), text.substr(1));
  }

  bool accepts(wchar_t c, wchar_t t) const {
    if (c == L'?') return true;
    if (c == L'#') return isDigit(t);
    if (c == L'@') return isLetter(t);
    if (c == L'.') return !isLetter(t) && !isDigit(t);
    return same(c, t);
  }
  bool same(wchar_t a, wchar_t b) const { return ignoreCase_ ? base::upper(a) == base::upper(b) : a == b; }

  bool inSet(std::wstring_view set, wchar_t t) const {
    const bool negated = !set.empty() && set.front() == L'~';
    if (negated) set.remove_prefix(1);
    for (std::size_t i = 0; i < set.size(); ++i) {
      if (set[i] == L'`' && i + 1 < set.size()) ++i;
      const wchar_t first = set[i];
      wchar_t last = first;
      if (i + 2 < set.size() && set[i + 1] == L'-') {
        i += 2;
        if (set[i] == L'`' && i + 1 < set.size()) ++i;
        last = set[i];
      }
      if (inRange(std::min(first, last), std::max(first, last), t)) return !negated;
    }
    return negated;
  }
  bool inRange(wchar_t first, wchar_t last, wchar_t t) const {
    if (t >= first && t <= last) return true;
    const wchar_t up = base::upper(t);
    return ignoreCase_ && up >= base::upper(first) && up <= base::upper(last);
  }

  bool ignoreCase_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The plain match takes exponential time on many stars; short inputs find as much.
  if (size < 2 || size > 24) return 0;
  const bool ignoreCase = (data[0] & 1) != 0;
  std::wstring pattern, text;
  std::wstring* target = &pattern;
  for (std::size_t i = 1; i < size; ++i) {
    if (data[i] == '\n' && target == &pattern)
      target = &text;
    else
      target->push_back(static_cast<wchar_t>(data[i] < 0x80 ? data[i] : 0x3000 + data[i]));
  }
  if (cad::Wildcard(pattern, ignoreCase).matches(text) != Reference(ignoreCase).matches(pattern, text))
    std::abort();
  return 0;
}
