#include <windows.h>

#include "base/file_lock.h"
#include "base/win32/error_win32.h"

namespace base {
namespace {

class HandleLock : public FileLock {
 public:
  explicit HandleLock(HANDLE handle) : handle_(handle) {}
  HandleLock(const HandleLock&) = delete;
  HandleLock& operator=(const HandleLock&) = delete;
  ~HandleLock() override {
    OVERLAPPED whole{};
    UnlockFileEx(handle_, 0, 1, 0, &whole);
    CloseHandle(handle_);
  }

 private:
  HANDLE handle_;
};

}  // namespace

Result<std::unique_ptr<FileLock>> FileLock::acquire(const std::filesystem::path& file) {
  const HANDLE handle =
      CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return systemFailure(file, GetLastError());
  OVERLAPPED whole{};
  if (LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &whole) == 0) {
    const DWORD error = GetLastError();
    CloseHandle(handle);
    return systemFailure(file, error);
  }
  return std::unique_ptr<FileLock>(std::make_unique<HandleLock>(handle));
}

}  // namespace base
