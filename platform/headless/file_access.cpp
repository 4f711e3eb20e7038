#include "platform/file_access.h"

#include <fcntl.h>
#include <sys/vfs.h>
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

// This system has no types of drives; the file system tells.
bool isOnCompactDisc(const std::wstring& path) {
  constexpr auto kIso9660 = 0x9660, kUdf = 0x15013346;
  struct statfs status {};
  if (::statfs(base::pathFromText(path).c_str(), &status) != 0) return false;
  return status.f_type == kIso9660 || status.f_type == kUdf;
}

}  // namespace kiv
