#include "base/disk.h"
#include "base/files.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <string>

#include "base/file_errors.h"
#include "base/temporary_files.h"
#include "base/win32/error_win32.h"

namespace base {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (valid()) CloseHandle(handle_);
  }
  HANDLE get() const { return handle_; }
  bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }
  void close() {
    if (valid()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

// The system takes sizes of 32 bits.
DWORD pieceOf(std::size_t size) {
  return static_cast<DWORD>(std::min<std::size_t>(size, std::size_t{1} << 30));
}

// A file with a view of it mapped cannot be replaced, neither by this program nor by another, however it
// was opened. So the bytes are copied, and the file is free at once.
class Copy : public FileBytes {
 public:
  explicit Copy(std::size_t size) : content_(std::make_unique_for_overwrite<char[]>(size)), size_(size) {}
  std::string_view bytes() const override { return {content_.get(), size_}; }

  // 0 or the system's error. A file that is shorter than it was is taken as it is now.
  DWORD fill(HANDLE file) {
    std::size_t filled = 0;
    while (filled < size_) {
      DWORD count = 0;
      if (ReadFile(file, content_.get() + filled, pieceOf(size_ - filled), &count, nullptr) == 0) {
        return GetLastError();
      }
      if (count == 0) break;
      filled += count;
    }
    size_ = filled;
    return 0;
  }

 private:
  std::unique_ptr<char[]> content_;
  std::size_t size_;
};

// For what has no size in advance: pipes and devices.
class Stream : public FileBytes {
 public:
  std::string_view bytes() const override { return content_; }

  DWORD fill(HANDLE file) {
    char buffer[1 << 16];
    for (;;) {
      DWORD count = 0;
      if (ReadFile(file, buffer, sizeof buffer, &count, nullptr) == 0) {
        const DWORD error = GetLastError();
        return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF ? 0 : error;
      }
      if (count == 0) return 0;
      content_.append(buffer, count);
    }
  }

 private:
  std::string content_;
};

template <class Content>
Result<std::unique_ptr<FileBytes>> filled(std::unique_ptr<Content> content, HANDLE file,
                                          const fs::path& path) {
  if (const DWORD error = content->fill(file); error != 0) return systemFailure(path, error);
  return std::unique_ptr<FileBytes>(std::move(content));
}

bool isFolder(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// A rename over a file that somebody has open is answered as if it were forbidden for good.
DWORD reasonOfRefusal(const fs::path& target, DWORD error) {
  if (error != ERROR_ACCESS_DENIED) return error;
  const Handle probe(
      CreateFileW(target.c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return !probe.valid() && GetLastError() == ERROR_SHARING_VIOLATION ? ERROR_SHARING_VIOLATION : error;
}

// 0 or the system's error. Virus scanners and indexers hold a file that has just been written for a
// moment, and another program of the suite may be reading the target.
DWORD replaceFile(const fs::path& temporary, const fs::path& target) {
  constexpr int kTries = 20;
  constexpr DWORD kPause = 25;  // milliseconds
  const DWORD flags = MOVEFILE_REPLACE_EXISTING | (isWaitingForDisk() ? MOVEFILE_WRITE_THROUGH : 0);
  for (int tries = 1;; ++tries) {
    if (MoveFileExW(temporary.c_str(), target.c_str(), flags) != 0) return 0;
    const DWORD error = GetLastError();
    const bool passing = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!passing || tries == kTries) return reasonOfRefusal(target, error);
    Sleep(kPause);
  }
}

// So nothing is left of a process that is ended in between. Best effort: not every file system can do it.
void setRemovedWhenClosed(HANDLE file, bool removed) {
  FILE_DISPOSITION_INFO disposition{};
  disposition.DeleteFile = removed ? TRUE : FALSE;
  SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition);
}

constexpr std::size_t kBufferSize = std::size_t{1} << 16;  // longer pieces are not copied

class ReplacingFile : public AtomicFile {
 public:
  ReplacingFile(HANDLE file, fs::path temporary, fs::path target)
      : file_(file), temporary_(std::move(temporary)), target_(std::move(target)) {}
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;
  ~ReplacingFile() override {
    file_.close();  // an open file cannot be deleted
    if (!committed_) DeleteFileW(temporary_.c_str());
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
    seek(at, FILE_BEGIN);
    writeDirectly(bytes);
    seek(0, FILE_END);
  }

  Status commit() override {
    flush();
    if (error_ == 0 && isWaitingForDisk() && FlushFileBuffers(file_.get()) == 0) error_ = GetLastError();
    setRemovedWhenClosed(file_.get(), error_ != 0);
    file_.close();
    if (error_ == 0) error_ = replaceFile(temporary_, target_);
    if (error_ != 0) return systemFailure(target_, error_);
    committed_ = true;
    return {};
  }

 private:
  void flush() {
    writeDirectly(buffer_);
    buffer_.clear();
  }

  void seek(std::uint64_t place, DWORD from) {
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(place);
    if (error_ == 0 && SetFilePointerEx(file_.get(), distance, nullptr, from) == 0) error_ = GetLastError();
  }

  void writeDirectly(std::string_view bytes) {
    while (error_ == 0 && !bytes.empty()) {
      DWORD count = 0;
      if (WriteFile(file_.get(), bytes.data(), pieceOf(bytes.size()), &count, nullptr) == 0) {
        error_ = GetLastError();
        return;
      }
      bytes.remove_prefix(count);
    }
  }

  Handle file_;
  fs::path temporary_;
  fs::path target_;
  std::string buffer_;
  DWORD error_ = 0;
  bool committed_ = false;
};

// A rename would replace a link instead of the file that it stands for. `file` is the opened target.
fs::path behindLinks(const fs::path& target, HANDLE file) {
  const DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
    return target;
  std::wstring real(32768, L'\0');
  const DWORD capacity = static_cast<DWORD>(real.size());
  const DWORD length = GetFinalPathNameByHandleW(file, real.data(), capacity, FILE_NAME_NORMALIZED);
  if (length == 0 || length >= capacity) return target;
  real.resize(length);
  return real;
}

// The file that a write to `requested` replaces, or why it cannot.
Result<fs::path> replaceableTarget(const fs::path& requested) {
  const Handle old(CreateFileW(requested.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!old.valid()) return requested;  // there is none yet; the temporary file tells what else is wrong
  if (isFolder(requested)) return fileFailure(requested, EISDIR);
  if (GetFileType(old.get()) != FILE_TYPE_DISK) {
    return fileFailure(requested, FailureKind::kNotAnOrdinaryFile);
  }
  fs::path target = behindLinks(requested, old.get());
  if ((GetFileAttributesW(target.c_str()) & FILE_ATTRIBUTE_READONLY) != 0) {
    return fileFailure(requested, EACCES);
  }
  return target;
}

}  // namespace

Result<std::unique_ptr<FileBytes>> FileBytes::open(const fs::path& path) {
  const Handle file(CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.valid()) {
    const DWORD error = GetLastError();
    return isFolder(path) ? fileFailure(path, EISDIR) : systemFailure(path, error);
  }
  LARGE_INTEGER size{};
  if (GetFileType(file.get()) != FILE_TYPE_DISK || GetFileSizeEx(file.get(), &size) == 0) {
    return filled(std::make_unique<Stream>(), file.get(), path);
  }
  return filled(std::make_unique<Copy>(static_cast<std::size_t>(size.QuadPart)), file.get(), path);
}

Result<std::string> readFile(const fs::path& path) {
  const auto copied = FileBytes::open(path);
  if (!copied.ok()) return copied.failure();
  return std::string(copied.value()->bytes());
}

Result<std::unique_ptr<AtomicFile>> AtomicFile::create(const fs::path& requested) {
  Result<fs::path> target = replaceableTarget(requested);
  if (!target.ok()) return target.failure();

  for (;;) {
    const fs::path temporary = temporaryName(target.value().parent_path());
    const HANDLE file = CreateFileW(temporary.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      setRemovedWhenClosed(file, true);
      return std::unique_ptr<AtomicFile>(std::make_unique<ReplacingFile>(file, temporary, target.value()));
    }
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) continue;
    if (error == ERROR_PATH_NOT_FOUND) return fileFailure(requested, FailureKind::kNoSuchFolder);
    return systemFailure(requested, error);
  }
}

Status removeFile(const fs::path& path) {
  if (DeleteFileW(path.c_str()) != 0) return {};
  const DWORD error = GetLastError();
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return {};
  return isFolder(path) ? fileFailure(path, EISDIR) : systemFailure(path, error);
}

}  // namespace base
