#include "platform/file_access.h"

#include <fcntl.h>
#include <unistd.h>

#include "base/files.h"

namespace kiv {

bool canBeWritten(const std::wstring& path) {
  // Not blocking: a pipe would wait for its reader.
  const int file = ::open(base::pathFromText(path).c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return false;
  ::close(file);
  return true;
}

}  // namespace kiv
