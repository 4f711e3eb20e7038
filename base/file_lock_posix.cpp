#include "base/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "base/file_errors.h"

namespace base {
namespace {

class DescriptorLock : public FileLock {
 public:
  explicit DescriptorLock(int number) : number_(number) {}
  DescriptorLock(const DescriptorLock&) = delete;
  DescriptorLock& operator=(const DescriptorLock&) = delete;
  ~DescriptorLock() override { ::close(number_); }

 private:
  int number_;
};

}  // namespace

Result<std::unique_ptr<FileLock>> FileLock::acquire(const std::filesystem::path& file) {
  const int number = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (number < 0) return fileFailure(file, errno);
  std::unique_ptr<FileLock> lock = std::make_unique<DescriptorLock>(number);
  while (::flock(number, LOCK_EX) != 0) {
    if (errno != EINTR) return fileFailure(file, errno);
  }
  return lock;
}

}  // namespace base
