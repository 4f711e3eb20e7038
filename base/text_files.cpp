#include "base/text_files.h"

#include "base/file_errors.h"

namespace base {
namespace {

constexpr char kEndOfFile = 26;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string_view textOf(std::string_view bytes) { return bytes.substr(0, bytes.find(kEndOfFile)); }

}  // namespace

bool isSurelyUtf8(std::string_view bytes) {
  bytes = textOf(bytes);
  if (bytes.starts_with(kUtf8Mark)) return true;
  return !decode(bytes, kTextCodePage).clean && decode(bytes, kUtf8).clean;
}

std::vector<TextLine> textLines(std::string_view bytes) {
  const CodePage page = isSurelyUtf8(bytes) ? kUtf8 : kTextCodePage;
  bytes = textOf(bytes);
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::vector<TextLine> lines;
  while (!bytes.empty()) {
    // No later byte of a character is a line end, so bytes can be cut before decoding.
    const size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    Decoded decoded = decode(line, page);
    lines.push_back({std::move(decoded.text), decoded.clean});
  }
  return lines;
}

std::wstring decodeText(std::string_view bytes) {
  const bool isMarked = bytes.starts_with(kUtf8Mark);
  return isMarked ? decode(bytes.substr(kUtf8Mark.size()), kUtf8).text : decode(bytes, kTextCodePage).text;
}

Encoded encodeText(std::wstring_view text) {
  std::wstring ended;
  ended.reserve(text.size());
  for (const wchar_t character : text) {
    if (character == L'\n') ended += L'\r';
    ended += character;
  }
  return encode(ended, kTextCodePage);
}

std::wstring unwritableCharacters(std::wstring_view text) {
  std::wstring result;
  for (const wchar_t character : text) {
    const bool known = !encodeCharacter(character, kTextCodePage).empty();
    if (!known && result.find(character) == result.npos) result += character;
  }
  return result;
}

Failure notInCodePage(const std::filesystem::path& file, std::wstring_view text) {
  return fileFailure(file, FailureKind::kNotInCodePage, unwritableCharacters(text));
}

}  // namespace base
