#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

#include "base/file_errors.h"
#include "base/files.h"

namespace base {
namespace {

// Nothing: it has gone, or is neither a file nor a folder.
bool describe(int folder, const char* name, FolderEntry& entry) {
  struct stat status {};
  if (::fstatat(folder, name, &status, 0) != 0) return false;
  entry.isFolder = S_ISDIR(status.st_mode);
  entry.isHidden = name[0] == '.';
  entry.size = static_cast<std::uint64_t>(status.st_size);
  entry.modified = status.st_mtime;
  return entry.isFolder || S_ISREG(status.st_mode);
}

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

Status listFolder(const std::filesystem::path& folder, const std::function<bool(FolderEntry)>& take) {
  const std::unique_ptr<DIR, CloseFolder> listed(::opendir(folder.c_str()));
  if (!listed) return fileFailure(folder, errno);
  for (;;) {
    errno = 0;
    const dirent* found = ::readdir(listed.get());
    if (!found) return errno == 0 ? Status() : fileFailure(folder, errno);
    const std::string_view name = found->d_name;
    FolderEntry entry;
    if (name == "." || name == ".." || !describe(::dirfd(listed.get()), found->d_name, entry)) continue;
    entry.name = pathText(std::filesystem::path(name));
    if (!take(std::move(entry))) return {};
  }
}

std::vector<std::wstring> rootFolders() { return {L"/"}; }

Failure fileFailure(const std::filesystem::path& path, const std::error_code& error) {
  return fileFailure(path, error.value());
}

}  // namespace base
