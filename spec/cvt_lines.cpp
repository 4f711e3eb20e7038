#include "spec/cvt_lines.h"

#include <algorithm>

#include "base/codepage.h"
#include "base/fold.h"
#include "base/text_files.h"

namespace kiv {

std::vector<CvtLine> cvtLines(std::string_view bytes, CvtDiagnostics& diagnostics) {
  std::vector<CvtLine> lines;
  int number = 0;
  const bool isUtf8 = base::isSurelyUtf8(bytes);
  if (isUtf8) diagnostics.push_back({CvtProblem::kFileInUtf8, 0, {}, {}});
  for (const base::TextLine& line : base::textLines(bytes)) {
    ++number;
    const std::wstring_view whole = line.text;
    const std::wstring shown(base::trim(whole));
    if (!line.clean)
      diagnostics.push_back({CvtProblem::kBadBytes, number, shown, isUtf8 ? L"UTF-8" : L"code page 932"});
    if (whole.size() > kCvtLineLimit) diagnostics.push_back({CvtProblem::kLineTooLong, number, shown, {}});
    size_t at = 0;
    do {
      const std::wstring_view piece = base::trim(whole.substr(at, kCvtLineLimit));
      lines.push_back({number, std::wstring(piece), base::upper(piece)});
      at += kCvtLineLimit;
    } while (at < whole.size());
  }
  return lines;
}

RuleLine splitRuleLine(std::wstring_view line) {
  const size_t bracket = line.find(L']');
  if (bracket == line.npos) return {};
  std::wstring_view key = base::trim(line.substr(0, bracket));
  if (!key.empty() && key.front() == L'[') key.remove_prefix(1);
  const std::wstring_view rest = base::trim(line.substr(bracket + 1));
  const size_t equals = rest.find(L'=');
  const size_t differs = rest.find(L"<>");
  if (equals == rest.npos && differs == rest.npos) return {};
  const size_t value = equals < differs ? equals + 1 : differs + 2;
  return {std::wstring(base::trim(key)), std::wstring(rest.substr(0, value)),
          std::wstring(base::trim(rest.substr(value)))};
}

bool isInvertedLine(std::wstring_view line) {
  const size_t at = line.find(L"<>");
  return at != line.npos && at > 0;
}

std::optional<KeyAndValue> splitAssignment(std::wstring_view entry) {
  const size_t comma = entry.find(L',');
  const size_t equals = entry.find(L'=');
  const bool hasBoth = comma != entry.npos && equals != entry.npos;
  const size_t separator = hasBoth ? std::max(comma, equals) : std::min(comma, equals);
  if (separator == entry.npos) return std::nullopt;
  return KeyAndValue{std::wstring(base::trim(entry.substr(0, separator))),
                     std::wstring(base::trim(entry.substr(separator + 1)))};
}

std::wstring joinFields(const std::vector<std::wstring>& fields) {
  std::wstring line;
  for (size_t index = 0; index < fields.size(); ++index) line += (index == 0 ? L"" : L",") + fields[index];
  return line;
}

std::vector<std::wstring> splitFields(std::wstring_view line) {
  std::vector<std::wstring> fields;
  for (;;) {
    const size_t comma = line.find(L',');
    fields.emplace_back(base::trim(line.substr(0, comma)));
    if (comma == line.npos) return fields;
    line.remove_prefix(comma + 1);
  }
}

std::wstring otherEncoding(std::string_view bytes) {
  const bool mark16 = bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff");
  const std::string_view start = bytes.substr(0, 4096);
  const auto zeros = std::count(start.begin(), start.end(), '\0');
  if (mark16 || (start.size() > 8 && zeros * 8 > static_cast<std::ptrdiff_t>(start.size()))) return L"UTF-16";
  // What is sure to be UTF-8 is read so.
  const bool ascii =
      std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  const bool couldBe = !ascii && !base::isSurelyUtf8(bytes) && base::decode(bytes, base::kUtf8).clean;
  if (couldBe) return L"UTF-8";
  return {};
}

}  // namespace kiv
