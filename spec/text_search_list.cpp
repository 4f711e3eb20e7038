#include "spec/text_search_list.h"

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "base/text_files.h"

namespace kiv {
namespace {

constexpr const wchar_t* kHeader = L"*** MOJILIST ***";

bool showsNothing(wchar_t c) { return c <= L' ' || (c >= 0x7F && c <= 0xA0) || c == 0x3000; }

base::Failure cannotOpen(const std::filesystem::path& file) {
  return {base::pathText(file), kTextListCannotOpen};
}

// Whole, however long it is.
base::Result<LoadedTextList> readList(const std::filesystem::path& file) {
  const auto content = base::readFile(file);
  if (!content.ok()) return cannotOpen(file);
  const std::vector<base::TextLine> lines = base::textLines(content.value());
  if (lines.empty() || !base::equalFolded(lines[0].text, kHeader)) {
    return base::Failure{base::pathText(file), kTextListNotUsable, base::FailureKind::kForeignContent};
  }
  LoadedTextList list;
  for (size_t index = 1; index < lines.size(); ++index) list.texts.push_back(lines[index].text);
  list.isUtf8 = base::isSurelyUtf8(content.value());
  return list;
}

}  // namespace

base::Result<std::vector<std::wstring>> readTextSearchList(const std::filesystem::path& file) {
  auto read = readList(file);
  if (!read.ok()) return read.failure();
  return std::move(read.value().texts);
}

base::Result<LoadedTextList> loadTextSearchList(const std::filesystem::path& folder, std::wstring_view name) {
  const std::filesystem::path file = base::findIgnoringCase(folder, name);
  if (file.empty()) return cannotOpen(folder / base::pathFromText(name));
  auto list = readList(file);
  if (!list.ok()) return list;
  list.value().isCut = list.value().texts.size() > kTextSearchListCapacity;
  if (list.value().isCut) list.value().texts.resize(kTextSearchListCapacity);
  return list;
}

base::Status writeTextSearchList(const std::filesystem::path& file, const std::vector<std::wstring>& rows) {
  std::wstring text = std::wstring(kHeader) + L"\n";
  for (const std::wstring& row : rows) {
    if (!isBlankRow(row)) text += row + L"\n";
  }
  const base::Encoded encoded = base::encodeText(text);
  if (!encoded.clean) {
    return base::notInCodePage(file, text);
  }
  return base::writeFileAtomically(file, encoded.bytes);
}

bool isBlankRow(std::wstring_view row) { return std::all_of(row.begin(), row.end(), showsNothing); }

}  // namespace kiv
