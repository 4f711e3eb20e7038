#include "embedded/dwg/file_mark.h"

#include <algorithm>
#include <cstddef>

namespace cad::dwg {
namespace {

constexpr std::size_t kCodeLength = 6;

}  // namespace

bool isDwg(std::string_view beginning) {
  return beginning.size() >= kCodeLength && beginning.starts_with("AC") &&
         std::all_of(beginning.begin() + 2, beginning.begin() + kCodeLength,
                     [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
}

std::string_view dwgVersionCode(std::string_view file) { return file.substr(0, kCodeLength); }

}  // namespace cad::dwg
