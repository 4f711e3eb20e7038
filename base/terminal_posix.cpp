#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

#include "base/environment.h"
#include "base/file_errors.h"
#include "base/terminal.h"
#include "base/utf8.h"

namespace base {

Status writeText(std::FILE* stream, std::wstring_view text) {
  const std::string bytes = utf8::encodeName(text);
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
  if (std::fflush(stream) == 0 && isWritten) return {};
  return Failure{{}, fileFailure({}, errno).reason};
}

std::optional<std::size_t> terminalColumns(std::FILE* stream) {
  constexpr std::size_t kUsual = 80;
  const int number = ::fileno(stream);
  if (::isatty(number) == 0) return std::nullopt;
  if (const auto kind = environmentVariable("TERM"); !kind || *kind == "dumb") return std::nullopt;
  struct winsize size {};
  return ::ioctl(number, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsual;
}

void prepareStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  // Reading the null device takes the number and still refuses to be written to.
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (::fcntl(stream, F_GETFD) == -1 && errno == EBADF) ::open("/dev/null", O_RDONLY);
  }
}

}  // namespace base
