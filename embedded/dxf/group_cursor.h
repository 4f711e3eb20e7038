#pragma once
// The groups of one record, in order.
//
//   std::string scratch;
//   GroupCursor cursor(storage.bytes(record, scratch), storage.dialect());
//   while (cursor.next()) if (cursor.group().code == 40) ...

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "embedded/drawing/record.h"
#include "embedded/dxf/dialect.h"
#include "embedded/dxf/text_lines.h"

namespace cad::dxf {

struct Group {
  int code = 0;
  std::string_view
      value;  // text: the line without its end, blanks kept; binary: the raw value, strings without NUL
  std::uint32_t begin = 0, end = 0;  // the whole group, relative to the record's present bytes
  std::uint32_t valueBegin = 0;      // where `value` begins, likewise
};

inline constexpr int kComment = 999;
inline constexpr int kLayerName = 1003;  // in extended data

// One group, read at `position` of `bytes`; false when there is no whole group of a valid code.
bool readTextGroup(std::string_view bytes, std::size_t position, LineEnd lineEnd, Group& group);
bool readBinaryGroup(std::string_view bytes, std::size_t position, bool wideCodes, Group& group);
bool readGroup(std::string_view bytes, std::size_t position, const Dialect& dialect, Group& group);
// The group's second line, which begins at `at`.
template <char kEnd>
inline void readValueLine(const char* base, const char* at, const char* end, Group& group) {
  const char* const lineEnd = takeValue<kEnd>(at, end, group.value);
  group.valueBegin = static_cast<std::uint32_t>(at - base);
  group.end = static_cast<std::uint32_t>((lineEnd == end ? end : lineEnd + 1) - base);
}
// Of a text file whose lines end so.
template <char kEnd>
inline bool readLines(std::string_view bytes, std::size_t position, Group& group) {
  if (position >= bytes.size()) return false;
  const char* const base = bytes.data();
  const char* const end = base + bytes.size();
  const char* at = base + position;
  if (!takeCode<kEnd>(at, end, group.code)) return false;
  group.begin = static_cast<std::uint32_t>(position);
  readValueLine<kEnd>(base, at, end, group);
  return true;
}

// Passes over comments, which may stand between any two groups and are no part of what is written.
class GroupCursor {
 public:
  // `bytes` and `dialect` must outlive the cursor. The bytes may be any: a broken group ends the walk.
  GroupCursor(std::string_view bytes, const Dialect& dialect) : bytes_(bytes), dialect_(dialect) {}
  bool next() {  // false at the end
    bool found = false;
    do {
      found = !dialect_.binary && dialect_.lineEnd != LineEnd::kCr
                  ? readLines<'\n'>(bytes_, group_.end, group_)
                  : readGroup(bytes_, group_.end, dialect_, group_);
    } while (found && group_.code == kComment);
    return found;
  }
  // The next group of a code that is not dull; passed() then says where the last of those between ends, 0:
  // there was none.
  template <class IsDull>
  bool next(IsDull isDull) {
    passed_ = 0;
    if (dialect_.binary || dialect_.lineEnd == LineEnd::kCr) {
      for (;; passed_ = group_.end) {
        if (!next()) return false;
        if (!isDull(group_.code)) return true;
      }
    }
    const char* const base = bytes_.data();
    const char* const end = base + bytes_.size();
    for (const char* at = base + group_.end; at < end;) {
      const char* const begin = at;
      if (!takeCode<'\n'>(at, end, group_.code)) return false;
      const bool isComment = group_.code == kComment;
      if (!isComment && !isDull(group_.code)) {
        group_.begin = static_cast<std::uint32_t>(begin - base);
        readValueLine<'\n'>(base, at, end, group_);
        return true;
      }
      at = findLineEnd<'\n'>(at, end);
      if (at < end) ++at;
      if (!isComment) passed_ = static_cast<std::uint32_t>(at - base);
    }
    return false;
  }
  std::uint32_t passed() const { return passed_; }
  const Group& group() const { return group_; }

 private:
  std::string_view bytes_;
  const Dialect& dialect_;
  Group group_;
  std::uint32_t passed_ = 0;
};

// The comments among the groups of `bytes`, which are whole groups.
std::string commentsIn(std::string_view bytes, const Dialect& dialect);

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
constexpr std::string_view trimmed(std::string_view value) {
  while (!value.empty() && isBlank(value.front())) value.remove_prefix(1);
  while (!value.empty() && isBlank(value.back())) value.remove_suffix(1);
  return value;
}
// ASCII letters in either case: files write the format's own words in any.
constexpr char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool equalNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size() || a == b) return a.size() == b.size();
  std::size_t at = 0;
  while (at < a.size() && asciiUpper(a[at]) == asciiUpper(b[at])) ++at;
  return at == a.size();
}
// The value by its type; absent when it is not one.
std::optional<std::int64_t> integerValue(const Group& group, const Dialect& dialect);  // reals are truncated
std::optional<double> realValue(const Group& group, const Dialect& dialect);           // integers too
std::optional<Handle> handleValue(const Group& group);

}  // namespace cad::dxf
