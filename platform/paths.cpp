#include "platform/paths.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "acedads.h"
#include "adscodes.h"
#include "base/files.h"
#include "base/fold.h"

namespace kiv {

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
  return kNamesHeedCase ? std::wstring(folder) : base::upper(folder);
}

bool fileExists(std::wstring_view path) {
  std::error_code error;
  const auto status = std::filesystem::status(base::pathFromText(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool folderExists(std::wstring_view path) {
  std::error_code error;
  return std::filesystem::is_directory(base::pathFromText(path), error);
}

bool createFolders(std::wstring_view path) {
  if (path.empty()) return false;
  std::error_code error;
  std::filesystem::create_directories(base::pathFromText(path), error);
  return folderExists(path);
}

std::wstring findInFolder(std::wstring_view folder, std::wstring_view name) {
  return base::pathText(base::findIgnoringCase(base::pathFromText(folder), name));
}

std::vector<std::wstring> supportFolders() {
  resbuf value{};
  if (acedGetVar(L"ACADPREFIX", &value) != RTNORM || value.restype != RTSTR) return {};
  std::wistringstream path(value.resval.rstring);
  acutDelString(value.resval.rstring);
  std::vector<std::wstring> folders;
  for (std::wstring folder; std::getline(path, folder, L';');) {
    if (!folder.empty()) folders.push_back(ensureTrailingSeparator(std::move(folder)));
  }
  return folders;
}

std::optional<std::wstring> findHostFile(const std::wstring& name) {
  AcString found;
  if (acedFindFile(name.c_str(), found) != RTNORM) return std::nullopt;
  return std::wstring(found.constPtr());
}

}  // namespace kiv
