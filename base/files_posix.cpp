#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/temporary_files.h"

namespace base {
namespace {

namespace fs = std::filesystem;

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int number() const { return number_; }
  bool valid() const { return number_ >= 0; }
  // 0, or the error number: some systems report a failed write only here.
  int close() {
    const int result = ::close(number_);
    number_ = -1;
    return result == 0 ? 0 : errno;
  }

 private:
  int number_;
};

struct OpenedFile {
  Descriptor file;
  struct stat status;
};

Result<OpenedFile> openForReading(const fs::path& path) {
  OpenedFile opened{Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC)), {}};
  if (!opened.file.valid() || ::fstat(opened.file.number(), &opened.status) != 0) {
    return fileFailure(path, errno);
  }
  if (S_ISDIR(opened.status.st_mode)) return fileFailure(path, EISDIR);
  return opened;
}

// Memory that nobody has written to yet. Large ones come in large pages: half of the time that it takes to
// read a file goes into the single ones.
class Pages {
 public:
  explicit Pages(size_t size)
      : size_(size),
        address_(::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
    if (valid()) static_cast<void>(::madvise(address_, size, MADV_HUGEPAGE));
  }
  Pages(const Pages&) = delete;
  Pages& operator=(const Pages&) = delete;
  ~Pages() {
    if (valid()) ::munmap(address_, size_);
  }
  bool valid() const { return address_ != MAP_FAILED; }
  char* data() const { return static_cast<char*>(address_); }
  size_t size() const { return size_; }

 private:
  size_t size_;
  void* address_;
};

// A view of the file would change with it, and under the feet of whoever reads it.
class Copy : public FileBytes {
 public:
  Copy(OpenedFile opened, fs::path path)
      : opened_(std::move(opened)),
        pages_(static_cast<size_t>(opened_.status.st_size)),
        path_(std::move(path)) {}
  std::string_view bytes() const override { return {pages_.data(), filled_}; }

  Status fill() {
    if (!pages_.valid()) return fileFailure(path_, ENOMEM);
    while (filled_ < pages_.size()) {
      const ssize_t count = ::read(opened_.file.number(), pages_.data() + filled_, pages_.size() - filled_);
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return fileFailure(path_, errno);
      if (count == 0) break;
      filled_ += static_cast<size_t>(count);
    }
    return {};
  }

  Status checkUnchanged() const override {
    struct stat now {};
    if (::fstat(opened_.file.number(), &now) != 0) return fileFailure(path_, errno);
    const struct stat& then = opened_.status;
    const bool same = now.st_size == then.st_size && now.st_mtim.tv_sec == then.st_mtim.tv_sec &&
                      now.st_mtim.tv_nsec == then.st_mtim.tv_nsec;
    return same ? Status() : Status(fileFailure(path_, FailureKind::kChangedWhileRead));
  }

 private:
  OpenedFile opened_;  // a rename over its name leaves it as it is
  Pages pages_;
  fs::path path_;
  size_t filled_ = 0;
};

// For what has no size in advance: pipes, devices, and files that the system makes up.
class Stream : public FileBytes {
 public:
  explicit Stream(std::string content) : content_(std::move(content)) {}
  std::string_view bytes() const override { return content_; }

 private:
  std::string content_;
};

