#include "platform/file_access.h"

#include <windows.h>

namespace kiv {

bool canBeWritten(const std::wstring& path) {
  constexpr DWORD kNotShared = 0;
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, kNotShared, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

}  // namespace kiv
