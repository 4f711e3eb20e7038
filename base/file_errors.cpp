#include "base/file_errors.h"

#include <cerrno>
#include <string>
#include <system_error>

#include "base/codepage.h"
#include "base/files.h"

namespace base {
namespace {

std::wstring reasonOf(int error) {
  switch (error) {
    case ENOENT:
      return L"the file does not exist";
    case ENOTDIR:
      return kNotAFolder;
    case EISDIR:
      return kIsAFolder;
    case EACCES:
    case EPERM:
      return kPermissionDenied;
    case EROFS:
      return kReadOnlyFileSystem;
    case ENOSPC:
      return kNoSpaceLeft;
    case EFBIG:
      return L"the file becomes larger than the file system or the limit of this account allows";
    case EIO:
      return L"input/output error";
    case ENAMETOOLONG:
      return kNameTooLong;
    case EMFILE:
    case ENFILE:
      return L"too many open files";
    default:
      return fromUtf8(std::generic_category().message(error));
  }
}

}  // namespace

Failure fileFailure(const std::filesystem::path& path, int error) {
  return {pathText(path), reasonOf(error)};
}

}  // namespace base
