#include "spec/configuration.h"

#include "base/files.h"
#include "base/fold.h"
#include "base/folder_creation.h"
#include "base/paths.h"
#include "base/text_files.h"

namespace kiv {
namespace {

namespace fs = std::filesystem;

constexpr size_t kLongestModulePath = 255;
constexpr size_t kLongestLine = 255;
constexpr size_t kShortestFolder = 3;  // a drive and its root, or a folder at the root

}  // namespace

std::wstring configurationFolder(const HostFileLookup& lookup) {
  const std::optional<std::wstring> found = lookup(kModuleFileName);
  if (!found || found->size() > kLongestModulePath) return {};
  const size_t at = base::upper(*found).find(kModuleFileName);
  if (at == std::wstring::npos || at < kShortestFolder) return {};
  return base::ensureTrailingSeparator(base::folderInSystemCase(found->substr(0, at)) + L"CFG");
}

FolderMade makeConfigurationFolder(const std::wstring& folder) {
  if (folder.empty() || base::folderExists(folder)) return {};
  const fs::path made = base::pathFromText(folder).parent_path();
  std::vector<fs::path> samples;
  std::error_code error;
  const fs::path shipped = made.parent_path() / base::pathFromText(kSampleFolderName);
  for (fs::directory_iterator entry(shipped, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code ignored;
    if (entry->is_regular_file(ignored)) samples.push_back(entry->path());
  }
  FolderMade outcome{base::createFolderWith(made, samples)};
  if (samples.empty()) outcome.notice = L"見本の変換指定ﾌｧｲﾙがありません. " + base::pathText(shipped);
  return outcome;
}

std::optional<std::wstring> defaultSpecificationName(const std::wstring& folder,
                                                     const HostFileLookup& lookup) {
  const std::optional<std::wstring> found = lookup(folder + kInitialFileName);
  if (!found) return std::nullopt;
  const auto content = base::readFile(base::pathFromText(*found));
  if (!content.ok()) return std::nullopt;
  const std::vector<base::TextLine> lines = base::textLines(content.value());
  if (lines.empty()) return std::wstring();
  std::wstring_view line = std::wstring_view(lines[0].text).substr(0, kLongestLine);
  while (!line.empty() && base::trim(line.substr(line.size() - 1)).empty()) line.remove_suffix(1);
  return std::wstring(line);
}

base::Status writeDefaultSpecificationName(const std::wstring& folder, std::wstring_view path) {
  const base::PathParts parts = base::splitPath(path);
  const std::wstring name = path.empty() ? std::wstring() : parts.name + parts.extension;
  const fs::path file = base::pathFromText(folder + kInitialFileName);
  base::Encoded encoded = base::encodeText(name + L"\n");
  if (name.empty() || !encoded.clean) encoded = base::encodeText(std::wstring(kUnnamedSpecification) + L"\n");
  return base::writeFileAtomically(file, encoded.bytes);
}

}  // namespace kiv
