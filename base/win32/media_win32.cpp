#include <windows.h>

#include <string>
#include <system_error>

#include "base/media.h"

namespace base {

bool isOnCompactDisc(const std::filesystem::path& path) {
  std::error_code ignored;
  const std::wstring folder = std::filesystem::absolute(path, ignored).parent_path().wstring();
  std::wstring root(folder.size() + 2, L'\0');  // room for a separator
  if (!GetVolumePathNameW(folder.c_str(), root.data(), static_cast<DWORD>(root.size()))) return false;
  return GetDriveTypeW(root.c_str()) == DRIVE_CDROM;
}

}  // namespace base
