#pragma once
// Printing on the host's command line.

#include <string>
#include <string_view>

#include "acutads.h"

namespace kiv {

// As it stands: "%" has no meaning. A text begins with its own line break.
inline void printOnCommandLine(std::wstring_view text) {
  // The host takes at most 132 characters at once.
  constexpr std::size_t kPiece = 120;
  for (; !text.empty(); text.remove_prefix(text.size() < kPiece ? text.size() : kPiece)) {
    acutPrintf(L"%ls", std::wstring(text.substr(0, kPiece)).c_str());
  }
}

}  // namespace kiv
