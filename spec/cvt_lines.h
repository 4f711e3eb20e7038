#pragma once
// The lines of a specification file as a reader of 255-character lines sees them, and the parts of a line.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "spec/cvt_diagnostics.h"

namespace kiv {

inline constexpr size_t kCvtLineLimit = 255;  // characters of a line; a longer one is several lines

// The marks of a file that are no section's header.
inline constexpr wchar_t kRemarkHeader[] = L"[備考]";
inline constexpr wchar_t kEndOfFile[] = L"[EOF]";
inline constexpr wchar_t kEndOfSection[] = L"---End---";        // as it is written
inline constexpr wchar_t kFoldedEndOfSection[] = L"---END---";  // as readers compare it
inline constexpr wchar_t kNoConditions[] = L"[***]";            // stands where a setting has no conditions

struct CvtLine {
  int number;           // of the line in the file; the pieces of a long line share it
  std::wstring text;    // trimmed
  std::wstring folded;  // trimmed and upper-cased
};

std::vector<CvtLine> cvtLines(std::string_view bytes, CvtDiagnostics& diagnostics);

// "[key] = value" or "[key] <> value". Without a "]", or without a sign behind it, all parts are empty.
struct RuleLine {
  std::wstring key;
  std::wstring sign;  // what decides, and all that stands between it and the key
  std::wstring value;
};
RuleLine splitRuleLine(std::wstring_view line);

// True when "<>" stands somewhere behind the line's first character.
bool isInvertedLine(std::wstring_view line);

struct KeyAndValue {
  std::wstring key;
  std::wstring value;
};
// "NAME,value" or "NAME=value": the later one of the first "," and the first "=" separates. Nothing: neither.
std::optional<KeyAndValue> splitAssignment(std::wstring_view entry);

// The trimmed fields between commas; at least one.
std::vector<std::wstring> splitFields(std::wstring_view line);
std::wstring joinFields(const std::vector<std::wstring>& fields);

// What bytes look like that make no specification: UTF-8 that could be the code page as well, UTF-16; else
// empty.
std::wstring otherEncoding(std::string_view bytes);

}  // namespace kiv
