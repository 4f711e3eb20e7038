#pragma once
// What marks where parts of a DWG file begin and end.

#include <cstddef>
#include <string_view>

namespace cad::dwg {

using namespace std::string_view_literals;

inline constexpr std::size_t kSentinelLength = 16;
inline constexpr std::string_view kLocatorsEnd =
    "\x95\xA0\x4E\x28\x99\x82\x1A\xE5\x5E\x41\xE0\x5F\x9D\x3A\x4D\x00"sv;
inline constexpr std::string_view kHeaderBegin =
    "\xCF\x7B\x1F\x23\xFD\xDE\x38\xA9\x5F\x7C\x68\xB8\x4E\x6D\x33\x5F"sv;
inline constexpr std::string_view kHeaderEnd =
    "\x30\x84\xE0\xDC\x02\x21\xC7\x56\xA0\x83\x97\x47\xB1\x92\xCC\xA0"sv;
inline constexpr std::string_view kClassesBegin =
    "\x8D\xA1\xC4\xB8\xC4\xA9\xF8\xC5\xC0\xDC\xF4\x5F\xE7\xCF\xB6\x8A"sv;
inline constexpr std::string_view kClassesEnd =
    "\x72\x5E\x3B\x47\x3B\x56\x07\x3A\x3F\x23\x0B\xA0\x18\x30\x49\x75"sv;
inline constexpr std::string_view kThumbnailBegin =
    "\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B"sv;

}  // namespace cad::dwg
