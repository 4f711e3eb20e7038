#include "base/terminal.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "base/file_errors.h"
#include "base/utf8.h"

namespace base {
namespace {

// A console takes UTF-16 whatever code page it is set to, but only so much at a time.
bool writeToConsole(HANDLE console, std::wstring_view text) {
  constexpr std::size_t kPiece = 8192;
  while (!text.empty()) {
    DWORD written = 0;
    const DWORD wanted = static_cast<DWORD>(std::min(text.size(), kPiece));
    if (WriteConsoleW(console, text.data(), wanted, &written, nullptr) == 0 || written == 0) return false;
    text.remove_prefix(written);
  }
  return true;
}

}  // namespace

Status writeText(std::FILE* stream, std::wstring_view text) {
  std::fflush(stream);
  const HANDLE output = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  DWORD mode = 0;
  if (GetConsoleMode(output, &mode) != 0) {
    return writeToConsole(output, text) ? Status() : Failure{{}, fileFailure({}, EIO).reason};
  }
  // Otherwise the runtime would make CR LF of every LF.
  _setmode(_fileno(stream), _O_BINARY);
  const std::string bytes = utf8::encodeName(text);
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
  if (std::fflush(stream) == 0 && isWritten) return {};
  return Failure{{}, fileFailure({}, errno).reason};
}

std::optional<std::size_t> terminalColumns(std::FILE* stream) {
  const HANDLE output = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (GetConsoleScreenBufferInfo(output, &info) == 0) return std::nullopt;
  return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

void prepareStandardStreams() {}

}  // namespace base
