#include "embedded/formats/foreign_formats.h"

#include <algorithm>

namespace cad::formats {
namespace {

using namespace std::string_view_literals;

struct Format {
  std::size_t at;
  std::string_view bytes;
  const wchar_t* refusal;
};

constexpr const wchar_t* kUtf16 = L"This is UTF-16 text; please save the drawing as DXF in UTF-8 or ANSI";
constexpr const wchar_t* kUtf32 = L"This is UTF-32 text; please save the drawing as DXF in UTF-8 or ANSI";
constexpr const wchar_t* kZip = L"This is a zip archive; please unpack the drawing first";
constexpr const wchar_t* kLha = L"This is an LHA archive; please unpack the drawing first";

// UTF-32 stands before UTF-16, whose mark it begins with.
constexpr Format kFormats[] = {
    {0, "AC1"sv, L"This is a DWG drawing; only DXF can be read yet"},
    {0, "\xFF\xFE\0\0"sv, kUtf32},
    {0, "\0\0\xFE\xFF"sv, kUtf32},
    {0, "\xFF\xFE"sv, kUtf16},
    {0, "\xFE\xFF"sv, kUtf16},
    {0, "\x1F\x8B"sv, L"This file is compressed with gzip; please unpack the drawing first"},
    {0, "\x1F\x9D"sv, L"This file is compressed with compress; please unpack the drawing first"},
    {0, "BZh"sv, L"This file is compressed with bzip2; please unpack the drawing first"},
    {0,
     "\xFD"
     "7zXZ\0"sv,
     L"This file is compressed with xz; please unpack the drawing first"},
    {0, "\x28\xB5\x2F\xFD"sv, L"This file is compressed with zstd; please unpack the drawing first"},
    {0, "\x04\x22\x4D\x18"sv, L"This file is compressed with lz4; please unpack the drawing first"},
    {0, "LZIP"sv, L"This file is compressed with lzip; please unpack the drawing first"},
    {0, "PK\3\4"sv, kZip},
    {0, "PK\5\6"sv, kZip},
    {0, "PK\7\x08"sv, kZip},
    {0, "7z\xBC\xAF\x27\x1C"sv, L"This is a 7z archive; please unpack the drawing first"},
    {0, "Rar!\x1A\7"sv, L"This is a RAR archive; please unpack the drawing first"},
    {0, "MSCF"sv, L"This is a cabinet archive; please unpack the drawing first"},
    {2, "-lh"sv, kLha},
    {2, "-lz"sv, kLha},
    {257, "ustar"sv, L"This is a tar archive; please unpack the drawing first"},
    {0, "%PDF"sv, L"This is a PDF document"},
};

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

const wchar_t* foreignFormat(std::string_view bytes) {
  const auto found = std::ranges::find_if(kFormats, [&](const Format& format) {
    return bytes.size() > format.at && bytes.substr(format.at).starts_with(format.bytes);
  });
  if (found != std::end(kFormats)) return found->refusal;
  return isUnmarkedUtf16(bytes) ? kUtf16 : nullptr;
}

}  // namespace cad::formats
