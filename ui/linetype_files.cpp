#include "ui/linetype_files.h"

#include "base/files.h"
#include "base/text_files.h"
#include "platform/paths.h"

namespace kiv {
namespace {

constexpr size_t kReadBytes = 8192;
constexpr std::wstring_view kBlanks = L" \t\r";

std::wstring_view withoutBlanksAtEnd(std::wstring_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// A ";" among the first characters makes a header a remark.
bool isRemark(std::wstring_view line) { return line.substr(0, 3).find(L';') != line.npos; }

// "NAME,description" becomes "NAME  [description]", of which the first blank ends the name. Empty: not a
// definition.
std::wstring shownHeader(std::wstring_view line) {
  const size_t start = line.find_first_not_of(L"\r\n*");
  if (isRemark(line) || start == line.npos || line.find(L',') == line.npos) return {};
  std::wstring shown;
  for (const wchar_t c : withoutBlanksAtEnd(line.substr(start))) {
    if (c == L',') {
      shown += L"  [";
    } else {
      shown += c;
    }
  }
  return shown + L']';
}

}  // namespace

std::vector<std::wstring> linetypeFiles() {
  std::vector<std::wstring> files;
  for (const std::wstring& folder : supportFolders()) {
    for (const std::wstring& name : base::filesWithExtension(folder, L".LIN")) files.push_back(folder + name);
  }
  return files;
}

std::vector<LinetypeHeader> linetypeHeaders(std::string_view bytes) {
  const std::wstring text = base::decodeText(bytes.substr(0, kReadBytes));
  std::vector<LinetypeHeader> headers;
  for (size_t at = text.find(L"\n*"); at != text.npos; at = text.find(L"\n*", at)) {
    const size_t end = text.find(L'\n', at + 1);
    if (end == text.npos) break;
    const std::wstring shown = shownHeader(std::wstring_view(text).substr(at + 2, end - at - 2));
    at = end;
    const size_t blank = shown.find(L' ');
    const std::wstring name = shown.substr(0, blank);
    if (name.empty() || name == L"CONTINUOUS") continue;
    headers.push_back({name, blank == shown.npos ? std::wstring() : shown.substr(blank + 1)});
  }
  return headers;
}

std::vector<LinetypeHeader> readLinetypeHeaders(const std::wstring& path) {
  const std::optional<std::wstring> found = path.empty() ? std::nullopt : findHostFile(path);
  if (!found) return {};
  return linetypeHeaders(base::readBeginning(base::pathFromText(*found), kReadBytes));
}

}  // namespace kiv
