#include "embedded/editor/file_search.h"

#include <algorithm>
#include <vector>

#include "acedads.h"
#include "base/dynamic_library.h"
#include "base/environment.h"
#include "base/files.h"
#include "base/paths.h"
#include "embedded/editor/host.h"
#include "embedded/editor/host_state.h"

namespace cad {
namespace {

constexpr char kSupportVariable[] = "KIV_SUPPORT_PATH";
constexpr char kSupportFolder[] = "support";  // the host's own linetype files

std::filesystem::path lookIn(const std::filesystem::path& folder, const std::wstring& name) {
  std::error_code error;
  const std::filesystem::path found = base::findIgnoringCase(folder, name);
  return !found.empty() && std::filesystem::is_regular_file(found, error) ? found : std::filesystem::path();
}

// Specification lines arrive upper-cased, so the folders of a path may differ in case as its file does.
std::filesystem::path resolve(const std::filesystem::path& whole) {
  std::error_code error;
  if (std::filesystem::is_regular_file(whole, error)) return whole;
  std::filesystem::path folder = whole.root_path();
  for (const std::filesystem::path& part : whole.parent_path().relative_path()) {
    folder = base::findIgnoringCase(folder, base::pathText(part));
    if (folder.empty()) return {};
  }
  return lookIn(folder, base::pathText(whole.filename()));
}

// Each once: in most calls several of them are the same, and looking through a folder takes its time.
std::vector<std::filesystem::path> searchFolders() {
  const HostState& state = hostState();
  std::vector<std::filesystem::path> folders;
  const auto add = [&](const std::filesystem::path& folder) {
    if (std::ranges::find(folders, folder) == folders.end()) folders.push_back(folder);
  };
  std::error_code error;
  add(std::filesystem::current_path(error));
  if (Document* document = state.documents.current(); document && !document->drawing().path().empty())
    add(document->drawing().path().parent_path());
  for (const std::filesystem::path& folder : state.supportPath) add(folder);
  add(programFolder());
  for (const std::filesystem::path& module : state.modules.paths()) add(module.parent_path());
  return folders;
}

}  // namespace

std::filesystem::path programFolder() {
  static const std::filesystem::path folder = base::programFile().parent_path();
  return folder;
}

std::wstring supportPathText() {
  std::wstring text;
  for (const std::filesystem::path& folder : hostState().supportPath)
    text += (text.empty() ? L"" : L";") + base::pathText(folder);
  return text;
}

std::wstring temporaryFolderText() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  return folder.empty() ? L"" : base::pathText(folder / "");
}

std::vector<std::filesystem::path> usualSupportPath(const std::filesystem::path& specifications) {
  std::vector<std::filesystem::path> folders = {specifications};
  const std::filesystem::path added = base::environmentVariable(kSupportVariable).value_or("");
  for (const std::wstring& each : base::foldersInList(base::pathText(added))) {
    std::error_code error;
    folders.push_back(std::filesystem::absolute(base::pathFromText(each), error));
  }
  folders.push_back(programFolder() / kSupportFolder);
  return folders;
}

std::filesystem::path findFile(std::wstring_view name) {
  if (name.empty()) return {};
  const std::filesystem::path wanted = base::pathFromText(name);
  const std::wstring file = base::pathText(wanted.filename());
  if (file.empty()) return {};
  if (wanted.has_parent_path()) {
    std::error_code error;
    return resolve(std::filesystem::absolute(wanted, error));
  }
  for (const std::filesystem::path& folder : searchFolders())
    if (std::filesystem::path found = lookIn(folder, file); !found.empty()) return found;
  return {};
}

}  // namespace cad

int acedFindFile(const ACHAR* name, AcString& result) {
  if (name == nullptr) return RTERROR;
  const std::filesystem::path found = cad::findFile(name);
  if (found.empty()) return RTERROR;
  result = base::pathText(found).c_str();
  return RTNORM;
}

int acedFindFile(const ACHAR* name, ACHAR* result, size_t capacity) {
  AcString found;
  if (result == nullptr || acedFindFile(name, found) != RTNORM || found.length() >= capacity) return RTERROR;
  const ACHAR* text = found.kACharPtr();
  std::copy(text, text + found.length() + 1, result);
  return RTNORM;
}
