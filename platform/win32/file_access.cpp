#include "platform/file_access.h"

#include <windows.h>

#include "base/paths.h"

namespace kiv {

bool canBeWritten(const std::wstring& path) {
  constexpr DWORD kNotShared = 0;
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, kNotShared, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

bool isOnCompactDisc(const std::wstring& path) {
  const base::PathParts parts = base::splitPath(path);
  const std::wstring folder = parts.drive + parts.folder;
  std::wstring root(folder.size() + 2, L'\0');  // room for a separator
  if (!GetVolumePathNameW(folder.c_str(), root.data(), static_cast<DWORD>(root.size()))) return false;
  return GetDriveTypeW(root.c_str()) == DRIVE_CDROM;
}

}  // namespace kiv
