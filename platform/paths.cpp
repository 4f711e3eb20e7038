#include "platform/paths.h"

#include <utility>

#include "acedads.h"
#include "adscodes.h"
#include "base/paths.h"
#include "dbapserv.h"

namespace kiv {

std::vector<std::wstring> supportFolders() {
  const ACHAR* path = acdbHostApplicationServices()->getEnv(L"ACAD");
  if (path == nullptr) return {};
  std::vector<std::wstring> folders = base::foldersInList(path);
  for (std::wstring& folder : folders) folder = base::ensureTrailingSeparator(std::move(folder));
  return folders;
}

std::optional<std::wstring> findHostFile(const std::wstring& name) {
  AcString found;
  if (acedFindFile(name.c_str(), found) != RTNORM) return std::nullopt;
  return std::wstring(found.constPtr());
}

}  // namespace kiv
