#include "cli/log_name.h"

#include <ctime>
#include <cwchar>

#include "base/files.h"
#include "cli/specification_report.h"

namespace kivcli {

std::wstring logFilePath(const std::wstring& folder) {
  if (folder.empty()) return {};
  const std::time_t now = std::time(nullptr);
  wchar_t name[64];
  const std::size_t length =
      std::wcsftime(name, std::size(name), L"%Y%m%d_%Hh%Mm%SsMorlux.log", std::localtime(&now));
  const std::filesystem::path path = base::pathFromText(fullPath(folder));
  return base::pathText(path / base::pathFromText(std::wstring(name, length)));
}

}  // namespace kivcli
