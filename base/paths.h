#pragma once
// Paths as the host hands them and as people type them: wide text with the system's separator.

#include <string>
#include <string_view>
#include <vector>

namespace base {

#if defined(_WIN32)
inline constexpr wchar_t kSeparator = L'\\';
inline constexpr bool kNamesHeedCase = false;
#else
inline constexpr wchar_t kSeparator = L'/';
inline constexpr bool kNamesHeedCase = true;
#endif

// Where names do not heed case both "\" and "/" separate.
bool isSeparator(wchar_t character);

// Empty stays empty: a name joined to it is a bare file name.
std::wstring ensureTrailingSeparator(std::wstring folder);

std::wstring joinPath(std::wstring_view folder, std::wstring_view name);

// The folders of a list in which ";" separates them, on every system; empty ones are left out.
std::vector<std::wstring> foldersInList(std::wstring_view list);

// `drive` with its colon, `folder` with its trailing separator, `extension` with its dot; each may be empty.
struct PathParts {
  std::wstring drive;
  std::wstring folder;
  std::wstring name;
  std::wstring extension;
};
PathParts splitPath(std::wstring_view path);

// Of a path that was written on any system: "\" becomes the system's own separator.
std::wstring withSystemSeparators(std::wstring path);

// Upper case where names do not heed case; as it is elsewhere.
std::wstring folderInSystemCase(std::wstring_view folder);

bool fileExists(std::wstring_view path);
bool folderExists(std::wstring_view path);

// With its missing parents. False when there is no such folder afterwards.
bool createFolders(std::wstring_view path);

// Absolute; as it is given when the system cannot tell.
std::wstring fullPath(const std::wstring& given);

}  // namespace base
