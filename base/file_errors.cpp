#include "base/file_errors.h"

#include <cerrno>
#include <string>
#include <system_error>

#include "base/codepage.h"
#include "base/files.h"

namespace base {
namespace {

const wchar_t* sentence(FailureKind kind) {
  switch (kind) {
    case FailureKind::kOther:
      return L"";
    case FailureKind::kNoSuchFile:
      return L"the file does not exist";
    case FailureKind::kNoSuchFolder:
      return L"the folder does not exist";
    case FailureKind::kIsAFolder:
      return L"this is a folder, not a file";
    case FailureKind::kNotAFolder:
      return L"a part of the path is not a folder";
    case FailureKind::kNotAnOrdinaryFile:
      return L"this is not an ordinary file";
    case FailureKind::kFileInTheWay:
      return L"a file of that name is in the way of the folder";
    case FailureKind::kPermissionDenied:
      return L"permission denied";
    case FailureKind::kReadOnlyFileSystem:
      return L"the file system is read-only";
    case FailureKind::kNoSpaceLeft:
      return L"no space left on the disk";
    case FailureKind::kFileTooLarge:
      return L"the file becomes larger than the file system or the limit of this account allows";
    case FailureKind::kInputOutput:
      return L"input/output error";
    case FailureKind::kTooManyOpenFiles:
      return L"too many open files";
    case FailureKind::kNameTooLong:
      return L"the name is too long";
    case FailureKind::kUnusableName:
      return L"the name has characters that file names cannot have";
    case FailureKind::kOpenElsewhere:
      return L"another program has the file open";
    case FailureKind::kChangedWhileRead:
      return L"another program changed the file while it was read";
    case FailureKind::kNotInCodePage:
      return L"the code page of the file does not have: ";
    case FailureKind::kForeignContent:
      return L"the file holds something else";
  }
  return L"";
}

FailureKind kindOf(int error) {
  switch (error) {
    case ENOENT:
      return FailureKind::kNoSuchFile;
    case ENOTDIR:
      return FailureKind::kNotAFolder;
    case EISDIR:
      return FailureKind::kIsAFolder;
    case EACCES:
    case EPERM:
      return FailureKind::kPermissionDenied;
    case EROFS:
      return FailureKind::kReadOnlyFileSystem;
    case ENOSPC:
      return FailureKind::kNoSpaceLeft;
    case EFBIG:
      return FailureKind::kFileTooLarge;
    case EIO:
      return FailureKind::kInputOutput;
    case ENAMETOOLONG:
      return FailureKind::kNameTooLong;
    case EMFILE:
    case ENFILE:
      return FailureKind::kTooManyOpenFiles;
    default:
      return FailureKind::kOther;
  }
}

}  // namespace

Failure fileFailure(const std::filesystem::path& path, FailureKind kind, const std::wstring& detail) {
  return {pathText(path), sentence(kind) + detail, kind, detail};
}

Failure fileFailure(const std::filesystem::path& path, int error) {
  const FailureKind kind = kindOf(error);
  const bool isKnown = kind != FailureKind::kOther;
  return fileFailure(path, kind, isKnown ? L"" : fromUtf8(std::generic_category().message(error)));
}

}  // namespace base
