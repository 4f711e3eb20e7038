// The values of the host's environment.

#include "base/environment.h"

#include "base/files.h"
#include "dbapserv.h"
#include "embedded/editor/file_search.h"

namespace cad {
namespace {

constexpr wchar_t kSupportPath[] = L"ACAD", kTemporaryFolder[] = L"TempDirectory";

std::optional<std::wstring> environmentValue(const std::wstring& name) {
  if (name == kSupportPath) return supportPathText();
  if (name == kTemporaryFolder) return temporaryFolderText();
  const auto value = base::environmentVariable(base::pathFromText(name));
  return value ? std::optional(base::pathText(*value)) : std::nullopt;
}

}  // namespace
}  // namespace cad

const ACHAR* AcDbHostApplicationServices::getEnv(const ACHAR* name) {
  static std::optional<std::wstring> value;
  value = name == nullptr ? std::nullopt : cad::environmentValue(name);
  return value ? value->c_str() : nullptr;
}