Result<std::string> readAll(int number, const fs::path& path) {
  std::string content;
  char buffer[1 << 16];
  for (;;) {
    const ssize_t count = ::read(number, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return fileFailure(path, errno);
    if (count == 0) break;
    content.append(buffer, static_cast<size_t>(count));
  }
  return content;
}

constexpr size_t kBufferSize = size_t{1} << 16;  // longer pieces are not copied

// 0 or the system's error. Pipes and some file systems have nothing to wait for, and say so.
int reachDisk(int number) {
  while (::fsync(number) != 0) {
    if (errno == EINTR) continue;
    return errno == EINVAL || errno == ENOTSUP || errno == EROFS ? 0 : errno;
  }
  return 0;
}

int folderReachesDisk(const fs::path& folder) {
  const int number = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  // One that may be written to and not listed can only be left to the system.
  if (number < 0) return errno == EACCES ? 0 : errno;
  const Descriptor opened(number);
  return reachDisk(number);
}

class ReplacingFile : public AtomicFile {
 public:
  ReplacingFile(int number, fs::path temporary, fs::path target, std::unique_ptr<TemporaryFileMark> mark)
      : mark_(std::move(mark)), file_(number), temporary_(std::move(temporary)), target_(std::move(target)) {}
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;
  ~ReplacingFile() override {
    if (!committed_) ::unlink(temporary_.c_str());
  }

  void write(std::string_view bytes) override {
    if (buffer_.size() + bytes.size() <= kBufferSize) {
      buffer_ += bytes;
      return;
    }
    flush();
    if (bytes.size() >= kBufferSize) {
      writeDirectly(bytes);
    } else {
      buffer_ += bytes;
    }
  }

  void overwrite(std::uint64_t at, std::string_view bytes) override {
    flush();
    seek(static_cast<off_t>(at), SEEK_SET);
    writeDirectly(bytes);
    seek(0, SEEK_END);
  }

  Status commit() override {
    flush();
    if (error_ == 0 && isWaitingForDisk()) error_ = reachDisk(file_.number());
    if (file_.valid()) {
      const int error = file_.close();
      if (error_ == 0) error_ = error;
    }
    if (error_ == 0 && ::rename(temporary_.c_str(), target_.c_str()) != 0) error_ = errno;
    if (error_ != 0) return fileFailure(target_, error_);
    committed_ = true;
    // The file is whole and in its place, but its name may be the old one's after a power cut.
    if (isWaitingForDisk()) error_ = folderReachesDisk(target_.parent_path());
    if (error_ != 0) return fileFailure(target_, error_);
    return {};
  }

 private:
  void flush() {
    writeDirectly(buffer_);
    buffer_.clear();
  }

  void seek(off_t place, int from) {
    if (error_ == 0 && ::lseek(file_.number(), place, from) < 0) error_ = errno;
  }

  void writeDirectly(std::string_view bytes) {
    while (error_ == 0 && !bytes.empty()) {
      const ssize_t count = ::write(file_.number(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) {
        error_ = errno;
        return;
      }
      bytes.remove_prefix(static_cast<size_t>(count));
    }
  }

  std::unique_ptr<TemporaryFileMark> mark_;
  Descriptor file_;
  fs::path temporary_;
  fs::path target_;
  std::string buffer_;
  int error_ = 0;
  bool committed_ = false;
};

// A rename would replace a link instead of the file that it stands for.
fs::path behindLinks(const fs::path& target) {
  std::error_code error;
  if (!fs::is_symlink(target, error)) return target;
  fs::path real = fs::weakly_canonical(target, error);
  return error ? target : real;
}

}  // namespace

Result<std::unique_ptr<FileBytes>> FileBytes::open(const fs::path& path) {
  Result<OpenedFile> opened = openForReading(path);
  if (!opened) return opened.failure();
  const struct stat& status = opened.value().status;
  if (S_ISREG(status.st_mode) && status.st_size > 0) {
    auto copy = std::make_unique<Copy>(std::move(opened.value()), path);
    if (Status filled = copy->fill(); !filled) return filled.failure();
    return std::unique_ptr<FileBytes>(std::move(copy));
  }
  Result<std::string> content = readAll(opened.value().file.number(), path);
  if (!content) return content.failure();
  return std::unique_ptr<FileBytes>(std::make_unique<Stream>(std::move(content.value())));
}

Result<std::string> readFile(const fs::path& path) {
  const Result<OpenedFile> opened = openForReading(path);
  if (!opened) return opened.failure();
  return readAll(opened.value().file.number(), path);
}

Result<std::unique_ptr<AtomicFile>> AtomicFile::create(const fs::path& requested) {
  const fs::path target = behindLinks(requested);
  struct stat old {};
  const bool exists = ::stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) return fileFailure(requested, EISDIR);
  if (exists && !S_ISREG(old.st_mode)) return fileFailure(requested, FailureKind::kNotAnOrdinaryFile);
  // A rename succeeds over a write-protected file; the protection is meant all the same.
  if (exists && ::access(target.c_str(), W_OK) != 0) return fileFailure(requested, errno);

  for (;;) {
    const fs::path temporary = temporaryName(target.parent_path());
    auto mark = std::make_unique<TemporaryFileMark>(temporary);
    const int number = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (number < 0 && errno == EEXIST) continue;
    if (number < 0 && errno == ENOENT) return fileFailure(requested, FailureKind::kNoSuchFolder);
    if (number < 0) return fileFailure(requested, errno);
    // Best effort: some file systems have no locks, which tell others that the file is still being written,
    // or no permissions to keep.
    static_cast<void>(::flock(number, LOCK_EX | LOCK_NB));
    if (exists) static_cast<void>(::fchmod(number, old.st_mode & 07777));
    return std::unique_ptr<AtomicFile>(
        std::make_unique<ReplacingFile>(number, temporary, target, std::move(mark)));
  }
}

// A removal needs no permission for the file itself; its protection is meant all the same.
Status removeFile(const fs::path& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return fileFailure(path, EISDIR);
    if (!S_ISLNK(status.st_mode) && ::access(path.c_str(), W_OK) != 0) return fileFailure(path, errno);
  }
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) return fileFailure(path, errno);
  return {};
}

}  // namespace base
