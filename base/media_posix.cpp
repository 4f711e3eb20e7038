#include <sys/vfs.h>

#include "base/media.h"

namespace base {

bool isOnCompactDisc(const std::filesystem::path& path) {
  constexpr auto kIso9660 = 0x9660, kUdf = 0x15013346;
  struct statfs status {};
  if (::statfs(path.c_str(), &status) != 0) return false;
  return status.f_type == kIso9660 || status.f_type == kUdf;
}

}  // namespace base
