#include "embedded/dwg/field_texts.h"

#include <cstdint>

#include "base/codepage.h"

namespace cad::dwg {
namespace {

constexpr bool kIsWideUtf16 = sizeof(wchar_t) == sizeof(char16_t);
constexpr std::uint32_t kHigh = 0xD800, kLow = 0xDC00, kBehindLow = 0xE000, kSupplement = 0x10000;

bool isPair(std::u16string_view text, std::size_t at) {
  return at + 1 < text.size() && text[at] >= kHigh && text[at] < kLow && text[at + 1] >= kLow &&
         text[at + 1] < kBehindLow;
}

}  // namespace

std::wstring fromUtf16(std::u16string_view text) {
  if constexpr (kIsWideUtf16) return std::wstring(text.begin(), text.end());
  std::wstring wide;
  wide.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::uint32_t character = text[at];
    if (isPair(text, at)) character = kSupplement + ((character - kHigh) << 10) + (text[++at] - kLow);
    wide += static_cast<wchar_t>(character);
  }
  return wide;
}

std::u16string toUtf16(std::wstring_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (const wchar_t each : text) {
    const auto character = static_cast<std::uint32_t>(each);
    if (kIsWideUtf16 || character < kSupplement) {
      units += static_cast<char16_t>(character);
    } else {
      units += static_cast<char16_t>(kHigh + ((character - kSupplement) >> 10));
      units += static_cast<char16_t>(kLow + ((character - kSupplement) & 0x3FF));
    }
  }
  return units;
}

std::string storedText(const Value& value) {
  const std::size_t ends = endsWithZero(value) ? 1 : 0;
  if (const auto* narrow = std::get_if<std::string>(&value)) return narrow->substr(0, narrow->size() - ends);
  const auto* wide = std::get_if<std::u16string>(&value);
  if (wide == nullptr) return {};
  return base::toUtf8(fromUtf16(std::u16string_view(*wide).substr(0, wide->size() - ends)));
}

bool endsWithZero(const Value& value) {
  if (const auto* narrow = std::get_if<std::string>(&value)) return narrow->ends_with('\0');
  const auto* wide = std::get_if<std::u16string>(&value);
  return wide != nullptr && wide->ends_with(u'\0');
}

}  // namespace cad::dwg
