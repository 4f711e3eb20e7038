#include "base/terminal.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <string>

#include "base/utf8.h"

namespace base {
namespace {

// A console takes UTF-16 whatever code page it is set to, but only so much at a time.
void writeToConsole(HANDLE console, std::wstring_view text) {
  constexpr std::size_t kPiece = 8192;
  while (!text.empty()) {
    DWORD written = 0;
    const DWORD wanted = static_cast<DWORD>(std::min(text.size(), kPiece));
    if (WriteConsoleW(console, text.data(), wanted, &written, nullptr) == 0 || written == 0) return;
    text.remove_prefix(written);
  }
}

}  // namespace

void writeText(std::FILE* stream, std::wstring_view text) {
  std::fflush(stream);
  const HANDLE output = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  DWORD mode = 0;
  if (GetConsoleMode(output, &mode) != 0) return writeToConsole(output, text);
  // Otherwise the runtime would make CR LF of every LF.
  _setmode(_fileno(stream), _O_BINARY);
  const std::string bytes = utf8::encodeName(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
  std::fflush(stream);
}

}  // namespace base
