#include "base/folder_creation.h"

#include <system_error>

#include "base/file_errors.h"
#include "base/files.h"
#include "base/temporary_files.h"

namespace base {
namespace {

// Beside the folder that it becomes; gone at the end unless it has become that.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& target) {
    removeAbandonedTemporaryFiles(target.parent_path());
    do {
      path_ = temporaryName(target.parent_path());
    } while (!std::filesystem::create_directory(path_, error_) && !error_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    if (!error_ && !renamed_) std::filesystem::remove_all(path_, ignored);
  }
  std::error_code become(const std::filesystem::path& target) {
    std::error_code error;
    std::filesystem::rename(path_, target, error);
    renamed_ = !error;
    return error;
  }
  const std::filesystem::path& path() const { return path_; }
  const std::error_code& error() const { return error_; }

 private:
  std::filesystem::path path_;
  std::error_code error_;
  bool renamed_ = false;
};

}  // namespace

Status createFolderWith(const std::filesystem::path& named, const std::vector<std::filesystem::path>& files) {
  namespace fs = std::filesystem;
  const fs::path folder = named.has_filename() ? named : named.parent_path();
  std::error_code error;
  if (fs::is_directory(folder, error)) return {};
  if (fs::exists(folder, error)) return fileFailure(folder, FailureKind::kFileInTheWay);
  TemporaryFolder made(folder);
  if (made.error()) return fileFailure(folder, made.error());
  Status outcome;
  for (const fs::path& file : files) {
    const auto content = readFile(file);
    if (!content.ok()) {
      outcome = content.failure();
      continue;
    }
    const Status copied = writeFileAtomically(made.path() / file.filename(), content.value());
    if (copied.ok()) continue;
    Failure refused = copied.failure();
    refused.place = pathText(folder / file.filename());  // not the folder that is about to go
    return refused;
  }
  const std::error_code refused = made.become(folder);
  const bool isThere = !refused || fs::is_directory(folder, error);  // another program may have been faster
  return isThere ? outcome : Status(fileFailure(folder, refused));
}

}  // namespace base
