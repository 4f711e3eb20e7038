#pragma once
// The header variables and the classes: a sentinel, a size, the content, a CRC, another sentinel.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/dwg/files/splices.h"

namespace cad::dwg {

struct FramedSection {
  std::uint64_t sizeAt = 0;     // four bytes, and four more in newer files
  std::uint64_t contentAt = 0;  // the CRC is behind it
  std::uint64_t length = 0;     // of the content

  std::string_view content(std::string_view bytes) const;
  // Replaces the content in `bytes`, where it is another one.
  void change(std::string_view bytes, const std::optional<std::string>& now, Splices& splices) const;
};

enum class Framed { kHeader, kClasses };

// The section at `at` of `bytes`. `place`: where refusals say that the section begins.
base::Result<FramedSection> readFramed(Framed which, std::string_view bytes, std::uint64_t at,
                                       std::uint64_t place);

}  // namespace cad::dwg
