#pragma once
// The system's error numbers in words that a person can act on.

#include <filesystem>

#include "base/result.h"

namespace base {

// The reasons that a person meets most when something is written or removed.
inline constexpr const wchar_t* kPermissionDenied = L"permission denied";
inline constexpr const wchar_t* kReadOnlyFileSystem = L"the file system is read-only";
inline constexpr const wchar_t* kNoSpaceLeft = L"no space left on the disk";
inline constexpr const wchar_t* kFolderDoesNotExist = L"the folder does not exist";
inline constexpr const wchar_t* kIsAFolder = L"this is a folder, not a file";
inline constexpr const wchar_t* kNotAFolder = L"a part of the path is not a folder";
inline constexpr const wchar_t* kFileInTheWay = L"a file of that name is in the way of the folder";
inline constexpr const wchar_t* kOpenElsewhere = L"another program has the file open";
inline constexpr const wchar_t* kChangedWhileRead = L"another program changed the file while it was read";
inline constexpr const wchar_t* kNameTooLong = L"the name is too long";
inline constexpr const wchar_t* kUnusableName = L"the name has characters that file names cannot have";

// `error` is an errno value.
Failure fileFailure(const std::filesystem::path& path, int error);

}  // namespace base
