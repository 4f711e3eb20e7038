#include "base/text_files.h"

#include "base/file_errors.h"

namespace base {
namespace {

constexpr char kEndOfFile = 26;

}  // namespace

std::vector<TextLine> textLines(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find(kEndOfFile));
  std::vector<TextLine> lines;
  while (!bytes.empty()) {
    // In the code page no second byte of a character is a line end, so bytes can be cut before decoding.
    const size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    Decoded decoded = decode(line, kTextCodePage);
    lines.push_back({std::move(decoded.text), decoded.clean});
  }
  return lines;
}

std::wstring decodeText(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  const bool isMarked = bytes.starts_with(kMark);
  return isMarked ? decode(bytes.substr(kMark.size()), kUtf8).text : decode(bytes, kTextCodePage).text;
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
