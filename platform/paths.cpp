#include "platform/paths.h"

#include <sstream>

#include "acedads.h"
#include "adscodes.h"
#include "base/paths.h"

namespace kiv {

std::vector<std::wstring> supportFolders() {
  resbuf value{};
  if (acedGetVar(L"ACADPREFIX", &value) != RTNORM || value.restype != RTSTR) return {};
  std::wistringstream path(value.resval.rstring);
  acutDelString(value.resval.rstring);
  std::vector<std::wstring> folders;
  for (std::wstring folder; std::getline(path, folder, L';');) {
    if (!folder.empty()) folders.push_back(base::ensureTrailingSeparator(std::move(folder)));
  }
  return folders;
}

std::optional<std::wstring> findHostFile(const std::wstring& name) {
  AcString found;
  if (acedFindFile(name.c_str(), found) != RTNORM) return std::nullopt;
  return std::wstring(found.constPtr());
}

}  // namespace kiv
