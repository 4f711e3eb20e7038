#include "platform/host_output.h"

#include <string>

#include "acutads.h"

namespace kiv {

void printOnCommandLine(std::wstring_view text) {
  // The host takes at most 132 characters at once.
  constexpr size_t kPiece = 120;
  for (; !text.empty(); text.remove_prefix(text.size() < kPiece ? text.size() : kPiece)) {
    acutPrintf(L"%ls", std::wstring(text.substr(0, kPiece)).c_str());
  }
}

void printError(std::wstring_view text) { printOnCommandLine(L"\nKivｴﾗｰ:" + std::wstring(text)); }

}  // namespace kiv
