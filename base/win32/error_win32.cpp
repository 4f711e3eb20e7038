#include "base/win32/error_win32.h"

#include <windows.h>

#include <cerrno>

#include "base/file_errors.h"
#include "base/files.h"

namespace base {
namespace {

// 0: the common words have nothing for it.
int commonError(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_DRIVE:
      return ENOENT;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return EACCES;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_FILE_TOO_LARGE:
      return EFBIG;
    case ERROR_CRC:
    case ERROR_IO_DEVICE:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
      return EIO;
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    default:
      return 0;
  }
}

std::wstring systemWords(DWORD error) {
  wchar_t text[512];
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  DWORD length =
      FormatMessageW(kFlags, nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return L"the system reports error " + std::to_wstring(error);
  return std::wstring(text, length);
}

}  // namespace

Failure systemFailure(const std::filesystem::path& path, unsigned long error) {
  if (error == ERROR_INVALID_NAME || error == ERROR_BAD_PATHNAME) {
    return fileFailure(path, FailureKind::kUnusableName);
  }
  if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE) {
    return fileFailure(path, FailureKind::kOpenElsewhere);
  }
  if (const int common = commonError(error); common != 0) return fileFailure(path, common);
  return fileFailure(path, FailureKind::kOther, systemWords(error));
}

Failure fileFailure(const std::filesystem::path& path, const std::error_code& error) {
  const bool isSystems = error.category() == std::system_category();
  return isSystems ? systemFailure(path, static_cast<unsigned long>(error.value()))
                   : fileFailure(path, error.value());
}

}  // namespace base
