#include "embedded/formats/foreign_formats.h"

#include <algorithm>

namespace cad::formats {
namespace {

using namespace std::string_view_literals;

struct Format {
  std::size_t at;
  std::string_view bytes;
  const wchar_t* name;
  const wchar_t* advice;
};

constexpr const wchar_t* kText = L"; please save the drawing as DXF in UTF-8 or ANSI";
constexpr const wchar_t* kPacked = L"; please unpack the drawing first";
constexpr Format kUtf16{0, "\xFF\xFE"sv, L"UTF-16 text", kText};

// UTF-32 stands before UTF-16, whose mark it begins with.
constexpr Format kFormats[] = {
    {0, "AC1"sv, L"a DWG drawing", L"; only DXF can be read yet"},
    {0, "\xFF\xFE\0\0"sv, L"UTF-32 text", kText},
    {0, "\0\0\xFE\xFF"sv, L"UTF-32 text", kText},
    kUtf16,
    {0, "\xFE\xFF"sv, kUtf16.name, kText},
    {0, "\x1F\x8B"sv, L"a file compressed with gzip", kPacked},
    {0, "\x1F\x9D"sv, L"a file compressed with compress", kPacked},
    {0, "BZh"sv, L"a file compressed with bzip2", kPacked},
    {0, "\xFD\x37zXZ\0"sv, L"a file compressed with xz", kPacked},
    {0, "\x28\xB5\x2F\xFD"sv, L"a file compressed with zstd", kPacked},
    {0, "\x04\x22\x4D\x18"sv, L"a file compressed with lz4", kPacked},
    {0, "LZIP"sv, L"a file compressed with lzip", kPacked},
    {0, "PK\3\4"sv, L"a zip archive", kPacked},
    {0, "PK\5\6"sv, L"a zip archive", kPacked},
    {0, "PK\7\x08"sv, L"a zip archive", kPacked},
    {0, "7z\xBC\xAF\x27\x1C"sv, L"a 7z archive", kPacked},
    {0, "Rar!\x1A\7"sv, L"a RAR archive", kPacked},
    {0, "MSCF"sv, L"a cabinet archive", kPacked},
    {2, "-lh"sv, L"an LHA archive", kPacked},
    {2, "-lz"sv, L"an LHA archive", kPacked},
    {257, "ustar"sv, L"a tar archive", kPacked},
    {0, "%PDF"sv, L"a PDF document", L""},
};

std::wstring refusal(const Format& format) { return std::wstring(L"This is ") + format.name + format.advice; }

// Without a mark the text shows itself: every other byte of digits, blanks and line ends is zero.
bool isUnmarkedUtf16(std::string_view bytes) {
  constexpr std::size_t kSample = 4;
  if (bytes.size() < kSample) return false;
  const auto isPlain = [](char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || (c >= '0' && c <= '9');
  };
  for (const std::size_t low : {0, 1}) {
    bool fits = true;
    for (std::size_t i = 0; i < kSample && fits; i += 2)
      fits = isPlain(bytes[i + low]) && bytes[i + 1 - low] == '\0';
    if (fits) return true;
  }
  return false;
}

}  // namespace

std::wstring foreignFormat(std::string_view bytes) {
  const auto found = std::ranges::find_if(kFormats, [&](const Format& format) {
    return bytes.size() > format.at && bytes.substr(format.at).starts_with(format.bytes);
  });
  if (found != std::end(kFormats)) return refusal(*found);
  return isUnmarkedUtf16(bytes) ? refusal(kUtf16) : std::wstring();
}

}  // namespace cad::formats
