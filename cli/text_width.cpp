#include "cli/text_width.h"

#include "embedded/graphics/fonts/characters.h"

namespace kivcli {
namespace {

bool isWide(wchar_t c) { return cad::isFullWidth(static_cast<char32_t>(c)); }

bool mayBegin(wchar_t c) {
  return std::wstring_view(L"、。，．）」』】・ーっゃゅょッャュョ)").find(c) == std::wstring_view::npos;
}

// How long the piece is that may not be parted.
std::size_t pieceLength(std::wstring_view text) {
  std::size_t length = 1;
  if (isWide(text[0])) {
    while (length < text.size() && !mayBegin(text[length])) ++length;
    return length;
  }
  while (length < text.size() && text[length] != L' ' && !isWide(text[length])) ++length;
  while (length < text.size() && text[length] != L' ' && !mayBegin(text[length])) ++length;
  return length;
}

}  // namespace

std::size_t columnsOf(std::wstring_view text) {
  std::size_t columns = 0;
  for (const wchar_t c : text) columns += isWide(c) ? 2 : 1;
  return columns;
}

std::wstring_view fitting(std::wstring_view text, std::size_t columns) {
  std::size_t length = 0, taken = 0;
  while (length < text.size()) {
    taken += isWide(text[length]) ? 2 : 1;
    if (taken > columns) break;
    ++length;
  }
  return text.substr(0, length);
}

std::wstring shortened(std::wstring_view text, std::size_t columns) {
  constexpr std::wstring_view kMore = L"…";
  const std::size_t width = columnsOf(kMore);  // which fonts do not agree on
  if (columns < width || columnsOf(text) <= columns) return std::wstring(fitting(text, columns));
  return std::wstring(fitting(text, columns - width)).append(kMore);
}

std::vector<std::wstring> wrapped(std::wstring_view text, std::size_t columns) {
  std::vector<std::wstring> lines(1);
  while (!text.empty()) {
    const bool isBlankBefore = text[0] == L' ';
    if (isBlankBefore) text.remove_prefix(1);
    if (text.empty()) break;
    const std::wstring_view piece = text.substr(0, pieceLength(text));
    std::wstring& line = lines.back();
    const std::size_t blank = isBlankBefore && !line.empty() ? 1 : 0;
    if (!line.empty() && columnsOf(line) + blank + columnsOf(piece) > columns) {
      lines.emplace_back(piece);
    } else {
      line.append(blank, L' ').append(piece);
    }
    text.remove_prefix(piece.size());
  }
  return lines;
}

}  // namespace kivcli
