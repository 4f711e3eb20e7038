#include "base/paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/files.h"
#include "base/fold.h"

namespace base {

bool isSeparator(wchar_t character) {
  return character == kSeparator || (!kNamesHeedCase && character == L'/');
}

std::wstring ensureTrailingSeparator(std::wstring folder) {
  if (!folder.empty() && !isSeparator(folder.back())) folder += kSeparator;
  return folder;
}

std::wstring joinPath(std::wstring_view folder, std::wstring_view name) {
  return ensureTrailingSeparator(std::wstring(folder)).append(name);
}

std::vector<std::wstring> foldersInList(std::wstring_view list) {
  std::vector<std::wstring> folders;
  for (std::size_t start = 0, end = 0; start < list.size(); start = end + 1) {
    end = std::min(list.find(L';', start), list.size());
    if (end > start) folders.emplace_back(list.substr(start, end - start));
  }
  return folders;
}

PathParts splitPath(std::wstring_view path) {
  PathParts parts;
  if (!kNamesHeedCase && path.size() > 1 && path[1] == L':') {
    parts.drive = path.substr(0, 2);
    path.remove_prefix(2);
  }
  size_t start = path.size();
  while (start > 0 && !isSeparator(path[start - 1])) --start;
  parts.folder = path.substr(0, start);
  path.remove_prefix(start);
  const size_t dot = path.rfind(L'.');
  parts.name = path.substr(0, dot);
  if (dot != path.npos) parts.extension = path.substr(dot);
  return parts;
}

std::wstring withSystemSeparators(std::wstring path) {
  std::ranges::replace(path, L'\\', kSeparator);
  return path;
}

std::wstring folderInSystemCase(std::wstring_view folder) {
  return kNamesHeedCase ? std::wstring(folder) : upper(folder);
}

bool fileExists(std::wstring_view path) {
  std::error_code error;
  const auto status = std::filesystem::status(pathFromText(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool folderExists(std::wstring_view path) {
  std::error_code error;
  return std::filesystem::is_directory(pathFromText(path), error);
}

bool createFolders(std::wstring_view path) {
  if (path.empty()) return false;
  std::error_code error;
  std::filesystem::create_directories(pathFromText(path), error);
  return folderExists(path);
}

std::wstring fullPath(const std::wstring& given) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(pathFromText(given), error);
  return error ? given : pathText(absolute);
}

}  // namespace base
