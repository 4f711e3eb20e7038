#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

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

void prepareStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  // Reading the null device takes the number and still refuses to be written to.
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (::fcntl(stream, F_GETFD) == -1 && errno == EBADF) ::open("/dev/null", O_RDONLY);
  }
}

}  // namespace base
